#include <fstream>
#include <ostream>
#include <random>

#include "DebugRun.h"
#include "companions_engine_image/LinkedProgram.h"

namespace {

constexpr int kDamages = 12;  // of each program

const ProgramSources kSmallEnhanced = {"16f1823", R"(
#include <p16f1823.inc>
        udata_shr
count   res     1
start   code    0
        goto    main
        code
main    clrf    count
again   incf    count, f
        movf    count, w
        goto    again
        end
)"};

}  // namespace

// The simulator's own program, on chips of each family in turn.
TEST(RealChip, TenRunsInOneProcessStepAndGoBack) {
    constexpr int64_t kFar = 10'000'000;  // cycles
    const ProgramSources *families[] = {&kMidRange, &kSmallEnhanced, &kPic18};
    const CSilence silence;
    const CDebugger debugger(PROGRAM_DIR);
    const CLinkedProgram programs[] = {CLinkedProgram(kMidRange), CLinkedProgram(kSmallEnhanced),
                                       CLinkedProgram(kPic18)};
    const Belongings before = CountBelongings();
    for (int i = 0; i < 10; ++i) {
        SCOPED_TRACE(families[i % 3]->chip);
        CDebugRun run(debugger, true, families[i % 3]->chip, programs[i % 3].ImageName());
        ASSERT_FALSE(testing::Test::HasFailure());
        std::vector<std::pair<int64_t, std::string>> states;  // clock and program counter
        for (int step = 0; step < 8; ++step) {
            states.emplace_back(debugger.Clk(), debugger.Evaluate("$pc"));
            ASSERT_EQ(run.Do("DbgStepIntoInstr").reason, kDbgStopped);
            ASSERT_GT(debugger.Clk(), states.back().first);
        }
        if (i < 3) {
            const std::pair here(debugger.Clk(), debugger.Evaluate("$pc"));
            ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
            EXPECT_TRUE(WaitUntil([&] { return debugger.Clk() > kFar; }));
            ASSERT_EQ(run.Do("DbgStop").reason, kDbgStopped);
            const auto begin = std::chrono::steady_clock::now();
            ASSERT_EQ(run.Do("DbgStepBack").reason, kDbgAfterStepBack);
            EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
            EXPECT_EQ(std::pair(debugger.Clk(), debugger.Evaluate("$pc")), here);
        }
        for (; !states.empty(); states.pop_back()) {
            ASSERT_EQ(run.Do("DbgStepBack").reason, kDbgAfterStepBack);
            ASSERT_EQ(std::pair(debugger.Clk(), debugger.Evaluate("$pc")), states.back());
        }
    }
    EXPECT_EQ(CountBelongings(), before);
}

TEST(RealChip, TellsOfAProgramThatResetsForEver) {
    const CDebugger debugger(PROGRAM_DIR);
    const CLinkedProgram program({"18f4520", "#include <p18f4520.inc>\nx code 0\n nop\n reset\n end\n"});
    CDebugRun run(debugger, true, "18f4520", program.ImageName());
    ASSERT_EQ(debugger.Command("DbgRun"), kDbgOk);
    EXPECT_TRUE(WaitUntil([&] { return debugger.Clk() > 5000; }));
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(run.Do("DbgStop").reason, kDbgStopped);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(500));
    ASSERT_EQ(run.Texts().size(), 1u);
    EXPECT_NE(run.Texts()[0].find("0x0002"), std::string::npos) << run.Texts()[0];
}

