// The way from a command's words to what is handed to the system.
#pragma once

#include <string>
#include <vector>

inline constexpr int kExitNotRunnable = 126;  // as shells have it
inline constexpr int kExitNotFound = 127;

struct LaunchCommand {
    std::string file;                    // native path of the program; empty: nothing can be run
    std::vector<std::string> arguments;  // with the program's name first
    int exitCode = 0;                    // the launcher's own, for a command that can't be run
    std::string error;                   // the line that tells why
};

// `words` holds at least the program, which may be in the Windows form; the other words pass as they stand. A bare name
// is looked for in the program directory, then on PATH; a bare batch file in the current directory first.
LaunchCommand PrepareCommand(const std::vector<std::string> &words);
