// All processes below this one, whatever groups, sessions and parents they make for themselves.
#pragma once

#include <chrono>
#include <optional>
#include <vector>

// One object per process. It makes the process the adopter of its orphaned descendants, so that none gets out of the
// tree while the process lives.
class CProcessTree {
 public:
    CProcessTree();

    // The child whose end is the command's end.
    void SetMain(int pid) { main_ = pid; }

    // Collects the processes that ended, without waiting. False when no process is left below this one.
    bool Reap();

    std::optional<int> ExitCode() const { return exitCode_; }  // of the main child: its own, or 128 + its signal

    // Ends every process of the tree: asks all of them to terminate, gives them a second, then freezes what is left, so
    // that it can't multiply, and kills it. Returns when none is left, at most 2.3 s later; false when some can't be
    // killed.
    bool End();

 private:
    using Clock = std::chrono::steady_clock;

    bool WaitForNone(Clock::time_point limit);
    void KillAll(Clock::time_point limit);

    int main_ = -1;
    std::optional<int> exitCode_;
};

// The processes below this one, parents before their children; what ended and isn't collected yet counts too.
std::vector<int> Descendants();
