// pspawn.exe: runs one console command.
//
//   pspawn.exe <parameter> <stop event> <command...>
//
// parameter   a number from the toolsuite, passed through; the launcher has no use of its own for it
// stop event  number of an inherited descriptor that becomes readable when the command is to be ended with all its
//             children; -1 or 0: none
// command     one argument: a raw command line, split by the rules of SplitCommandLine; several: its words as they
//             stand. A batch file is run by the shell (BatchFile.h tells what of it is understood).
//
// The command gets the standard handles and no other descriptor. The exit code is the command's, 128 + n when signal n
// ended it, 126 when it can't be run, 127 when there is no such program, 2 for a wrong command line.
#include <charconv>
#include <cstdio>
#include <cstring>
#include <optional>

#include "LaunchCommand.h"
#include "Launcher.h"
#include "platform/ChildProcess.h"

namespace {

constexpr int kExitUsage = 2;

std::optional<int> ReadNumber(const char *text) {
    int number = 0;
    const char *end = text + std::strlen(text);
    const auto [rest, failure] = std::from_chars(text, end, number);
    if (failure != std::errc() || rest != end) return {};
    return number;
}

int Fail(int exitCode, const std::string &error) {
    std::fprintf(stderr, "pspawn: %s\n", error.c_str());
    return exitCode;
}

}  // namespace

int main(int argc, char **argv) {
    const std::optional<int> parameter = argc > 1 ? ReadNumber(argv[1]) : std::nullopt;
    const std::optional<int> stopEvent = argc > 2 ? ReadNumber(argv[2]) : std::nullopt;
    if (!parameter || !stopEvent || argc < 4) {
        return Fail(kExitUsage, "usage: pspawn.exe <parameter> <stop event> <command...>");
    }
    CLauncher launcher(*stopEvent);

    const std::vector<std::string> words =
        argc == 4 ? SplitCommandLine(argv[3]) : std::vector<std::string>(argv + 3, argv + argc);
    if (words.empty()) return Fail(kExitUsage, "the command is empty");
    const LaunchCommand command = PrepareCommand(words);
    if (command.file.empty()) return Fail(command.exitCode, command.error);

    std::string error;
    const int exitCode = launcher.Run(command, error);
    return error.empty() ? exitCode : Fail(exitCode, error);
}
