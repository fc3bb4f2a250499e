#include "SourceScan.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

constexpr std::array<std::string_view, 9> kSectionDirectives = {
    "code", "code_pack", "idata", "idata_acs", "udata", "udata_acs", "udata_ovr", "udata_shr", "access_ovr"};

bool IsWordCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '.' ||
           c == '?' || c == '@' || c == '$' || c < 0;
}

// The first line for which `matches` holds, counted from 1.
template <typename Predicate>
std::optional<int> FindLine(const std::string &file, Predicate matches) {
    const std::optional<std::string> text = ReadWholeFile(FromNativePath(file));
    if (!text) return std::nullopt;
    int number = 1;
    for (size_t begin = 0; begin < text->size(); ++number) {
        const size_t end = std::min(text->find('\n', begin), text->size());
        if (matches(WordsOfLine(std::string_view(*text).substr(begin, end - begin)))) return number;
        begin = end + 1;
    }
    return std::nullopt;
}

bool IsSectionDirective(std::string_view word) {
    return std::any_of(kSectionDirectives.begin(), kSectionDirectives.end(),
                       [&](std::string_view directive) { return EqualNoCase(directive, word); });
}

}  // namespace

std::string_view TakeLine(std::string_view &text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

std::vector<std::string_view> WordsOfLine(std::string_view line) {
    std::vector<std::string_view> words;
    if (line.empty() || !IsWordCharacter(line.front())) words.emplace_back();
    size_t i = 0;
    while (i < line.size() && line[i] != ';') {
        if (line[i] == '"') {
            const size_t end = line.find('"', i + 1);
            i = end == std::string_view::npos ? line.size() : end + 1;
            continue;
        }
        size_t end = i;
        while (end < line.size() && IsWordCharacter(line[end])) ++end;
        if (end > i) words.push_back(line.substr(i, end - i));
        i = std::max(end, i + 1);
    }
    return words;
}

std::optional<int> FindSectionDirective(const std::string &file, std::string_view section) {
    return FindLine(file, [&](const std::vector<std::string_view> &words) {
        if (words.size() < 2 || !IsSectionDirective(words[1])) return false;
        if (!words[0].empty()) return words[0] == section;
        return section.starts_with('.') && EqualNoCase(words[1], section.substr(1));
    });
}

std::optional<int> FindLabel(const std::string &file, std::string_view label) {
    return FindLine(file, [&](const std::vector<std::string_view> &words) {
        return !words.empty() && EqualNoCase(words[0], label);
    });
}

std::optional<int> FindWord(const std::string &file, std::string_view word) {
    return FindLine(file, [&](const std::vector<std::string_view> &words) {
        return std::any_of(words.begin(), words.end(), [&](std::string_view w) { return EqualNoCase(w, word); });
    });
}

std::string ReadLine(const std::string &file, int line) {
    const std::optional<std::string> text = ReadWholeFile(FromNativePath(file));
    if (!text) return {};
    size_t begin = 0;
    for (int number = 1; number < line; ++number) {
        begin = text->find('\n', begin);
        if (begin == std::string::npos) return {};
        ++begin;
    }
    return text->substr(begin, text->find('\n', begin) - begin);
}

int CountLines(const std::string &file) {
    const std::optional<std::string> text = ReadWholeFile(FromNativePath(file));
    if (!text || text->empty()) return 1;
    const auto ends = std::count(text->begin(), text->end(), '\n');
    return static_cast<int>(ends) + (text->back() == '\n' ? 0 : 1);
}
