// What the benchmarks have in common: clocks, medians, the line that tells a result.
#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

using Milliseconds = std::chrono::duration<double, std::milli>;

Milliseconds Elapsed(const std::function<void()> &work);

// The same work done by the program and by its peer, turn by turn, so that what else the machine does falls on both.
struct Comparison {
    double ours = 0, peer = 0;  // medians
};
Comparison Compare(int rounds, const std::function<double()> &ours, const std::function<double()> &peer);

double Median(std::vector<double> values);

// The longest time between two turns of the event loop, which a timer of one millisecond asks for.
class CGapProbe {
public:
    CGapProbe();
    double Longest();  // milliseconds, up to now

private:
    void Note();

    QTimer timer_;
    std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
    Milliseconds longest_{0};
};

// One JSON line on the standard output. `peer` says what the ratio is to.
void Report(const std::string &name, const Comparison &result, const std::string &unit, const std::string &peer);

// Ends the benchmark program, telling what went wrong, unless `holds`: a measurement of a failure is worth nothing.
void Require(bool holds, const std::string &what);

// Runs a program to its end, its output thrown away. `directory`: native, empty for the current one.
void RunToEnd(const std::vector<std::string> &words, const std::string &directory = {});

// Turns the event loop, asleep while nothing happens, until `done`. Ends the program at the limit.
void TurnEventsUntil(const std::function<bool()> &done, std::chrono::seconds limit = std::chrono::seconds(120));
