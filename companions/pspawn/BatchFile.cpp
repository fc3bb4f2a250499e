#include "BatchFile.h"

#include "platform/PathCalls.h"

namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view Trim(std::string_view text) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool BeginsWithWord(std::string_view text, std::string_view word) {
    if (!StartsWithNoCase(text, word)) return false;
    return text.size() == word.size() || kBlanks.find(text[word.size()]) != std::string_view::npos;
}

bool IsRemark(std::string_view line) {
    return line.starts_with("::") || BeginsWithWord(line, "rem") || BeginsWithWord(line, "@rem");
}

bool IsEchoOff(std::string_view line) {
    return BeginsWithWord(line, "@echo") && EqualNoCase(Trim(line.substr(5)), "off");
}

}  // namespace

bool IsBatchFile(std::string_view name) {
    if (name.size() <= 4) return false;
    const std::string_view extension = name.substr(name.size() - 4);
    return EqualNoCase(extension, ".bat") || EqualNoCase(extension, ".cmd");
}

std::string ShellTextOfBatch(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    if (bytes.ends_with('\x1A')) bytes.remove_suffix(1);

    std::string text;
    bool beforeFirstCommand = true;
    while (!bytes.empty()) {
        const size_t end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        while (line.ends_with('\r')) line.remove_suffix(1);

        const std::string_view command = Trim(line);
        const bool ignored = IsRemark(command) || (beforeFirstCommand && IsEchoOff(command));
        if (!ignored) text += line;
        if (!ignored && !command.empty()) beforeFirstCommand = false;
        text += '\n';
    }
    return text;
}

std::vector<std::string> ShellCommandOfBatch(const std::string &text, const std::string &nativePath,
                                             const std::vector<std::string> &arguments) {
    std::vector<std::string> command = {"/bin/sh", "-c", "--", text, nativePath};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}
