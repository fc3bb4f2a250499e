#include <atomic>

#include "DebugRun.h"

namespace {

struct Heard {
    const CDebugger *debugger;
    std::atomic<int64_t> clocks = 0, instructions = 0, passed = 0, changes = 0;
    std::atomic<int> lastClk = 0, faults = 0, stopAt = 0;
};

void OnClock(int passed, int clk, void *user) {
    auto *const heard = static_cast<Heard *>(user);
    ++heard->clocks;
    heard->passed += passed;
    heard->lastClk = clk;
}

void OnInst(int address, int clk, void *user) {
    auto *const heard = static_cast<Heard *>(user);
    ++heard->instructions;
    if (address != (clk - 1) % 1000) ++heard->faults;
    if (clk == heard->stopAt) {
        // From within a callback the target stands at this instruction.
        if (heard->debugger->Clk() != clk || heard->debugger->Command("DbgStop") != kDbgOk) ++heard->faults;
    }
}

void OnChange(int, int, void *user) {
    ++static_cast<Heard *>(user)->changes;
}
void OnPin(int, double volts, void *user) {
    if (volts == 2.5) ++static_cast<Heard *>(user)->changes;
}

}  // namespace

TEST(Calls, CarryValuesBothWays) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    int value = 0;
    uint16_t address = 0;
    EXPECT_EQ(debugger.Call<DbgSetRegFn>("DbgSetReg", 5, 99), kDbgOk);
    EXPECT_EQ(debugger.Call<DbgGetRegFn>("DbgGetReg", 5, &value), kDbgOk);
    EXPECT_EQ(value, 99);
    EXPECT_EQ(debugger.Call<DbgGetRegFn>("DbgGetReg", 300, &value), kDbgFailed);
    EXPECT_EQ(value, 99);
    EXPECT_EQ(debugger.Call<DbgRegNameToAddrFn>("DbgRegNameToAddr", "TOP", &address), kDbgOk);
    EXPECT_EQ(address, 0xFFF0);
    char name[256];
    EXPECT_EQ(debugger.Call<DbgRegAddrToNameFn>("DbgRegAddrToName", 1, name), kDbgOk);
    EXPECT_EQ(std::string(name), std::string(255, 'N'));
    uint8_t map[5] = {9, 9, 9, 9, 9};
    EXPECT_EQ(debugger.Call<DbgValidateRegisterMapFn>("DbgValidateRegisterMap", map, 5), kDbgOk);
    EXPECT_EQ(std::vector<uint8_t>(map, map + 5), (std::vector<uint8_t>{1, 0, 1, 0, 0}));
    uint8_t bytes[] = {1, 2}, read[] = {0, 0};
    EXPECT_EQ(debugger.Call<DbgEepromValFn>("DbgSetEepromVal", 62, 2, bytes), kDbgOk);
    EXPECT_EQ(debugger.Call<DbgEepromValFn>("DbgGetEepromVal", 62, 2, read), kDbgOk);
    EXPECT_EQ(read[1], 2);
    EXPECT_EQ(debugger.Call<DbgEepromValFn>("DbgGetEepromVal", 63, 2, read), kDbgFailed);
    EXPECT_EQ(debugger.Evaluate("count", kDbgHex), "0h");
    EXPECT_EQ(debugger.Evaluate("nothing"), "!No such name: nothing");
    int line = 0;
    EXPECT_EQ(debugger.Call<DbgPosToAddrFn>("DbgPosToAddr", "\\a\\x.asm", 1007, &value, &line), kDbgOk);
    EXPECT_EQ(value, 7);
    EXPECT_EQ(line, 1008);
    EXPECT_EQ(debugger.Evaluate("file"), "\\a\\x.asm");
    EXPECT_EQ(debugger.Call<DbgPosToAddrFn>("DbgPosToAddr", "x.asm", 1, &value, &line), kDbgOk);
    EXPECT_TRUE(debugger.Evaluate("file").starts_with("\\")) << "the process has another current directory";
    int connection = 0;
    double volts = 0;
    EXPECT_EQ(debugger.Call<DbgMakeConnectionToPinFn>("DbgMakeConnectionToPin", "RB0", &connection), kDbgOk);
    EXPECT_EQ(debugger.Call<DbgSetConnectionVFn>("DbgSetConnectionV", connection, 3.3), kDbgOk);
    EXPECT_EQ(debugger.Call<DbgGetPinVFn>("DbgGetPinV", connection, &volts), kDbgOk);
    EXPECT_EQ(volts, 3.3);
    EXPECT_EQ(debugger.Call<DbgGetRegFn>("DbgGetReg", 5, nullptr), kDbgFailed);
    EXPECT_EQ(debugger.Call<DbgSymbolToAddrFn>("DbgSymbolToAddr", nullptr, &value), kDbgFailed);
}

