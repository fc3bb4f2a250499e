// A child process of the benchmark: its start, its memory, its end. It ends with the benchmark program at the latest.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

class CProcess {
public:
    CProcess() = default;
    ~CProcess() { Kill(); }
    CProcess(const CProcess &) = delete;
    CProcess &operator=(const CProcess &) = delete;

    // `words`: the program, searched on PATH, and its arguments. `environment`: the whole of it, "NAME=value".
    // What it prints is thrown away.
    void Start(const std::vector<std::string> &words, const std::vector<std::string> &environment);
    bool WaitForEnd(std::chrono::seconds limit);  // false: it still runs
    void Kill();
    bool Runs() const { return id_ > 0; }

    // Of the process and all its descendants, in bytes.
    struct Memory {
        double resident;   // Rss: with the pages that other processes share
        double anonymous;  // what it allocated or changed itself
    };
    Memory ReadMemory() const;
    long ReadCpuTime() const;  // of the same processes, in clock ticks

private:
    pid_t id_ = -1;
};
