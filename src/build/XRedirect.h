// A console process whose output comes in line by line, read by a worker thread of its own.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "platform/ChildProcess.h"

class ConsoleLineSplitter;

// Start and Stop are for one thread (the owner's); the three callbacks come on the worker thread, except where told.
// The command runs through the launcher "pspawn.exe", which is asked to end it by an inherited event. A derived class
// calls Stop in its destructor, while its callbacks still stand.
class CXRedirect {
public:
    CXRedirect();
    virtual ~CXRedirect();
    CXRedirect(const CXRedirect &) = delete;
    CXRedirect &operator=(const CXRedirect &) = delete;

    // Starts `command` in `directory` (Windows form); `parameter` is passed through to the launcher. False for an empty
    // command, while a worker exists, or when no thread can be made. A launcher that can't be run shows as a line and
    // an exit code of 1.
    bool Start(const std::string &command, const std::string &directory, int32_t parameter);

    // Asks a running command to end and returns at once; OnChildTerminate tells when it has.
    void RequestStop();

    // Asks a running command to end, waits for its last lines, and returns the last exit code. Takes at most about
    // three seconds from the first request on: a launcher that doesn't react is then left to itself, and
    // OnChildTerminate comes from here.
    int Stop();

    void StopIfOverdue();  // Stop, when a request wasn't followed within its time; to be called after kStopLimit
    static constexpr std::chrono::milliseconds kStopLimit{3000};

    int ExitCode() const { return exitCode_; }  // 999 before any run, 1 from Start on, then the child's

protected:
    virtual void OnChildStarted(const std::string &launcherCommand) {}
    virtual void OnChildWrite(std::string_view line) = 0;

    // Once per successful Start, the last callback of it. A derived class calls this one first, under its lock if it
    // has one: from then on Start succeeds again.
    virtual void OnChildTerminate() { exists_ = false; }

    bool IsStopping() const { return stopping_; }  // a stop was asked for; any thread

private:
    static constexpr int kExitCodeBeforeRun = 999;

    void Work();
    bool Launch(CChildProcess &child, ConsoleLineSplitter &splitter);
    void ReadUntilEnd(CChildProcess &child, ConsoleLineSplitter &splitter);
    bool ReadOnce(CChildProcess &child, CChildProcess::Pipe pipe, ConsoleLineSplitter &splitter);
    void Terminate();
    bool WaitForWorker(std::chrono::steady_clock::time_point limit);

    std::string command_, directory_;
    int32_t parameter_ = 0;
    CStopEvent stopEvent_;
    std::chrono::steady_clock::time_point stopLimit_;  // of a request
    std::thread worker_;
    std::atomic<int> exitCode_{kExitCodeBeforeRun};
    std::atomic<bool> exists_{false};      // a worker that hasn't come to its last callback
    std::atomic<bool> stopping_{false};
    std::atomic<bool> abandoned_{false};   // the worker is to leave its child at once
    std::atomic<bool> terminated_{false};  // OnChildTerminate has been taken on
    std::mutex mutex_;
    std::condition_variable ended_;
    bool workerEnded_ = false;
};