TEST(Calls, TellOfABufferThatIsTooSmall) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    std::vector<char> buffer(300000, '#');
    for (const int size : {0, 1, 1000}) {
        EXPECT_EQ(debugger.Call<DbgEvaluateFn>("DbgEvaluate", "long", buffer.data(), size, 0, nullptr), kDbgTooSmall)
            << size;
        EXPECT_EQ(buffer[0], '#') << size;
    }
    EXPECT_EQ(debugger.Call<DbgEvaluateFn>("DbgEvaluate", "long", buffer.data(), 1001, 0, nullptr), kDbgOk);
    EXPECT_EQ(std::string(buffer.data()).size(), 1000u);
    EXPECT_EQ(debugger.Call<DbgGetListFn>("DbgGetProfileList", buffer.data(), 200000), kDbgTooSmall);
    EXPECT_EQ(debugger.Call<DbgGetListFn>("DbgGetProfileList", buffer.data(), 200001), kDbgOk);
    // More than a message holds is no call at all.
    EXPECT_EQ(debugger.Call<DbgSetFn>("DbgSet", std::string(100000, 'n').c_str(), 1), kDbgFailed);
    EXPECT_EQ(debugger.Evaluate("count"), "0");
}

TEST(Calls, AreRefusedAtTheWrongTime) {
    const CDebugger debugger;
    const char *standing[] = {"DbgReset",    "DbgPowerOnReset",  "DbgRun",
                              "DbgStepInto", "DbgStepOverInstr", "DbgStepBack"};
    for (const char *command : standing) EXPECT_EQ(debugger.Command(command), kDbgFailed) << command;
    CDebugRun run(debugger, false);
    EXPECT_EQ(debugger.Command("DbgRun"), kDbgFailed) << "before the first reset";
    void *proc, *param;
    EXPECT_EQ(debugger.Call<DbgDLLInitFn>("DbgDLLInit", &proc, &param, "COUNTER", nullptr, nullptr), kDbgFailed)
        << "one run";
    ASSERT_EQ(run.Do("DbgReset").reason, kDbgAfterReset);
    EXPECT_EQ(debugger.Command("DbgStop"), kDbgFailed);
    EXPECT_EQ(debugger.Command("DbgStepBack"), kDbgFailed) << "at the beginning";
    EXPECT_EQ(debugger.Command("DbgStepOut"), kDbgFailed) << "the session refuses it";
    EXPECT_EQ(debugger.Command("DbgStepBack"), kDbgFailed) << "what was refused is no state to go back to";
    ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
    for (const char *command : standing) EXPECT_EQ(debugger.Command(command), kDbgFailed) << command;
    EXPECT_EQ(run.Do("DbgStop").reason, kDbgStopped);
}

TEST(Calls, AreAnsweredWhileTheTargetRuns) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i)
        threads.emplace_back([&, i] {
            for (int n = 0; n < 200; ++n) {
                int value = 0;
                if (debugger.Call<DbgSetRegFn>("DbgSetReg", i, n) != kDbgOk ||
                    debugger.Call<DbgGetRegFn>("DbgGetReg", i, &value) != kDbgOk || value != n)
                    ++failures;
            }
        });
    for (auto &thread : threads) thread.join();
    EXPECT_EQ(failures, 0);
    const int64_t before = debugger.Clk();
    EXPECT_TRUE(WaitUntil([&] { return debugger.Clk() > before; }));
    int id = 0;
    const int target = static_cast<int>(debugger.Clk()) + 200'000'000;
    ASSERT_EQ(debugger.Call<DbgSetBreakpointByLineFn>("DbgSetBreakpointByLine", "counter.asm", target, &id), kDbgOk);
    ASSERT_EQ(run.Do("DbgStop").reason, kDbgStopped);
    EXPECT_EQ(run.Texts(), std::vector<std::string>{"half a thousand"});
}

TEST(Calls, HoldTheTargetByNestedLocks) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    EXPECT_EQ(debugger.Command("DbgSimUnlock"), kDbgFailed);
    ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
    ASSERT_EQ(debugger.Command("DbgSimLock"), kDbgOk);
    ASSERT_EQ(debugger.Command("DbgSimLock"), kDbgOk);
    ASSERT_EQ(debugger.Command("DbgSimUnlock"), kDbgOk);
    const int64_t held = debugger.Clk();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    EXPECT_EQ(debugger.Clk(), held);
    ASSERT_EQ(debugger.Command("DbgSimUnlock"), kDbgOk);
    EXPECT_TRUE(WaitUntil([&] { return debugger.Clk() > held; }));
    EXPECT_EQ(run.Do("DbgStop").reason, kDbgStopped);
}

