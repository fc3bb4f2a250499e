#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "DebugRun.h"
#include "platform/ChildProcess.h"
#include "platform/NativePath.h"

namespace {

// One that has ended may wait to be collected by whoever the system has made its parent.
bool IsAlive(int process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/stat");
    std::string number, name, state;
    return status >> number >> name >> state && state != "Z" && state != "X";
}

bool AllEnded(const std::vector<int> &processes) {
    for (const int process : processes)
        if (IsAlive(process)) return false;
    return true;
}

}  // namespace

TEST(End, TenRunsLeaveNothingBehindAndPrintNothing) {
    const CSilence silence;
    const CDebugger debugger;
    const Belongings before = CountBelongings();
    for (int i = 0; i < 10; ++i) {
        CDebugRun run(debugger);
        debugger.Evaluate("print");
        for (int step = 0; step < 3; ++step) run.Do("DbgStepInto");
        ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
        // Every other one ends while it runs.
        if (i % 2 == 0) {
            EXPECT_EQ(run.Do("DbgStop").reason, kDbgStopped);
        }
    }
    EXPECT_EQ(CountBelongings(), before);
}

TEST(End, MayComeAtAnyTime) {
    const CDebugger debugger;
    const Belongings before = CountBelongings();
    EXPECT_EQ(debugger.Command("DbgDLLCleanup"), kDbgOk) << "without a run";
    {
        CDebugRun run(debugger);
        EXPECT_EQ(debugger.Command("DbgDLLCleanup"), kDbgOk);
        EXPECT_EQ(debugger.Command("DbgDLLCleanup"), kDbgOk) << "again";
        EXPECT_TRUE(run.HasReturned());
        EXPECT_EQ(debugger.Evaluate("count").front(), '!');
    }
    {
        // From within a callback, while another thread is asking all the time.
        CDebugRun run(debugger);
        std::atomic<bool> going = true;
        std::thread asking([&] {
            while (going) debugger.Clk();
        });
        run.onStop = [&] { EXPECT_EQ(debugger.Command("DbgDLLCleanup"), kDbgOk); };
        EXPECT_EQ(debugger.Command("DbgStepInto"), kDbgOk);
        EXPECT_TRUE(run.HasReturned());
        going = false;
        asking.join();
    }
    {
        // While a call is being made that never returns.
        CDebugRun run(debugger);
        std::thread asking([&] { EXPECT_EQ(debugger.Evaluate("hang"), "!The simulator doesn't answer."); });
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        EXPECT_EQ(debugger.Command("DbgDLLCleanup"), kDbgOk);
        asking.join();
    }
    // Its thread is never started, or too late.
    void *proc = nullptr, *param = nullptr;
    ASSERT_EQ(debugger.Call<DbgDLLInitFn>("DbgDLLInit", &proc, &param, "COUNTER", nullptr, nullptr), kDbgOk);
    EXPECT_EQ(debugger.Command("DbgDLLCleanup"), kDbgOk);
    reinterpret_cast<void (*)(void *)>(proc)(param);
    EXPECT_EQ(CountBelongings(), before);
}

TEST(End, FailedBeginningsSayWhy) {
    const CDebugger debugger;
    const Belongings before = CountBelongings();
    void *proc = &proc, *param = nullptr;
    char words[512] = "";
    EXPECT_EQ(debugger.Call<DbgDLLInitFn>("DbgDLLInit", &proc, &param, "NONE", nullptr, nullptr), kDbgFailed);
    EXPECT_EQ(proc, nullptr);
    EXPECT_EQ(debugger.Call<DbgGetErrorTextFn>("DbgGetErrorText", words, 512), kDbgOk);
    EXPECT_STREQ(words, "No such chip: NONE");
    setenv("THORNWELL_PROGRAM_DIR", "/nowhere", 1);
    EXPECT_EQ(debugger.Call<DbgDLLInitFn>("DbgDLLInit", &proc, &param, "COUNTER", nullptr, nullptr), kDbgFailed);
    EXPECT_EQ(debugger.Call<DbgGetErrorTextFn>("DbgGetErrorText", words, 512), kDbgOk);
    EXPECT_NE(std::string(words).find("simhost.exe"), std::string::npos) << words;
    setenv("THORNWELL_PROGRAM_DIR", COUNTER_DIR, 1);
    ASSERT_EQ(debugger.Call<DbgDLLInitFn>("DbgDLLInit", &proc, &param, "COUNTER", nullptr, nullptr), kDbgOk);
    EXPECT_EQ(debugger.Call<DbgLoadFileFn>("DbgLoadFile", "\\a\\bad.cof"), kDbgFailed);
    EXPECT_EQ(debugger.Call<DbgGetErrorTextFn>("DbgGetErrorText", words, 512), kDbgOk);
    EXPECT_STREQ(words, "No image: \\a\\bad.cof");
    EXPECT_EQ(debugger.Command("DbgReset"), kDbgFailed);
    EXPECT_EQ(debugger.Command("DbgDLLCleanup"), kDbgOk);
    EXPECT_EQ(CountBelongings(), before);
}

