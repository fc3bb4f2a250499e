// The real program, from its exec to its first painted frame, against a bare main window.
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

#include "bench/Benchmarks.h"
#include "bench/Measure.h"
#include "support/Scratch.h"

namespace {

constexpr int kRounds = 21;
constexpr int kLongestStart = 60000;  // ms

// The plugin in the measured process writes a byte when its frame is painted.
double TimeToFirstFrame(const std::string &program) {
    int ends[2];
    Require(pipe(ends) == 0, "no pipe");
    setenv("THORNWELL_BENCH_FD", std::to_string(ends[1]).c_str(), 1);
    char *arguments[] = {const_cast<char *>(program.c_str()), nullptr};
    pid_t child = -1;
    bool painted = false;
    const Milliseconds time = Elapsed([&] {
        Require(posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ) == 0,
                program + " can't start");
        close(ends[1]);
        pollfd wait = {ends[0], POLLIN, 0};
        char byte;
        painted = poll(&wait, 1, kLongestStart) == 1 && read(ends[0], &byte, 1) == 1;
    });
    close(ends[0]);
    waitpid(child, nullptr, 0);
    Require(painted, program + " shows no frame");
    return time.count();
}

}  // namespace

void BenchStartUp() {
    const CScratch home;
    setenv("XDG_CONFIG_HOME", home.Native("config").c_str(), 1);
    setenv("QT_PLUGIN_PATH", THORNWELL_BENCH_PLUGINS, 1);
    setenv("QT_QPA_GENERIC_PLUGINS", "firstframe", 1);
    const std::string directory = THORNWELL_TEST_PROGRAM_DIR;
    const auto ours = [&] { return TimeToFirstFrame(directory + "/thornwell-ide"); };
    const auto peer = [&] { return TimeToFirstFrame(directory + "/thornwell-bench-window"); };
    Compare(2, ours, peer);  // the files come into memory
    Report("start-up to the first painted frame", Compare(kRounds, ours, peer), "ms",
           "a bare main window of the toolkit");
    unsetenv("QT_QPA_GENERIC_PLUGINS");
    unsetenv("QT_PLUGIN_PATH");
}
