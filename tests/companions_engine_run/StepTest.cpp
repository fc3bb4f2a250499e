#include <gtest/gtest.h>

#include "Toy.h"
#include "debugger/EngineApi.h"

namespace {

// 1  main: call once        3  interrupt
// 2  call twice, itself     10 function; 20 function that calls itself; 0 functions without source
std::vector<ToyInstruction> Program() {
    return {
        {1, Op::jump, 8},                                                                         // 0
        {0},                                                                                      // 1
        {0},                                                                                      // 2
        {0},                                                                                      // 3
        {3, Op::add, 5, 1},                                                                       // 4: the interrupt
        {4, Op::backFromInterrupt},                                                               // 5
        {0},                                                                                      // 6
        {0},                                                                                      // 7
        {10, Op::call, 20},                                                                       // 8: main
        {11, Op::nop}, {11, Op::call, 20}, {11, Op::nop},                                         // 9
        {12, Op::store, 2, 3},                                                                    // 12
        {13, Op::call, 24},                                                                       // 13: recursion
        {14, Op::call, 30},                                                                       // 14: without source
        {15, Op::store, 3, 5},                                                                    // 15
        {16, Op::add, 3, 255}, {16, Op::skipIfZero, 3}, {16, Op::jump, 16},                       // 16: loops in a line
        {17, Op::jump, 19},                                                                       // 19
        {20, Op::nop}, {21, Op::back},                                                            // 20
        {0}, {0},                                                                                 // 22
        {22, Op::add, 2, 255}, {23, Op::skipIfZero, 2}, {24, Op::call, 24}, {25, Op::back},       // 24
        {0}, {0},                                                                                 // 28
        {0, Op::nop}, {0, Op::back},                                                              // 30
    };
}

using enum RunKind;

TEST(Steps, EndWhereAUserExpects) {
    struct {
        const char *what;
        uint32_t from;
        std::vector<RunKind> commands;
        int line;
        uint32_t address;
    } cases[] = {
        {"over a call", 8, {stepOver}, 11, 9},
        {"into a call", 8, {stepInto}, 20, 20},
        {"into and out", 8, {stepInto, stepOut}, 11, 9},
        {"out of the last line", 8, {stepInto, stepOver, stepOver}, 11, 9},
        {"over a line with a call in its middle", 9, {stepOver}, 12, 12},
        {"into a line with a call in its middle", 9, {stepInto}, 20, 20},
        {"out into the middle of a line", 9, {stepInto, stepOut}, 11, 11},
        {"on from the middle", 9, {stepInto, stepOut, stepOver}, 12, 12},
        {"over recursion", 12, {stepOver, stepOver}, 14, 14},
        {"over within recursion", 12, {stepOver, stepInto, stepOver, stepOver, stepOver}, 25, 27},
        {"out of recursion, one level", 12, {stepOver, stepInto, stepOver, stepOver, stepInto, stepOut}, 25, 27},
        {"into a function without source", 14, {stepInto}, 15, 15},
        {"over a line that loops", 16, {stepOver}, 17, 19},
        {"a jump to itself", 19, {stepOver}, 17, 19},
        {"by instruction", 9, {stepOverInstr}, 11, 10},
        {"over a call by instruction", 9, {stepOverInstr, stepOverInstr}, 11, 11},
        {"into a call by instruction", 9, {stepIntoInstr, stepIntoInstr}, 20, 20},
        {"into one without source by instruction", 14, {stepIntoInstr}, 0, 30},
        {"on without source", 14, {stepIntoInstr, stepOver}, 0, 31},
    };
    for (bool told : {false, true}) {
        for (const auto &c : cases) {
            ToyRun run(Program());
            run.control.TellInstructions(told);
            run.chip.SetProgramCounter(c.from);
            for (RunKind command : c.commands) EXPECT_EQ(run.Do(command), kDbgStopped) << c.what;
            EXPECT_EQ(run.chip.ProgramCounter(), c.address) << c.what;
            EXPECT_EQ(run.Line(), c.line) << c.what;
        }
    }
}

// Wherever an interrupt comes, the same steps show the same places.
TEST(Steps, DoNotShowInterrupts) {
    for (uint64_t cycle = 1; cycle < 40; cycle++) {
        ToyRun run(Program());
        run.chip.interrupts = {{cycle, true}, {cycle + 3, true}, {cycle + 4, true}};
        run.chip.SetProgramCounter(8);
        std::vector<int> lines;
        for (int i = 0; i < 8; i++) {
            EXPECT_EQ(run.Do(stepOver), kDbgStopped);
            lines.push_back(run.Line());
        }
        EXPECT_EQ(lines, (std::vector<int>{11, 12, 13, 14, 15, 16, 17, 17})) << cycle;
        ToyRun into(Program());
        into.chip.interrupts = {{cycle, true}};
        into.chip.SetProgramCounter(8);
        lines.clear();
        for (int i = 0; i < 5; i++) {
            EXPECT_EQ(into.Do(stepInto), kDbgStopped);
            lines.push_back(into.Line());
        }
        EXPECT_EQ(lines, (std::vector<int>{20, 21, 11, 20, 21})) << cycle;
    }
}

TEST(Steps, ShowABreakpointInWhatTheyPassOver) {
    ToyRun run(Program());
    EXPECT_EQ(run.Break(1, 21), 1);
    EXPECT_EQ(run.Break(2, 3), 2);
    run.chip.SetProgramCounter(8);
    EXPECT_EQ(run.Do(stepOver), kDbgStopped);
    EXPECT_EQ(run.Line(), 21);
    run.chip.interrupts[run.chip.Cycles() + 1] = true;
    EXPECT_EQ(run.Do(stepOver), kDbgStopped);
    EXPECT_EQ(run.Line(), 3);
}

TEST(Steps, SurviveAFunctionThatThrowsItsReturnAway) {
    for (bool told : {false, true}) {
        ToyRun run({{1, Op::call, 2},
                    {2, Op::jump, 1},
                    {3, Op::call, 5},
                    {4, Op::nop},
                    {5, Op::back},
                    {6, Op::dropReturn},
                    {7, Op::back}});
        run.control.TellInstructions(told);
        EXPECT_EQ(run.Do(stepInto), kDbgStopped);
        EXPECT_EQ(run.Line(), 3);
        EXPECT_EQ(run.Do(stepOver), kDbgStopped);
        EXPECT_EQ(run.Line(), 2);
        EXPECT_EQ(run.Do(stepOut), -1) << "there is nothing to step out of";
    }
}

TEST(Steps, EndWithAChipThatSleepsForEver) {
    ToyRun run({{1, Op::sleep}, {2, Op::nop}, {3, Op::jump, 2}});
    EXPECT_EQ(run.Do(stepOver), kDbgStopped);
    EXPECT_EQ(run.events.told, std::vector<int>{kDbgNoteSleep});
    ToyRun waking({{1, Op::sleep}, {2, Op::nop}, {3, Op::jump, 2}});
    waking.chip.wakesAt = 1000;
    EXPECT_EQ(waking.Do(stepOver), kDbgStopped);
    EXPECT_EQ(waking.Line(), 2);
    EXPECT_GE(waking.chip.Cycles(), 1000u);
    EXPECT_TRUE(waking.events.told.empty());
}

}  // namespace
