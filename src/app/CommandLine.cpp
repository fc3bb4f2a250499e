#include "app/CommandLine.h"

#include "platform/NativePath.h"

std::vector<std::string> SplitArguments(std::string_view commandLine) {
    constexpr std::string_view kBlanks = " \t";
    std::vector<std::string> arguments;
    while (arguments.size() < kMaxArguments) {
        const size_t start = commandLine.find_first_not_of(kBlanks);
        if (start == std::string_view::npos) break;
        commandLine.remove_prefix(start);
        const bool quoted = commandLine.front() == '"';
        if (quoted) commandLine.remove_prefix(1);
        const size_t end = quoted ? commandLine.find('"') : commandLine.find_first_of(kBlanks);
        arguments.emplace_back(commandLine.substr(0, end));
        commandLine.remove_prefix(end == std::string_view::npos ? commandLine.size() : end + (quoted ? 1 : 0));
    }
    return arguments;
}

std::string ComposeCommandLine(const std::vector<std::string> &nativeArguments) {
    std::string line;
    for (const std::string &native : nativeArguments) {
        const std::string argument = native.starts_with('-') ? native : FromNativePath(native);
        const bool quote = argument.empty() || argument.find_first_of(" \t") != std::string::npos;
        if (!line.empty()) line += ' ';
        line += quote ? "\"" + argument + "\"" : argument;
    }
    return line;
}
