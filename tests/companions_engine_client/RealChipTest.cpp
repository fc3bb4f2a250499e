#include <ostream>

#include "DebugRun.h"
#include "companions_engine_image/LinkedProgram.h"

namespace {

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

TEST(RealChip, FailedBeginningsSayWhy) {
    const CDebugger debugger(PROGRAM_DIR);
    void *proc = nullptr, *param = nullptr;
    char words[512] = "";
    EXPECT_EQ(debugger.Call<DbgDLLInitFn>("DbgDLLInit", &proc, &param, "PIC99X1", nullptr, nullptr), kDbgFailed);
    EXPECT_EQ(debugger.Call<DbgGetErrorTextFn>("DbgGetErrorText", words, 512), kDbgOk);
    EXPECT_NE(std::string(words).find("99X1"), std::string::npos) << words;
    ASSERT_EQ(debugger.Call<DbgDLLInitFn>("DbgDLLInit", &proc, &param, "PIC16F628A", nullptr, nullptr), kDbgOk);
    EXPECT_EQ(debugger.Call<DbgLoadFileFn>("DbgLoadFile", "\\nowhere\\x.cof"), kDbgFailed);
    EXPECT_EQ(debugger.Call<DbgGetErrorTextFn>("DbgGetErrorText", words, 512), kDbgOk);
    EXPECT_STRNE(words, "");
    EXPECT_EQ(debugger.Command("DbgDLLCleanup"), kDbgOk);
}
