#include "platform/ChildProcess.h"

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace

std::vector<std::string> SplitCommandLine(const std::string &line) {
    std::vector<std::string> words;
    bool inWord = false, quoted = false;
    for (size_t i = 0; i < line.size(); ++i) {
        char c = line[i];
        if (!quoted && IsBlank(c)) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        if (c == '"') {
            quoted = !quoted;
            continue;
        }
        if (quoted && c == '\\' && i + 1 < line.size() && line[i + 1] == '"') c = line[++i];
        words.back() += c;
    }
    return words;
}

std::string QuoteWord(const std::string &word) {
    if (!word.empty() && word.find_first_of(" \t\"") == word.npos) return word;
    // Backslashes at the end stand behind the closing quote, which they would otherwise turn into a quote of the word.
    const size_t end = word.find_last_not_of('\\') + 1;
    std::string quoted = "\"";
    for (const char c : word.substr(0, end)) {
        if (c == '"') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"" + word.substr(end);
}
