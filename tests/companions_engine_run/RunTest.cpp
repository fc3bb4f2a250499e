#include <gtest/gtest.h>

#include <limits>

#include "StopSettings.h"
#include "Toy.h"
#include "debugger/EngineApi.h"

namespace {

// Line 2 counts byte 8 up, for ever; line 3 writes byte 1.
std::vector<ToyInstruction> Counting() {
    return {{1, Op::nop}, {2, Op::add, 8, 1}, {3, Op::store, 1, 7}, {4, Op::nop}, {5, Op::jump, 1}};
}

using enum RunKind;

TEST(Breakpoints, StopByConditionAndCount) {
    struct {
        const char *condition;
        int conditionType, hitValue, hitType;
        std::vector<int> stopsAt;  // values of byte 8
        int hits;                  // at the last of them
    } cases[] = {
        {"", kDbgNoCondition, 0, kDbgNoHit, {1, 2, 3}, 3},
        {"$8 == 5 || $8 == 40", kDbgWhenTrue, 0, kDbgNoHit, {5, 40}, 2},
        {"count / 4", kDbgWhenChanged, 0, kDbgNoHit, {4, 8, 12}, 3},
        {"", kDbgNoCondition, 7, kDbgHitEqual, {7}, 7},
        {"", kDbgNoCondition, 3, kDbgHitMultiple, {3, 6, 9}, 9},
        {"", kDbgNoCondition, 0, kDbgHitMultiple, {1, 2}, 2},
        {"", kDbgNoCondition, 4, kDbgHitAtLeast, {4, 5, 6}, 6},
        {"count % 2", kDbgWhenTrue, 3, kDbgHitAtLeast, {5, 7}, 4},
        {"10 / (count - 2) == 2", kDbgWhenTrue, 0, kDbgNoHit, {2, 6}, 2},  // has no value at 2: stops, and says so
    };
    for (bool told : {false, true}) {
        for (const auto &c : cases) {
            ToyRun run(Counting());
            run.map.symbols["count"] = {"count", 8, false, 1};
            run.control.TellInstructions(told);
            ASSERT_EQ(run.Break(5, 3), 5);
            std::string error;
            const BreakpointRule rule = {c.condition, c.conditionType, c.hitValue, c.hitType};
            ASSERT_TRUE(run.breakpoints.SetRule(5, rule, error)) << error;
            for (int value : c.stopsAt) {
                EXPECT_EQ(run.Do(RunKind::run), kDbgStopped) << c.condition;
                EXPECT_EQ(run.Line(), 3);
                EXPECT_EQ(run.chip.ReadRegister(8), value) << c.condition << " " << c.hitType;
            }
            EXPECT_EQ(run.breakpoints.HitCount(5), c.hits) << c.condition;
            EXPECT_EQ(run.events.texts.size(), c.stopsAt.front() == 2 ? 1u : 0u);
            EXPECT_TRUE(run.breakpoints.ResetHitCount(5));
            EXPECT_EQ(run.breakpoints.HitCount(5), 0);
        }
    }
}

TEST(Breakpoints, AreOneForEachLineAndRefuseWhatCannotBe) {
    ToyRun run({{1, Op::nop}, {2, Op::nop}, {1, Op::nop}, {3, Op::nop}, {1, Op::jump, 0}});
    EXPECT_EQ(run.Break(1, 1), 1);
    EXPECT_EQ(run.Break(2, 1), 1);
    EXPECT_EQ(run.Break(2, 99), -1);
    EXPECT_EQ(run.Break(2, 3), 2);
    for (uint32_t address : {2u, 3u, 4u, 0u}) {
        EXPECT_EQ(run.Do(RunKind::run), kDbgStopped);
        EXPECT_EQ(run.chip.ProgramCounter(), address);
    }
    std::string error;
    EXPECT_FALSE(run.breakpoints.SetRule(1, {"1 +", kDbgWhenTrue, 0, 0}, error));
    EXPECT_FALSE(error.empty());
    EXPECT_FALSE(run.breakpoints.SetRule(1, {"nobody > 3", kDbgWhenTrue, 0, 0}, error));
    EXPECT_NE(error.find("nobody"), std::string::npos);
    EXPECT_FALSE(run.breakpoints.SetRule(9, {}, error));
    EXPECT_FALSE(run.breakpoints.Delete(9));
    EXPECT_TRUE(run.breakpoints.Delete(1));
    EXPECT_EQ(run.Do(RunKind::run), kDbgStopped);
    EXPECT_EQ(run.chip.ProgramCounter(), 3u) << "the other one is left";
    EXPECT_TRUE(run.breakpoints.Delete(2));
    EXPECT_EQ(run.Do(RunKind::run), 0);
    run.control.Stop();
    EXPECT_EQ(run.control.Slice(run.events).reason, kDbgStopped);
}

TEST(Watchpoints, StopBehindEachWriteUnderAnyName) {
    for (const char *name : {"$PORT", "$port", "$1", "port_copy", "wide"}) {
        ToyRun run(Counting());
        run.map.symbols["port_copy"] = {"port_copy", 1, false, 1};
        run.map.symbols["wide"] = {"wide", 0, false, 2};
        std::string error;
        EXPECT_EQ(run.watchpoints.Set(4, name, error), 4) << name;
        EXPECT_EQ(run.watchpoints.Set(5, name, error), 4) << name;
        for (int i = 0; i < 2; i++) {  // the second write changes nothing
            EXPECT_EQ(run.Do(RunKind::run), kDbgStopped) << name;
            EXPECT_EQ(run.Line(), 4) << name;
        }
        EXPECT_TRUE(run.watchpoints.Delete(4));
        EXPECT_EQ(run.Do(RunKind::run), 0);
    }
    ToyRun run(Counting());
    run.map.symbols["main"] = {"main", 1, true, 1};
    for (const char *name : {"", "$", "$NONE", "$999", "$1x", "main", "unknown"}) {
        std::string error;
        EXPECT_FALSE(run.watchpoints.Set(1, name, error)) << name;
        EXPECT_NE(error, "") << name;
    }
}

TEST(Names, StandForBytesLowestFirst) {
    ToyRun run(Counting());
    run.map.symbols = {
        {"wide", {"wide", 10, false, 3}}, {"text", {"text", 20, false, 9}}, {"main", {"main", 0x123, true, 1}}};
    std::string error;
    EXPECT_TRUE(run.names.Set("wide", 0x1234567, error));
    EXPECT_EQ(run.chip.ReadRegister(10), 0x67);
    EXPECT_EQ(run.chip.ReadRegister(13), 0);
    run.chip.WriteRegister(20, 9);
    run.chip.WriteRegister(1, 5);
    run.chip.SetW(77);
    run.chip.SetProgramCounter(3);
    std::pair<const char *, std::optional<int64_t>> cases[] = {
        {"wide", 0x234567}, {"text", 9}, {"$10", 0x67}, {"main", 0x123}, {"$pc", 3},
        {"$PC", 3},         {"$W", 77},  {"$64", {}},   {"none", {}},   {"port", 5}, {"10", {}},
    };
    for (const auto &[name, value] : cases) EXPECT_EQ(run.names.Value(name), value) << name;
    EXPECT_EQ(run.names.Address("wide"), 10);
    EXPECT_EQ(run.names.Address("main"), 0x123);
    EXPECT_FALSE(run.names.Set("main", 1, error));
    EXPECT_FALSE(run.names.Set("$pc", 1000, error));
}

TEST(CycleProfile, CountsEachCycleOnce) {
    ToyRun run({{1, Op::call, 3}, {2, Op::call, 3}, {3, Op::jump, 0}, {9, Op::nop}, {9, Op::back}, {0}});
    run.map.functions = {{"main", 0, 2}, {"work", 3, 5}};
    CCycleProfile profile(run.map.Functions(), run.chip.ProgramSize());
    run.control.CountInto(&profile);
    run.Break(1, 3);
    for (int i = 0; i < 10; i++) EXPECT_EQ(run.Do(RunKind::run), kDbgStopped);
    auto rows = profile.Rows();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].name + "," + rows[1].name, "main,work");
    EXPECT_EQ(rows[0].cycles, 20u);
    EXPECT_EQ(rows[1].cycles, 40u);
    EXPECT_EQ(rows[2].cycles, 9u) << "of code in no function";
    EXPECT_EQ(run.control.Cycles(), 69u);
    run.control.WasReset();
    EXPECT_EQ(run.control.Cycles(), 0u);
}

