// Breakpoints in the engine: arming at the start of a run, changes while one is on, run to cursor.
#include <QLineEdit>

#include "breakpoints/BreakpointProgram.h"
#include "debugger/BreakpointCommands.h"

namespace {

class BreakpointsInARun : public Breakpoints {
protected:
    void SetUp() override {
        Breakpoints::SetUp();
        scratch.CopyExample("blink");
        ASSERT_TRUE(program.App().OpenWorkspace(scratch.Windows("blink/blink.__c").c_str(), false));
        ASSERT_TRUE(program.Build());
        main_ = Open("blink/main.asm");
        ASSERT_TRUE(main_);
    }
    void TearDown() override {
        if (program.App().session.IsOpen()) program.App().session.EndAtOnce();
        Breakpoints::TearDown();
    }

    // The line, from 0, that begins so behind its blanks.
    int LineOf(const std::string &name, const std::string &begin) {
        std::istringstream text(scratch.Read("blink/" + name));
        std::string line;
        for (int number = 0; std::getline(text, line); ++number)
            if (const size_t at = line.find_first_not_of(' ');
                at != std::string::npos && line.compare(at, begin.size(), begin) == 0)
                return number;
        throw std::out_of_range(begin);
    }
    int MainLine(const std::string &begin) { return LineOf("main.asm", begin); }
    CMarker *Find(int line) { return List().Find(scratch.Windows("blink/main.asm"), line); }

    bool Stands() { return program.App().session.IsStanding(); }
    bool RunToStop(int command) {
        program.Command(command);
        return program.App().session.IsOpen() &&
               program.WaitFor([this] { return Stands() && WaitingMessages() == 0; }) && (program.Settle(), Stands());
    }
    std::string ExecutionLine() { return Marked(main_, kMarkerExecution); }
    bool Told(const std::string &text) { return program.BuildText().find(text) != std::string::npos; }

    CIDEDoc *main_ = nullptr;
};

}  // namespace

TEST_F(BreakpointsInARun, SlideToCodeAndBecomeOneAtTheStart) {
    const int start = MainLine("goto    main"), toggle = MainLine("call    led_toggle");
    Toggle(main_, start - 1);  // "start code"
    Toggle(main_, start - 3);  // a remark: both slide to the same line
    Toggle(main_, MainLine("end"));
    Toggle(main_, toggle);
    SetCondition("blink/main.asm", start - 3, "lost");
    SetCondition("blink/main.asm", toggle, "$W >= 0");
    const int refused = MainLine("call    led_start");
    Toggle(main_, refused);
    SetCondition("blink/main.asm", refused, "1 +");
    const std::string closed = scratch.Windows("blink/timer.asm");
    List().Add(closed, 0, 1);
    List().Add(scratch.Windows("blink/other.asm"), 3, 0);

    ASSERT_TRUE(RunToStop(ID_DEBUG_START)) << program.BuildText();
    const std::string lines = std::to_string(start) + " " + std::to_string(toggle);
    EXPECT_EQ(Listed("blink/main.asm"), lines + "($W >= 0) ");
    EXPECT_EQ(Marked(main_), lines + " ");
    EXPECT_EQ(Listed("blink/timer.asm"), std::to_string(LineOf("timer.asm", "movwf   saved_w")) + " ");
    EXPECT_EQ(Listed("blink/other.asm"), "");
    for (const CMarker &marker : List().Markers()) EXPECT_NE(marker.id, 0) << marker.File() << marker.line;
    EXPECT_TRUE(Told("breakpoints have moved")) << program.BuildText();
    EXPECT_TRUE(Told("main.asm, line " + std::to_string(MainLine("end") + 1) + ", nor behind it"));
    EXPECT_TRUE(Told("other.asm, line 4, nor behind it"));
    EXPECT_TRUE(Told("refuses the condition of the breakpoint in " + scratch.Native("blink/main.asm") + ", line " +
                     std::to_string(refused + 1)));

    // A refresh from the view, as a save of the project makes it, must not lose the engine's breakpoint.
    const int id = Find(toggle)->id;
    List().TakeFromDocument(*main_);
    EXPECT_EQ(Find(toggle)->id, id);
    EXPECT_TRUE(RemoveBreakpoint(*List().Find(closed, -1)));  // would stop each interrupt
    ASSERT_TRUE(RunToStop(ID_DEBUG_CONTINUE));
    EXPECT_EQ(ExecutionLine(), std::to_string(toggle) + " ");
}