TEST(End, ALostProcessIsToldAndLeavesNothing) {
    const CDebugger debugger;
    const Belongings before = CountBelongings();
    enum Way { killRoot, killLive, crash, leave };
    for (const Way way : {killRoot, killLive, crash, leave}) {
        SCOPED_TRACE(way);
        CDebugRun run(debugger);
        for (int i = 0; i < 5; ++i) run.Do("DbgStepInto");
        ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
        ASSERT_TRUE(WaitUntil([&] { return debugger.Clk() > 500; })) << "it has said something";
        const std::vector<int> processes = HostProcesses(getpid());
        ASSERT_EQ(processes.size(), 8u);
        if (way == killRoot) kill(processes[0], SIGKILL);
        if (way == killLive) kill(processes[1], SIGKILL);
        if (way == crash || way == leave) {
            EXPECT_EQ(debugger.Evaluate(way == crash ? "crash" : "exit").front(), '!');
        }
        EXPECT_EQ(run.AwaitStop().reason, kDbgStopped) << "whoever waits for a stop gets one";
        EXPECT_TRUE(run.HasReturned());
        EXPECT_EQ(run.Texts().size(), 2u);
        EXPECT_EQ(debugger.Clk(), -1);
        EXPECT_EQ(debugger.Command("DbgRun"), kDbgFailed);
        EXPECT_TRUE(WaitUntil([&] { return debugger.Command("DbgDLLCleanup") == kDbgOk && AllEnded(processes); }));
    }
    EXPECT_EQ(CountBelongings(), before);
}

TEST(End, TheUsersInterruptIsNotForTheSimulator) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    for (const int process : HostProcesses(getpid()))
        for (const int number : {SIGINT, SIGPIPE, SIGHUP}) kill(process, number);
    EXPECT_EQ(run.Do("DbgStepInto").line, 1);
}

TEST(End, TheLogHoldsWhatTheSimulatorSays) {
    const std::string log = testing::TempDir() + "simhost." + std::to_string(getpid()) + ".log";
    setenv("THORNWELL_SIMHOST_LOG", log.c_str(), 1);
    {
        const CDebugger debugger;
        CDebugRun run(debugger);
        unsetenv("THORNWELL_SIMHOST_LOG");
        debugger.Evaluate("print");
    }
    std::string text;
    std::getline(std::ifstream(log), text);
    EXPECT_EQ(text, "to the log");
    unlink(log.c_str());
}

// Not a test by itself: the debugger's process of the one below.
TEST(Owner, DISABLED_RunsUntilItIsKilled) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    for (int i = 0; i < 5; ++i) run.Do("DbgStepInto");
    ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
    std::cout << "goes" << std::endl;
    sleep(60);
}

TEST(End, ComesWithTheDebuggersProcess) {
    CChildProcess owner;
    ASSERT_TRUE(owner.Start(
        {FromNativePath("/proc/self/exe"), "--gtest_also_run_disabled_tests", "--gtest_filter=Owner.*"}, ""));
    std::string output;
    ASSERT_TRUE(WaitUntil([&] {
        char buffer[256];
        output.append(buffer, owner.Read(CChildProcess::Pipe::output, buffer, sizeof buffer));
        return output.find("goes") != output.npos;
    })) << output;
    const std::vector<int> processes = HostProcesses(owner.Pid());
    EXPECT_EQ(processes.size(), 8u);
    owner.Kill();
    owner.WaitForExit();
    EXPECT_TRUE(WaitUntil([&] { return AllEnded(processes); }));
}
