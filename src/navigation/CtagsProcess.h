// One run of the tag generator.
#pragma once

#include <chrono>
#include <string>

#include "platform/ChildProcess.h"

// What it prints is dropped. The destructor ends a run that hasn't ended. Main thread.
class CCtagsProcess {
public:
    CCtagsProcess() = default;
    ~CCtagsProcess();
    CCtagsProcess(const CCtagsProcess &) = delete;
    CCtagsProcess &operator=(const CCtagsProcess &) = delete;

    bool Start(const std::string &commandLine);        // in the current directory; once. False when it can't be started
    bool WaitForEnd(std::chrono::milliseconds limit);  // false while it runs
    void Kill();

private:
    void DropOutput();

    CChildProcess child_;
    bool started_ = false;
};