TEST_F(BreakpointsInARun, ChangeInTheEngineAtOnce) {
    ASSERT_TRUE(RunToStop(ID_DEBUG_START)) << program.BuildText();
    const int loop = MainLine("call    timer_take_tick"), remark = MainLine("; The chip starts");
    Toggle(main_, remark);
    EXPECT_TRUE(Told("refuses a breakpoint in " + scratch.Native("blink/main.asm"))) << program.BuildText();
    EXPECT_EQ(Listed("blink/main.asm") + Marked(main_), "");

    Toggle(main_, loop);
    ASSERT_NE(Find(loop)->id, 0);
    ASSERT_TRUE(RunToStop(ID_DEBUG_CONTINUE));
    EXPECT_EQ(ExecutionLine(), std::to_string(loop) + " ");

    // A condition that doesn't read: a box with the engine's words, and the dialog stays.
    ViewOf(main_).contextLine = loop;
    program.AnswerDialog([](QWidget &window) {
        EXPECT_TRUE(ButtonOf(window, "Reset Count")->isEnabled());
        ButtonOf(window, "Condition:")->click();
        window.findChild<QLineEdit *>("condition")->setText("1 +");
        ClickLater(window, "OK");
    });
    program.Answer(IDOK);
    program.AnswerDialog([](QWidget &window) {
        window.findChild<QLineEdit *>("condition")->setText("0");
        ButtonOf(window, "Reset Count")->click();
        ButtonOf(window, "OK")->click();
        EXPECT_FALSE(window.isVisible());
    });
    program.Command(ID_BREAKPOINT_PROPERTIES);
    ASSERT_EQ(program.Boxes().size(), 1u);
    EXPECT_TRUE(program.Boxes().front().starts_with("The simulator refuses the condition")) << program.Boxes().front();
    EXPECT_EQ(Listed("blink/main.asm"), std::to_string(loop) + "(0) ");
    EXPECT_EQ(ViewOf(main_).contextLine, -1);

    // It never stops there now, but at the second line; off again, that doesn't stop either.
    const int toggle = MainLine("call    led_toggle");
    Toggle(main_, toggle);
    ASSERT_TRUE(RunToStop(ID_DEBUG_CONTINUE));
    EXPECT_EQ(ExecutionLine(), std::to_string(toggle) + " ");
    const int id = Find(toggle)->id;
    Toggle(main_, toggle);
    EXPECT_NE(program.App().debugger.Call(&EngineCalls::DbgDeleteBreakpoint, id), kDbgOk) << "it is out of the engine";
    EXPECT_EQ(Marked(main_), std::to_string(loop) + " ");
}

TEST_F(BreakpointsInARun, AreTemporaryForARunToTheCursor) {
    const int goal = MainLine("call    led_toggle"), user = MainLine("call    timer_start");
    const auto runTo = [&](int line) {
        GoTo(main_, line);
        return RunToStop(ID_DEBUG_RUN_TO_CURSOR);
    };
    ASSERT_TRUE(runTo(goal - 2)) << program.BuildText();  // no run yet
    EXPECT_EQ(ExecutionLine(), std::to_string(goal - 2) + " ");
    EXPECT_EQ(Listed("blink/main.asm") + Marked(main_), "");
    ASSERT_TRUE(runTo(goal));
    EXPECT_EQ(ExecutionLine(), std::to_string(goal) + " ");
    EXPECT_TRUE(List().Markers().empty() && !List().runToCursorMarker);
    program.App().session.EndAtOnce();

    // A user's breakpoint that slides to the goal, or is the goal, stays.
    Toggle(main_, user);
    ASSERT_TRUE(runTo(user));
    EXPECT_EQ(Listed("blink/main.asm"), std::to_string(user) + " ");
    program.App().session.EndAtOnce();
    Toggle(main_, user);
    const int first = MainLine("call    led_start");
    Toggle(main_, first - 1);  // "main", a name without code
    ASSERT_TRUE(runTo(first));
    EXPECT_EQ(Listed("blink/main.asm"), std::to_string(first) + " ");
    program.App().session.EndAtOnce();
    Toggle(main_, first);

    // Without an image there is no run, and nothing stays.
    std::filesystem::remove_all(scratch.Native("blink/Debug"));
    GoTo(main_, goal);
    program.Command(ID_DEBUG_RUN_TO_CURSOR);
    EXPECT_FALSE(program.App().session.IsOpen());
    EXPECT_EQ(Listed("blink/main.asm") + Marked(main_), "");
}
