// The order of the engine's calls in a debug run, and what the program does with what the engine tells.
#include "DebugProgram.h"
#include "app/StringIds.h"
#include "debugger/DbgInterface.h"
#include "debugger/DebugNotices.h"
#include "debugger/DebugSession.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "framework/Language.h"
#include "platform/NativePath.h"
#include "platform/Profile.h"

namespace {

using Calls = std::vector<std::string>;

const Calls kBegin = {"DbgDLLInit PIC16F628A",
                      "DbgLoadFile blink.cof",
                      "DbgSetExecutionChangeCallback",
                      "DbgSetClkCallBack",
                      "DbgSetInstCallBack",
                      "DbgPerformanceProfile 0",
                      "DbgReset"};
const Calls kEnd = {"DbgRemoveClkCallBack", "DbgRemoveInstCallBack", "DbgDLLCleanup"};

Calls operator+(Calls first, const Calls &second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

}  // namespace

TEST_F(RecordedProgram, RunsToMainAndEndsInOrder) {
    Start();
    const int label = LineOf("main.asm", "\nmain\n") + 2, call = label + 3;  // from 1
    recorder->slides = {{label + 1, call}};
    program->App().breakpoints.Add("main.asm", 40, 0);
    TakeCalls();
    program->Command(ID_DEBUG_START);
    EXPECT_EQ(TakeCalls(), (kBegin + Calls{"DbgPosToAddr main.asm 41", "DbgSetBreakpointByLine main.asm 41",
                                           "DbgSetBreakpointConditions  0 0 0"}));
    TellStop(kDbgAfterReset, 1);
    EXPECT_EQ(TakeCalls(), (Calls{"DbgPerformanceProfile 0", "DbgPosToAddr main.asm " + std::to_string(label + 1),
                                  "DbgSetBreakpointByLine main.asm " + std::to_string(call), "DbgRun"}));
    EXPECT_TRUE(Session().IsRunning());
    EXPECT_EQ(ExecutionPlace(), "");
    EXPECT_FALSE(program->IsEnabled(ID_DEBUG_RESET));
    TellStop(kDbgStopped, call, 70000);
    EXPECT_EQ(TakeCalls(), Calls{"DbgDeleteBreakpoint 2"});
    EXPECT_EQ(ExecutionPlace(), "main.asm:" + std::to_string(call));
    EXPECT_EQ(program->Frame().GetStatusText(kPaneDebugTime), LoadText(IDS_CLOCK_KILO, {"68"}));
    EXPECT_TRUE(program->ActiveView()->IsReadOnly());

    program->Command(ID_DEBUG_END);
    EXPECT_EQ(TakeCalls(), Calls{"DbgDeleteBreakpoint 1"} + kEnd);
    EXPECT_EQ(ExecutionPlace(), "");
    EXPECT_FALSE(program->ActiveView()->IsReadOnly());
    EXPECT_FALSE(Session().IsOpen());
}

// A run that the user's commands begin, and what their first stop makes of it.
TEST_F(RecordedProgram, BeginsAsTheCommandSays) {
    Start();
    const std::string project = FromNativePath(scratch.Native("blink/blink.__c"));
    const struct {
        int command;
        const char *fromMain;
        bool hasMain, runs;
    } cases[] = {
        {ID_DEBUG_CONTINUE, "1", true, true},   {ID_DEBUG_CONTINUE, "0", false, true},
        {ID_DEBUG_STEP_INTO, "1", true, true},  {ID_DEBUG_STEP_OVER, "0", true, false},
        {ID_DEBUG_STEP_OUT, "1", false, false},
    };
    const int mainLine = LineOf("main.asm", "\nmain\n") + 3;
    for (const auto &each : cases) {
        SCOPED_TRACE(std::to_string(each.command) + each.fromMain);
        WritePrivateProfileStringA("Debugger", "DebugFromMain", each.fromMain, project.c_str());
        recorder->slides = {{mainLine, each.hasMain ? mainLine : 0}};
        program->Command(each.command);
        TakeCalls();
        TellStop(kDbgAfterReset, 20);
        EXPECT_EQ(Session().IsRunning(), each.runs);
        EXPECT_EQ(ExecutionPlace(), each.runs ? "" : "main.asm:20");
        if (each.runs) TellStop(kDbgStopped, 30);
        EXPECT_EQ(ExecutionPlace(), each.runs ? "main.asm:30" : "main.asm:20");
        program->Command(ID_DEBUG_END);
        EXPECT_FALSE(Session().IsOpen());
    }
}

TEST_F(RecordedProgram, CarriesCommandsOutOrSaysWhoRefused) {
    Start();
    program->Command(ID_DEBUG_STEP_INTO);
    TellStop(kDbgAfterReset, 20);
    TellStop(kDbgStopped, 30);
    const struct {
        int command;
        const char *call, *word;
    } cases[] = {
        {ID_DEBUG_CONTINUE, "DbgRun", "Continue"},
        {ID_DEBUG_STEP_INTO, "DbgStepInto", "Step Into"},
        {ID_DEBUG_STEP_OVER, "DbgStepOver", "Step Over"},
        {ID_DEBUG_STEP_OUT, "DbgStepOut", "Step Out"},
        {ID_DEBUG_STEP_BACK, "DbgStepBack", "Step Back"},
        {ID_DEBUG_RESET, "DbgReset", "Reset"},
        {ID_DEBUG_POWER_ON_RESET, "DbgPowerOnReset", "Power on Reset"},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.call);
        TakeCalls();
        program->Command(each.command);
        EXPECT_EQ(TakeCalls(), Calls{each.call});
        EXPECT_TRUE(Session().IsRunning());
        EXPECT_FALSE(program->IsEnabled(each.command));
        EXPECT_TRUE(program->IsEnabled(ID_DEBUG_STOP));
        TellStop(kDbgStopped, 30);
        EXPECT_FALSE(Session().IsRunning());
        recorder->answers[each.call] = 1;
        program->Command(each.command);
        EXPECT_FALSE(Session().IsRunning());
        EXPECT_TRUE(ListHas(LoadText(IDS_DEBUG_REFUSED, {each.word}).substr(2))) << program->BuildText();
    }
    // With the listing in sight steps go by instructions.
    recorder->answers.clear();
    program->Command(ID_VIEW_LISTING_BAR);
    for (const auto &[command, call] :
         {std::pair{ID_DEBUG_STEP_INTO, "DbgStepIntoInstr"}, std::pair{ID_DEBUG_STEP_OVER, "DbgStepOverInstr"}}) {
        TakeCalls();
        program->Command(command);
        EXPECT_EQ(TakeCalls(), Calls{call});
        TellStop(kDbgStopped, 30);
    }
}

