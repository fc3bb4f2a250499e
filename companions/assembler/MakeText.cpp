#include "MakeText.h"

#include <algorithm>

namespace {

bool IsTame(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c < 0 ||
           std::string_view("_-./+,@:").find(c) != std::string_view::npos;
}

}  // namespace

std::string MakeWord(std::string_view name, MakeRole role) {
    std::string word;
    if (name.starts_with('~')) word = "./";
    for (const char c : name) {
        switch (c) {
            case '$':
                word += "$$";
                continue;
            case '=':
                word += "$(equals)";
                continue;
            case '%':
                if (role == MakeRole::target) word += '\\';
                break;
            default:
                if (std::string_view(" #:*?[]\\").find(c) != std::string_view::npos) word += '\\';
                break;
        }
        word += c;
    }
    return word;
}

std::string WildcardWord(std::string_view name) {
    if (name.find_first_of(",()$:;=&|%\\") != std::string_view::npos) return {};
    return MakeWord(name, MakeRole::prerequisite);
}

std::string RecipeWord(std::string_view text) {
    std::string quoted;
    if (!text.empty() && std::all_of(text.begin(), text.end(), IsTame)) {
        quoted = text;
    } else {
        quoted = "'";
        for (const char c : text) {
            if (c == '\'') {
                quoted += "'\\''";
            } else {
                quoted += c;
            }
        }
        quoted += '\'';
    }
    std::string word;
    for (const char c : quoted) word.append(c == '$' ? 2 : 1, c);
    return word;
}

bool FitsMakefile(std::string_view name) {
    return !name.empty() && std::none_of(name.begin(), name.end(), [](char c) {
        return (c >= 0 && c < ' ') || c == 127 || c == ';' || c == '|';
    });
}
