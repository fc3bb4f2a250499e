// A console process with pipes at its three standard handles.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

// An event with manual reset whose descriptor a child can inherit: set, it reads as ready (poll POLLIN) until reset.
class CStopEvent {
public:
    CStopEvent();
    ~CStopEvent();
    CStopEvent(const CStopEvent &) = delete;
    CStopEvent &operator=(const CStopEvent &) = delete;

    int Descriptor() const { return descriptor_; }  // -1 when it couldn't be made; closed at exec unless handed over
    void Set();
    void Reset();

private:
    int descriptor_ = -1;
};

// One child. The parent's ends of the pipes are non-blocking. Not for two threads at once. The destructor closes the
// pipes and leaves the process to itself (a reaper of the class collects it).
class CChildProcess {
public:
    enum class Pipe { output, error };

    CChildProcess() = default;
    ~CChildProcess();
    CChildProcess(const CChildProcess &) = delete;
    CChildProcess &operator=(const CChildProcess &) = delete;

    // Starts `arguments` (first the program, found by FindProgram; the others as they stand) in `directory` (Windows
    // form, empty: the current one). The child inherits the three pipes, `inherited` when not -1 under its own number,
    // and nothing else. False when the program isn't found or can't be run.
    bool Start(const std::vector<std::string> &arguments, const std::string &directory, int inherited = -1);

    // Reads what is there now, at most `size` bytes: 0 when nothing is, or at the end. Never blocks.
    size_t Read(Pipe pipe, char *buffer, size_t size);

    // Waits until a pipe has data or ends, or the process ends, at most `limit`.
    void WaitForData(std::chrono::milliseconds limit);

    bool HasEnded();                   // without waiting
    void Kill();                       // at once, and only the process itself; its end has still to be seen
    std::optional<int> WaitForExit();  // exit code, 128 + n for signal n; empty when it can't be told

    int Pid() const { return pid_; }

private:
    int pid_ = -1;
    int pidDescriptor_ = -1;
    int pipes_[3] = {-1, -1, -1};  // parent's ends of stdin, stdout, stderr
    std::optional<int> exitCode_;
};

// Splits a command line into words: blanks separate; double quotes hold blanks together and are dropped, \" is a quote
// inside them; other backslashes stand for themselves. A missing closing quote runs to the end.
std::vector<std::string> SplitCommandLine(const std::string &line);

// The text that SplitCommandLine reads back as `word`.
std::string QuoteWord(const std::string &word);