TEST_F(RecordedProgram, StartsThatFailLeaveNoRun) {
    Start();
    const struct {
        const char *call;
        int line;  // a text that tells why; 0: none
        Calls calls;
    } cases[] = {
        {"DbgDLLInit", IDS_DEBUG_ADVICE_LAST, {"DbgDLLInit PIC16F628A"}},
        {"DbgLoadFile", IDS_DEBUG_LOAD_FAILED, {"DbgDLLInit PIC16F628A", "DbgLoadFile blink.cof", "DbgDLLCleanup"}},
        {"DbgSetClkCallBack", 0, Calls(kBegin.begin(), kBegin.begin() + 4) + Calls{"DbgDLLCleanup"}},
        {"DbgReset", 0, kBegin + Calls{"DbgDLLCleanup"}},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.call);
        recorder->answers = {{each.call, 1}};
        TakeCalls();
        program->Command(ID_DEBUG_START);
        EXPECT_EQ(TakeCalls(), each.calls);
        EXPECT_FALSE(Session().IsOpen());
        EXPECT_FALSE(program->ActiveView() && program->ActiveView()->IsReadOnly());
        if (each.line) {
            const std::string image = scratch.Native("blink/Debug/blink.cof");
            EXPECT_TRUE(ListHas(LoadText(each.line, {image}).substr(2))) << program->BuildText();
        }
    }
    recorder->answers.clear();
    recorder->givesProc = false;
    program->Command(ID_DEBUG_START);
    EXPECT_TRUE(ListHas(LoadText(IDS_DEBUG_NO_ENGINE).substr(2)));
    EXPECT_FALSE(Session().IsOpen());
    recorder->givesProc = true;
    DbgDLLCleanupFn *const cleanup = engine.Get<DbgDLLCleanupFn>("DbgDLLCleanup");
    cleanup();
    program->Command(ID_DEBUG_START);
    EXPECT_TRUE(Session().IsOpen()) << "a run can begin after failed ones";
}