TEST(Run, TellsWhatTheChipComesTo) {
    ToyRun off({{1, Op::nop}, {2, Op::nop}});
    EXPECT_EQ(off.Do(RunKind::run), kDbgBadMemory);
    ToyRun under({{1, Op::back}, {2, Op::jump, 1}});
    EXPECT_EQ(under.Do(RunKind::run), kDbgStopped);
    EXPECT_EQ(under.events.told, std::vector<int>{kDbgNoteStack});
    ToyRun asleep({{1, Op::sleep}, {2, Op::jump, 1}});
    EXPECT_EQ(asleep.Break(1, 2), 1);
    EXPECT_EQ(asleep.Do(RunKind::run), 0) << "only the user can stop it";
    EXPECT_EQ(asleep.events.told, std::vector<int>{kDbgNoteSleep});
    ToyRun watched(Counting());
    EXPECT_TRUE(watched.control.TellChanges(1, true));
    watched.control.TellInstructions(true);
    watched.Break(1, 5);
    EXPECT_EQ(watched.Do(RunKind::run), kDbgStopped);
    EXPECT_EQ(watched.Do(RunKind::run), kDbgStopped);
    EXPECT_EQ(watched.events.changes, (std::vector<std::pair<int, int>>{{1, 7}}));
    EXPECT_EQ(watched.events.instructions, (std::vector<int>{0, 1, 2, 3, 4, 1, 2, 3}));
}