TEST(Callbacks, ComeForEachInstructionWithTheProfileOn) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    Heard heard{&debugger};
    heard.stopAt = 20000;
    ASSERT_EQ(debugger.Call<DbgSetClkCallBackFn>("DbgSetClkCallBack", &OnClock, &heard), kDbgOk);
    ASSERT_EQ(debugger.Call<DbgSetInstCallBackFn>("DbgSetInstCallBack", &OnInst, &heard), kDbgOk);
    ASSERT_EQ(debugger.Call<DbgPerformanceProfileFn>("DbgPerformanceProfile", 1), kDbgOk);
    const auto begin = std::chrono::steady_clock::now();
    const Stop stop = run.Do("DbgRun");
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(stop.line, heard.stopAt);
    EXPECT_EQ(heard.instructions, heard.stopAt);
    EXPECT_EQ(heard.passed, heard.stopAt);
    EXPECT_EQ(heard.faults, 0);
    RecordProperty("RoundTripsPerSecond", static_cast<int>(heard.stopAt / time.count()));

    // With the profile off some times a second, and before the stop.
    ASSERT_EQ(debugger.Call<DbgPerformanceProfileFn>("DbgPerformanceProfile", 0), kDbgOk);
    const int64_t clocks = heard.clocks;
    ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const Stop end = run.Do("DbgStop");
    EXPECT_EQ(heard.lastClk, end.line);
    EXPECT_GE(heard.clocks - clocks, 3);
    EXPECT_LE(heard.clocks - clocks, 20);
    EXPECT_EQ(heard.instructions, heard.stopAt);
    EXPECT_EQ(heard.passed, end.line);

    EXPECT_EQ(debugger.Call<DbgRemoveClkCallBackFn>("DbgRemoveClkCallBack", &OnClock, nullptr), kDbgFailed)
        << "other user";
    EXPECT_EQ(debugger.Call<DbgRemoveClkCallBackFn>("DbgRemoveClkCallBack", &OnClock, &heard), kDbgOk);
    EXPECT_EQ(debugger.Call<DbgRemoveInstCallBackFn>("DbgRemoveInstCallBack", &OnInst, &heard), kDbgOk);
    const int64_t last = heard.clocks;
    EXPECT_EQ(run.Do("DbgStepInto").reason, kDbgStopped);
    EXPECT_EQ(heard.clocks, last);
}

TEST(Callbacks, TellChangesToEachListener) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    Heard first{&debugger}, second{&debugger}, pin{&debugger};
    ASSERT_EQ(debugger.Call<DbgSetConnectionVFn>("DbgSetConnectionV", 1, 5.0), kDbgOk);
    ASSERT_EQ(debugger.Call<DbgRegChangeCallBackFn>("DbgAddRegChangeCallBack", 3, &OnChange, &first), kDbgOk);
    ASSERT_EQ(debugger.Call<DbgRegChangeCallBackFn>("DbgAddRegChangeCallBack", 3, &OnChange, &second), kDbgOk);
    ASSERT_EQ(debugger.Call<DbgPinVChangeCallBackFn>("DbgAddPinVChangeCallBack", 1, &OnPin, &pin), kDbgOk);
    EXPECT_EQ(debugger.Call<DbgRegChangeCallBackFn>("DbgRemoveRegChangeCallBack", 4, &OnChange, &first), kDbgFailed);
    int id = 0;
    debugger.Call<DbgSetBreakpointByLineFn>("DbgSetBreakpointByLine", "c", 10500, &id);
    ASSERT_EQ(run.Do("DbgRun").line, 10500);
    EXPECT_EQ(first.changes, 10);
    EXPECT_EQ(second.changes, 10);
    EXPECT_EQ(pin.changes, 10);
    ASSERT_EQ(debugger.Call<DbgRegChangeCallBackFn>("DbgRemoveRegChangeCallBack", 3, &OnChange, &first), kDbgOk);
    debugger.Call<DbgSetBreakpointByLineFn>("DbgSetBreakpointByLine", "c", 20500, &id);
    ASSERT_EQ(run.Do("DbgRun").line, 20500);
    EXPECT_EQ(first.changes, 10);
    EXPECT_EQ(second.changes, 20);
}