TEST_F(RecordedProgram, ShowsWhatTheEngineTells) {
    Start();
    program->Command(ID_DEBUG_STEP_INTO);
    TellStop(kDbgAfterReset, 20, 5);
    TellStop(kDbgStopped, 30, 12);
    const auto clock = [this] { return program->Frame().GetStatusText(kPaneDebugTime); };
    EXPECT_EQ(clock(), LoadText(IDS_CLOCK_CYCLES, {"12"}));
    // Each step back takes the tick of one stop; behind them there is none.
    for (const char *tick : {"12", "5", "-1"}) {
        program->Command(ID_DEBUG_STEP_BACK);
        TellStop(kDbgAfterStepBack, 20);
        EXPECT_EQ(clock(), LoadText(IDS_CLOCK_CYCLES, {tick}));
    }
    program->Command(ID_DEBUG_CONTINUE);
    TellStop(kDbgStopped, 0, 1 << 26);
    EXPECT_EQ(clock(), LoadText(IDS_CLOCK_MEGA, {"64"}));
    EXPECT_EQ(ExecutionPlace(), "");
    EXPECT_TRUE(ListHas(LoadText(IDS_DEBUG_NO_SOURCE)));
    Tell({kDbgStopped, 3, "\\no\\such.asm"});
    EXPECT_EQ(ExecutionPlace(), "") << "a file that isn't there is no place";

    Tell({kDbgText, 0, "", -1, "from the chip"});
    EXPECT_TRUE(ListHas("from the chip"));
    Tell({kDbgNoteSleep, 0, ""});
    EXPECT_TRUE(ListHas(LoadText(IDS_DEBUG_NOTE_SLEEP)));
    Tell({kDbgText, 0, ""});
    EXPECT_FALSE(ListHas("from the chip"));

    program->Command(ID_DEBUG_CONTINUE);
    TellStop(kDbgPlace, 25);
    EXPECT_FALSE(Session().IsRunning());
    EXPECT_EQ(ExecutionPlace(), "main.asm:25");
    EXPECT_FALSE(program->Frame().HasTimer(kTimerRun));
    EXPECT_EQ(program->App().debugger.Notices()->HasStop(), false);
    program->ActiveView()->GetIDEDoc()->ReloadFromDisk();
    EXPECT_EQ(ExecutionPlace(), "main.asm:25");
}

// Commands that can't be done during a run wait for the target to stop.
TEST_F(RecordedProgram, CommandsWaitForTheStop) {
    Start();
    const auto runOn = [this] {
        program->Command(ID_DEBUG_CONTINUE);
        TellStop(kDbgAfterReset, 20);
        ASSERT_TRUE(Session().IsRunning());
        TakeCalls();
    };
    runOn();
    program->Command(ID_DEBUG_END);
    EXPECT_EQ(TakeCalls(), Calls{"DbgStop"});
    EXPECT_TRUE(Session().IsOpen());
    TellStop(kDbgStopped, 30);
    EXPECT_EQ(TakeCalls(), kEnd);
    EXPECT_FALSE(Session().IsOpen());

    runOn();
    program->Command(ID_REBUILD_BUTTON);
    EXPECT_EQ(TakeCalls(), (Calls{"DbgPerformanceProfile 0", "DbgStop"}));
    EXPECT_TRUE(program->App().build.IsIdle());
    TellStop(kDbgStopped, 30);
    EXPECT_FALSE(Session().IsOpen());
    EXPECT_TRUE(program->WaitFor([this] { return program->App().build.IsIdle(); }));
    EXPECT_TRUE(ListHas("Building blink")) << program->BuildText();

    // The target comes to a stop by itself before the wish reaches it.
    runOn();
    recorder->answers["DbgStop"] = 1;
    program->Command(ID_DEBUG_END);
    TellStop(kDbgStopped, 30);
    EXPECT_FALSE(Session().IsOpen());
    recorder->answers.clear();

    // A place to show gives way to the command; that was thought over.
    runOn();
    program->Command(ID_WORKSPACE_CLOSE);
    program->Answer(IDNO);
    TellStop(kDbgPlace, 25);
    EXPECT_TRUE(Session().IsStanding());
    EXPECT_EQ(ExecutionPlace(), "");
    EXPECT_FALSE(program->Frame().HasTimer(kTimerRun));
    program->Command(ID_DEBUG_END);

    runOn();
    program->Command(ID_WORKSPACE_CLOSE);
    EXPECT_EQ(TakeCalls(), (Calls{"DbgPerformanceProfile 0", "DbgStop"}));
    EXPECT_FALSE(program->App().GetActiveProjectPath().empty());
    program->Answer(IDYES);
    TellStop(kDbgStopped, 30);
    EXPECT_TRUE(program->App().GetActiveProjectPath().empty());
    EXPECT_FALSE(Session().IsOpen());
}

TEST_F(RecordedProgram, ClosesBehindTheStop) {
    Start();
    program->Command(ID_DEBUG_CONTINUE);
    TellStop(kDbgAfterReset, 20);
    EXPECT_FALSE(program->Close());
    EXPECT_TRUE(program->Frame().isVisible());
    TellStop(kDbgStopped, 30);
    EXPECT_TRUE(program->WaitFor([this] { return !program->Frame().isVisible(); }));
}