// A reset takes the simulator as long as a thousand instructions do: a slice has room for few of them.
// Each return is one too many, and does nothing.
TEST(Run, GoesOnFromWhereTheStackHasStoppedIt) {
    for (bool told : {false, true}) {
        ToyRun run({{1, Op::back}, {2, Op::add, 8, 1}, {3, Op::back}, {4, Op::jump, 0}});
        run.control.TellInstructions(told);
        EXPECT_EQ(run.Do(RunKind::run), kDbgStopped);
        EXPECT_EQ(run.Do(RunKind::run), 0);
        run.control.Stop();
        EXPECT_EQ(run.control.Slice(run.events).reason, kDbgStopped);
        EXPECT_EQ(run.events.told, std::vector<int>{kDbgNoteStack});
        run.chip.SetProgramCounter(1);
        run.control.WasReset();
        EXPECT_EQ(run.Do(RunKind::run), kDbgStopped) << "behind a reset";
        run.chip.SetProgramCounter(0);
        EXPECT_EQ(run.Do(RunKind::run), kDbgStopped) << "from another place";
        EXPECT_EQ(run.chip.ProgramCounter(), 1u);
    }
}

TEST(Run, GoesOnInAProgramThatResetsForEver) {
    ToyRun run({{1, Op::nop}, {2, Op::call, 3}, {3, Op::nop}, {4, Op::reset}});
    for (bool told : {false, true}) {
        run.control.TellInstructions(told);
        EXPECT_EQ(run.Do(RunKind::run), 0);
        EXPECT_LT(run.chip.Resets(), told ? 1000u : 500u);
        ASSERT_EQ(run.events.texts.size(), 1u);
        EXPECT_NE(run.events.texts[0].find("RESET instruction at 0x0003"), std::string::npos) << run.events.texts[0];
    }
    run.control.Stop();
    EXPECT_TRUE(run.control.Slice(run.events).stopped);
    run.control.TellInstructions(false);
    run.chip.SetProgramCounter(1);
    EXPECT_EQ(run.Do(RunKind::stepOver), kDbgStopped);
    EXPECT_EQ(run.chip.ProgramCounter(), 0u) << "a step ends behind a reset";
    run.control.WasReset();
    run.Do(RunKind::run);
    EXPECT_EQ(run.events.texts.size(), 2u);
}

TEST(StopSettings, OutliveAStepBack) {
    ToyRun early(Counting()), late(Counting());
    early.Break(1, 3);
    early.Break(2, 4);
    early.Do(RunKind::run);
    std::string error;
    late.Break(1, 3);
    late.Break(3, 5);
    ASSERT_TRUE(late.breakpoints.SetRule(3, {"$8 == 9 || 0 * 12", kDbgWhenTrue, 1, kDbgHitAtLeast}, error));
    late.watchpoints.Set(4, "$PORT", error);
    StopSettings settings, read;
    settings.nextId = 5;
    settings.registers = {{7, 8}, {9, 255}};
    settings.connections[6] = {13, true, true, -0.7, std::numeric_limits<double>::infinity(), 1.0 / 3};
    TakeStops(late.breakpoints, late.watchpoints, settings);
    const std::string text = WriteStopSettings(settings);
    ASSERT_TRUE(ReadStopSettings(text, read));
    EXPECT_EQ(read.nextId, 5);
    EXPECT_EQ(read.registers, settings.registers);
    EXPECT_EQ(read.connections, settings.connections);
    PutStops(read, early.breakpoints, early.watchpoints);
    EXPECT_EQ(early.breakpoints.HitCount(1), 1) << "goes back with the target";
    EXPECT_FALSE(early.breakpoints.HitCount(2));
    EXPECT_EQ(early.Do(RunKind::run), kDbgStopped);
    EXPECT_EQ(early.Line(), 4) << "the watchpoint, before line 4 is left";
    EXPECT_TRUE(early.watchpoints.Delete(4));
    EXPECT_TRUE(early.breakpoints.Delete(1));
    EXPECT_EQ(early.Do(RunKind::run), kDbgStopped);
    EXPECT_EQ(early.Line(), 5);
    EXPECT_EQ(early.chip.ReadRegister(8), 9);
    for (size_t length = 0; length < text.size(); length++)
        EXPECT_FALSE(ReadStopSettings(text.substr(0, length), read)) << length;
}

}  // namespace
