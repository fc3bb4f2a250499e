// twmake.exe: the program's make command line over GNU make, which is looked for on PATH as "make".
//
//   twmake.exe [-c] [-a] -f <makefile> [make options and targets...]
//
// -c   console tool under another program: tells nothing about itself (no "Entering directory" lines)
// -a   all: everything is made again, whether it is up to date or not
// -f   the makefile, in the Windows form or the native one
//
// Every other word goes to make as it stands, and counts for more than what is set here: one job for each processor,
// the output of each target in one piece. "-j1" puts the jobs one behind the other, "-Onone" lets their lines through
// at once. The wrapper gives its place to make, so that the exit code, the signals and the descriptors are make's own.
// Exit code 127: there is no make; 126: it can't be run; 2: a wrong command line.
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/NativePath.h"

namespace {

constexpr int kExitUsage = 2;
constexpr int kExitNotRunnable = 126;
constexpr int kExitNotFound = 127;

// False for a -f without a name behind it.
bool TranslateArguments(const std::vector<std::string_view> &words, std::vector<std::string> &makeWords) {
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        if (word == "-c") {
            makeWords.emplace_back("--no-print-directory");
        } else if (word == "-a") {
            makeWords.emplace_back("--always-make");
        } else if (word == "-f") {
            if (++i == words.size() || words[i].empty()) return false;
            makeWords.emplace_back("--file=" + ToNativePath(words[i]));
        } else {
            makeWords.emplace_back(word);
        }
    }
    return true;
}

// A build of the program is its own affair: not a part of a make that happens to run above, whose job slots it has no
// descriptors for.
void LeaveOuterMake() {
    if (!std::getenv("MAKELEVEL")) return;
    for (const char *name : {"MAKELEVEL", "MAKEFLAGS", "MFLAGS"}) unsetenv(name);
}

}  // namespace

int main(int argc, char **argv) {
    std::vector<std::string> words = {"make", "--jobs=" + std::to_string(std::thread::hardware_concurrency()),
                                      "--output-sync=target"};
    if (words[1] == "--jobs=0") words[1] = "--jobs=1";
    if (!TranslateArguments({argv + 1, argv + argc}, words)) {
        std::fprintf(stderr, "twmake: -f needs the name of a makefile\n");
        return kExitUsage;
    }
    LeaveOuterMake();

    std::vector<char *> arguments;
    for (std::string &word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    execvp("make", arguments.data());

    const int code = errno;
    if (code == ENOENT) {
        std::fprintf(stderr, "twmake: there is no \"make\" on PATH; GNU make has to be installed (package \"make\")\n");
        return kExitNotFound;
    }
    std::fprintf(stderr, "twmake: make can't be run: %s\n", std::strerror(code));
    return kExitNotRunnable;
}
