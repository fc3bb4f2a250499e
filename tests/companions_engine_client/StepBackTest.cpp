#include <unistd.h>

#include <fstream>

#include "DebugRun.h"

namespace {

// What the processes have for themselves, in kilobytes.
long OwnMemory(const std::vector<int> &processes) {
    long sum = 0;
    for (const int process : processes) {
        std::ifstream file("/proc/" + std::to_string(process) + "/smaps_rollup");
        for (std::string word; file >> word;)
            if (long size; (word == "Pss:") && file >> size) sum += size;
    }
    return sum;
}

}  // namespace

TEST(StepBack, GoesBackStopByStopAHundredTimes) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    constexpr int kSteps = 130;
    for (int i = 1; i <= kSteps; ++i) {
        ASSERT_EQ(debugger.Call<DbgSetRegFn>("DbgSetReg", 1, i), kDbgOk);
        ASSERT_EQ(run.Do("DbgStepInto").line, i);
    }
    // The root, the live one and those that are kept; the dropped ones have ended.
    EXPECT_TRUE(WaitUntil([] { return HostProcesses(getpid()).size() == 102; })) << HostProcesses(getpid()).size();
    RecordProperty("KilobytesOfAllProcesses", static_cast<int>(OwnMemory(HostProcesses(getpid()))));
    for (int i = kSteps - 1; i >= kSteps - 100; --i) {
        const Stop stop = run.Do("DbgStepBack");
        ASSERT_EQ(stop.reason, kDbgAfterStepBack);
        ASSERT_EQ(stop.line, i);
        int value = 0;
        ASSERT_EQ(debugger.Call<DbgGetRegFn>("DbgGetReg", 1, &value), kDbgOk);
        ASSERT_EQ(value, i + 1) << "as it stood when the step was taken";
    }
    for (const auto &[command, why] : {std::pair("DbgStepBack", "There is no earlier stop."),
                                       std::pair("DbgStepOut", "Nothing was called.")}) {
        char words[256] = "";
        EXPECT_EQ(debugger.Command(command), kDbgFailed);
        EXPECT_EQ(debugger.Call<DbgGetErrorTextFn>("DbgGetErrorText", words, int{sizeof words}), kDbgOk);
        EXPECT_STREQ(words, why);
    }
    EXPECT_TRUE(WaitUntil([] { return HostProcesses(getpid()).size() == 2; }));
    EXPECT_EQ(run.Do("DbgStepInto").line, kSteps - 99);
}

TEST(StepBack, GoesBackBehindALongRunAndAReset) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    int id = 0, later = 0;
    debugger.Call<DbgSetBreakpointByLineFn>("DbgSetBreakpointByLine", "c", 100, &id);
    ASSERT_EQ(run.Do("DbgRun").line, 100);
    debugger.Call<DbgSetBreakpointByLineFn>("DbgSetBreakpointByLine", "c", 10'000'000, &id);
    ASSERT_EQ(run.Do("DbgRun").line, 10'000'000);
    // What the user sets afterwards stays, and so does what he takes away.
    ASSERT_EQ(debugger.Call<DbgDeleteBreakpointFn>("DbgDeleteBreakpoint", id), kDbgOk);
    debugger.Call<DbgSetBreakpointByLineFn>("DbgSetBreakpointByLine", "c", 10'000'100, &later);
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(run.Do("DbgStepBack").line, 100);
    const auto time = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(time, std::chrono::seconds(1));
    RecordProperty("StepBackMicroseconds", static_cast<int>(time / std::chrono::microseconds(1)));
    EXPECT_EQ(debugger.Clk(), 100);
    EXPECT_EQ(run.Do("DbgRun").line, 10'000'100);

    ASSERT_EQ(run.Do("DbgReset").line, 0);
    ASSERT_EQ(run.Do("DbgStepBack").line, 10'000'100);
    ASSERT_EQ(run.Do("DbgStepBack").line, 100);
    ASSERT_EQ(run.Do("DbgStepBack").line, 0);
    EXPECT_EQ(debugger.Command("DbgStepBack"), kDbgFailed) << "the first reset has nothing before it";
}

TEST(StepBack, KeepsTheLock) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    ASSERT_EQ(run.Do("DbgStepInto").line, 1);
    ASSERT_EQ(debugger.Command("DbgSimLock"), kDbgOk);
    ASSERT_EQ(run.Do("DbgStepBack").line, 0);
    ASSERT_EQ(debugger.Command("DbgStepInto"), kDbgOk);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(debugger.Clk(), 0);
    ASSERT_EQ(debugger.Command("DbgSimUnlock"), kDbgOk);
    EXPECT_EQ(run.AwaitStop().line, 1);
}
