// A debug run through the module, as the debugger does it.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "debugger/EngineApi.h"
#include "platform/SharedLibrary.h"

// The module, loaded for a test and freed behind it.
class CDebugger {
public:
    explicit CDebugger(const char *programDirectory = COUNTER_DIR);

    template <typename Fn, typename... Arguments>
    int Call(const char *name, Arguments... arguments) const {
        Fn *const fn = library_.Get<Fn>(name);
        EXPECT_NE(fn, nullptr) << name;
        return fn ? fn(arguments...) : -1;
    }
    int Command(const char *name) const { return Call<DbgCommandFn>(name); }
    std::string Evaluate(const char *expression, int format = kDbgDecimal) const;  // "!" and the words on failure
    int64_t Clk() const;

private:
    CSharedLibrary library_;
};

struct Stop {
    int reason = 0, line = 0, address = 0;
    std::string file;
};

// One run with its engine's thread; ended with the object. Without an image nothing is loaded.
class CDebugRun {
public:
    explicit CDebugRun(const CDebugger &debugger, bool reset = true, const std::string &chip = "COUNTER",
                       const std::string &image = "counter.cof");
    ~CDebugRun();

    Stop AwaitStop();  // the next one not yet awaited; reason 0 when none comes within ten seconds
    Stop Do(const char *command);
    bool HasReturned(std::chrono::milliseconds limit = std::chrono::seconds(10));  // the thread's procedure
    std::vector<std::string> Texts();

    std::function<void()> onStop;  // on the engine's thread, before the stop is noted

private:
    static void OnExecution(int reason, const char *file, int line, int address, const char *text, void *user);

    const CDebugger &debugger_;
    std::mutex lock_;
    std::condition_variable changed_;
    std::vector<Stop> stops_;
    std::vector<std::string> texts_;
    size_t awaited_ = 0;
    bool returned_ = false;
    std::thread thread_;
};

// Expects that nothing is written to the standard output while it lives; shows what was.
class CSilence {
public:
    CSilence() { testing::internal::CaptureStdout(); }
    ~CSilence() { EXPECT_EQ(testing::internal::GetCapturedStdout(), ""); }
    CSilence(const CSilence &) = delete;
};

// What this process has: open descriptors, threads, children, mappings of a run's memory.
struct Belongings {
    size_t descriptors, threads, children, mappings;
    bool operator==(const Belongings &) const = default;
};
Belongings CountBelongings();
void PrintTo(const Belongings &belongings, std::ostream *out);

// All processes of the counting chip that came from this one, the root first.
std::vector<int> HostProcesses(int parent);
bool WaitUntil(const std::function<bool()> &condition, std::chrono::milliseconds limit = std::chrono::seconds(10));
