#include "LaunchCommand.h"

#include "BatchFile.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/ProgramDirectory.h"

namespace {

bool IsBareName(const std::string &word) {
    return word.find_first_of("\\/:") == std::string::npos;
}

LaunchCommand Failed(int exitCode, const std::string &word, const std::string &reason) {
    return {.exitCode = exitCode, .error = DisplayPath(word) + ": " + reason};
}

LaunchCommand NotRunnable(const std::string &word) {
    if (DirectoryExists(word)) return Failed(kExitNotRunnable, word, "is a directory");
    if (FileExists(word)) return Failed(kExitNotRunnable, word, "may not be run (no execute permission)");
    return Failed(kExitNotFound, word, "no such program");
}

// Windows form; empty when there is none.
std::string FindBatch(const std::string &word) {
    if (FileExists(word)) return word;
    if (!IsBareName(word)) return {};
    if (const std::string own = ProgramFile(word); FileExists(own)) return own;
    return FromNativePath(FindProgram(word));
}

LaunchCommand PrepareBatch(const std::vector<std::string> &words) {
    const std::string path = FindBatch(words[0]);
    if (path.empty()) return NotRunnable(words[0]);
    const std::optional<std::string> bytes = ReadWholeFile(path);
    if (!bytes) return Failed(kExitNotRunnable, path, "can't be read");
    if (bytes->find('\0') != std::string::npos) return Failed(kExitNotRunnable, path, "is no batch file");

    LaunchCommand command;
    command.arguments =
        ShellCommandOfBatch(ShellTextOfBatch(*bytes), ToNativePath(path), {words.begin() + 1, words.end()});
    command.file = command.arguments[0];
    return command;
}

}  // namespace

LaunchCommand PrepareCommand(const std::vector<std::string> &words) {
    const std::string &program = words[0];
    if (program.empty()) return {.exitCode = kExitNotFound, .error = "the program's name is empty"};
    if (IsBatchFile(program)) return PrepareBatch(words);

    LaunchCommand command;
    command.file = FindProgram(program);
    if (command.file.empty()) {
        return IsBareName(program) ? Failed(kExitNotFound, program, "no such program") : NotRunnable(program);
    }
    command.arguments = words;
    if (!IsBareName(program)) command.arguments[0] = command.file;
    return command;
}