// Whatever a linker never left: it isn't loaded, and words say why, or it runs as any program does.
TEST(RealChip, RunsDamagedPrograms) {
    const CDebugger debugger(PROGRAM_DIR);
    std::mt19937 random(7);
    int ran = 0;
    for (const ProgramSources *sources : {&kMidRange, &kSmallEnhanced, &kPic18}) {
        const CLinkedProgram program(*sources);
        const std::string whole = program.ImageBytes();
        for (int round = 0; round < kDamages; ++round) {
            SCOPED_TRACE(std::string(sources->chip) + ' ' + std::to_string(round));
            std::string bytes = whole;
            for (int i = 0; i < 1 + round % 20; ++i) bytes[random() % bytes.size()] = static_cast<char>(random());
            std::ofstream(program.Native("damaged.cof"), std::ios::binary) << bytes;
            CDebugRun run(debugger, false, sources->chip, "");
            const std::string image = program.Windows("damaged.cof");
            char words[256] = "";
            if (debugger.Call<DbgLoadFileFn>("DbgLoadFile", image.c_str()) != kDbgOk) {
                EXPECT_EQ(debugger.Call<DbgGetErrorTextFn>("DbgGetErrorText", words, int{sizeof words}), kDbgOk);
                EXPECT_STRNE(words, "");
                EXPECT_EQ(debugger.Command("DbgReset"), kDbgFailed);
                continue;
            }
            ++ran;
            EXPECT_EQ(run.Do("DbgReset").reason, kDbgAfterReset);
            EXPECT_EQ(debugger.Command("DbgRun"), kDbgOk);
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
            debugger.Evaluate("_registers");
            debugger.Command("DbgStop");  // refused when the program has come to an end of its own
            int reason = 0;
            do reason = run.AwaitStop().reason;
            while (reason == kDbgNoteSleep || reason == kDbgNoteStack);
            EXPECT_TRUE(reason == kDbgStopped || reason == kDbgBadMemory) << reason;
            EXPECT_EQ(run.Do("DbgStepBack").reason, kDbgAfterStepBack);
        }
    }
    EXPECT_GE(ran, kDamages);
}

TEST(RealChip, FailuresSayWhy) {
    const CDebugger debugger(PROGRAM_DIR);
    const CLinkedProgram program(kSmallEnhanced);
    const std::string source = program.Windows("main.asm");
    void *proc = nullptr, *param = nullptr;
    int id = -1;
    const auto begins = [&](const char *chip) {
        return debugger.Call<DbgDLLInitFn>("DbgDLLInit", &proc, &param, chip, nullptr, nullptr);
    };
    const auto loads = [&](const std::string &image) {
        return debugger.Call<DbgLoadFileFn>("DbgLoadFile", image.c_str());
    };
    const auto breaks = [&](const std::string &file, int line) {
        return debugger.Call<DbgSetBreakpointByLineFn>("DbgSetBreakpointByLine", file.c_str(), line, &id);
    };
    const auto holds = [&](const char *condition) {
        return debugger.Call<DbgSetBreakpointConditionsFn>("DbgSetBreakpointConditions", id, condition,
                                                           int{kDbgWhenTrue}, 0, int{kDbgNoHit});
    };
    const auto watches = [&](const char *name) {
        int watchpoint = -1;
        return debugger.Call<DbgSetWatchpointFn>("DbgSetWatchpoint", name, &watchpoint);
    };
    const auto sets = [&](const char *name, int value) { return debugger.Call<DbgSetFn>("DbgSet", name, value); };
    const struct {
        std::function<int()> call;
        const char *words;  // some of them; null: it succeeds, and there are none
    } cases[] = {
        {[&] { return watches("count"); }, "no debug run"},
        {[&] { return begins("PIC99X1"); }, "99X1"},
        {[&] { return begins(kSmallEnhanced.chip); }, nullptr},
        {[&] { return breaks(source, 9); }, "No program"},
        {[&] { return loads("\\nowhere\\x.cof"); }, "nowhere"},
        {[&] { return loads(program.ImageName()); }, nullptr},
        {[&] { return breaks(source, 1); }, "Line 1 of"},
        {[&] { return breaks("\\else\\x.asm", 9); }, "/else/x.asm"},
        {[&] { return breaks(source, 9); }, nullptr},
        {[&] { return holds("count == "); }, "missing"},
        {[&] { return holds("counts == 1"); }, "counts"},
        {[&] { return holds("count == 1"); }, nullptr},
        {[&] { return watches("main"); }, "program memory"},
        {[&] { return watches("$NONE"); }, "$NONE"},
        {[&] { return watches("$99999"); }, "$99999"},
        {[&] { return watches("count"); }, nullptr},
        {[&] { return sets("counts", 1); }, "counts"},
        {[&] { return sets("$pc", 99999); }, "99999"},
        {[&] { return sets("count", 1); }, nullptr},
    };
    for (const auto &c : cases) {
        char words[512] = "#";
        const int index = static_cast<int>(&c - cases);
        EXPECT_EQ(c.call(), c.words ? kDbgFailed : kDbgOk) << index;
        EXPECT_EQ(debugger.Call<DbgGetErrorTextFn>("DbgGetErrorText", words, int{sizeof words}), kDbgOk);
        EXPECT_TRUE(c.words ? std::string(words).find(c.words) != std::string::npos : *words == 0) << index << words;
    }
    EXPECT_EQ(debugger.Command("DbgDLLCleanup"), kDbgOk);
}
