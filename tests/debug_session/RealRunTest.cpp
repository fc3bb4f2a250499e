// Debug runs of the examples on the real engine, as a user sees them.
#include <signal.h>

#include <filesystem>
#include <fstream>

#include "DebugProgram.h"
#include "app/StringIds.h"
#include "debugger/DebugSession.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/Language.h"
#include "platform/NativePath.h"
#include "platform/Profile.h"

TEST_F(DebugProgram, IsRunSteppedAndEnded) {
    Start();
    const auto at = [this](const char *file, const char *text) {
        return std::string(file) + ":" + std::to_string(LineOf(file, text) + 1);
    };
    const auto cycles = [this] { return std::stoi(program->Frame().GetStatusText(kPaneDebugTime)); };
    program->Command(ID_DEBUG_START);
    ASSERT_TRUE(WaitForStop()) << program->BuildText();
    EXPECT_EQ(ExecutionPlace(), at("main.asm", "call    led_start"));
    program->Command(ID_FILE_CLOSE);
    Open("main.asm");
    EXPECT_EQ(ExecutionPlace(), at("main.asm", "call    led_start")) << "a source that is opened again";
    const struct {
        int command;
        const char *file, *text;
    } steps[] = {
        {ID_DEBUG_STEP_INTO, "led.asm", "banksel CMCON"},
        {ID_DEBUG_STEP_OVER, "led.asm", "clrf    LED_PORT"},
        {ID_DEBUG_STEP_OUT, "main.asm", "call    timer_start"},
        {ID_DEBUG_STEP_OVER, "main.asm", "movlw   BLINK_TICKS"},
    };
    std::vector<std::pair<std::string, int>> seen{{ExecutionPlace(), cycles()}};
    for (const auto &step : steps) {
        program->Command(step.command);
        ASSERT_TRUE(WaitForStop());
        seen.emplace_back(ExecutionPlace(), cycles());
        EXPECT_EQ(seen.back().first.substr(0, seen.back().first.find(':')), step.file);
    }
    EXPECT_EQ(seen[3].first, at("main.asm", "call    timer_start"));
    for (size_t i = seen.size() - 1; i-- > 0;) {
        program->Command(ID_DEBUG_STEP_BACK);
        ASSERT_TRUE(WaitForStop());
        EXPECT_EQ(std::pair(ExecutionPlace(), cycles()), seen[i]);
    }
    const std::string before = scratch.Read("blink/main.asm");
    program->Type("x");
    EXPECT_FALSE(program->ActiveDocument()->IsModified());

    program->Command(ID_DEBUG_CONTINUE);
    program->Settle(50);
    EXPECT_TRUE(Session().IsRunning());
    program->Command(ID_DEBUG_STOP);
    ASSERT_TRUE(WaitForStop());
    EXPECT_GT(cycles(), 100);
    program->Command(ID_DEBUG_POWER_ON_RESET);
    ASSERT_TRUE(WaitForStop());
    EXPECT_EQ(Value("$pc"), "0");
    program->Command(ID_DEBUG_CONTINUE);
    program->Command(ID_DEBUG_END);
    ASSERT_TRUE(program->WaitFor([this] { return !Session().IsOpen(); }));
    EXPECT_FALSE(program->ActiveView()->IsReadOnly());
    EXPECT_EQ(scratch.Read("blink/main.asm"), before);
}

// One after the other in one program, on two chips.
TEST_F(DebugProgram, RunsManyTimes) {
    Start("greeting");
    for (int run = 0; run < 5; ++run) {
        program->Command(ID_DEBUG_START);
        ASSERT_TRUE(WaitForStop()) << program->BuildText();
        EXPECT_EQ(ExecutionPlace().substr(0, 9), "main.asm:");
        program->Command(ID_DEBUG_STEP_OVER);
        ASSERT_TRUE(WaitForStop());
        program->Command(ID_DEBUG_END);
        ASSERT_FALSE(Session().IsOpen());
    }
}

TEST_F(DebugProgram, SaysWhatIsWrongWithAnImage) {
    Start();
    const std::filesystem::path image = scratch.Path() / "blink/Debug/blink.cof";
    const std::string good = scratch.Read("blink/Debug/blink.cof");
    const std::string project = FromNativePath(scratch.Native("blink/blink.__c"));
    const struct {
        const char *what;
        std::string bytes;
    } images[] = {
        {"cut in the header", good.substr(0, 10)},
        {"cut in the middle", good.substr(0, good.size() / 2)},
        {"text", "this is no image\n"},
        {"empty", ""},
        {"large", std::string(50 << 20, '\x5A')},
    };
    for (const auto &[what, bytes] : images) {
        SCOPED_TRACE(what);
        scratch.Write("blink/Debug/blink.cof", bytes);
        program->Command(ID_DEBUG_START);
        EXPECT_FALSE(Session().IsOpen());
        EXPECT_TRUE(ListHas(LoadText(IDS_DEBUG_LOAD_FAILED, {image}).substr(2))) << program->BuildText();
    }
    std::filesystem::remove(image);
    program->Command(ID_DEBUG_START);
    EXPECT_TRUE(ListHas(LoadText(IDS_DEBUG_LOAD_FAILED, {image}).substr(2))) << program->BuildText();
    scratch.Write("blink/Debug/blink.cof", good);
    program->Command(ID_DEBUG_START);
    EXPECT_TRUE(WaitForStop()) << program->BuildText();
}

// What a program can do that no program should: the run goes on, or stands, and can be ended.
TEST_F(DebugProgram, SurvivesStrangePrograms) {
    Start();
    const struct {
        const char *what, *code;
        int text;  // in the build list
        bool stands;
    } programs[] = {
        {"sleeps for ever", "main\n\tclrf INTCON\n\tsleep\n\tgoto main\n", IDS_DEBUG_NOTE_SLEEP, false},
        {"fills its stack", "main\n\tcall main\n\tgoto main\n", IDS_DEBUG_NOTE_STACK, true},
        {"runs off its memory", "main\n\tnop\n\tnop\n", IDS_DEBUG_NO_SOURCE, true},
    };
    for (const auto &[what, code, text, stands] : programs) {
        SCOPED_TRACE(what);
        scratch.Write("blink/main.asm",
                      "\tinclude \"board.inc\"\n\t__config _WDT_OFF & _INTOSC_OSC_NOCLKOUT\n"
                      "\tglobal main\nstart\tcode 0\n\tgoto main\nmain_code code\n" +
                          std::string(code) + "\tend\n");
        ASSERT_TRUE(program->Build());
        program->Command(ID_DEBUG_CONTINUE);
        const auto told = [&] { return ListHas(LoadText(text).substr(4)); };
        EXPECT_TRUE(program->WaitFor(told)) << program->BuildText();
        EXPECT_TRUE(program->WaitFor([&] { return Session().IsRunning() != stands; }));
        program->Command(ID_DEBUG_END);
        EXPECT_TRUE(program->WaitFor([this] { return !Session().IsOpen(); }));
    }
}

TEST_F(DebugProgram, OutlivesItsSimulatorAndItsProject) {
    Start();
    program->Command(ID_DEBUG_CONTINUE);
    ASSERT_TRUE(program->WaitFor([this] { return Session().IsRunning(); }));
    for (const auto &entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream words(entry.path() / "stat");
        int pid = 0, parent = 0;
        std::string name, state;
        if (words >> pid >> name >> state >> parent && parent == getpid() && name.starts_with("(simhost"))
            kill(pid, SIGKILL);
    }
    ASSERT_TRUE(WaitForStop()) << "the loss counts as a stop";
    program->Command(ID_DEBUG_STEP_INTO);
    EXPECT_FALSE(Session().IsRunning());
    program->Command(ID_DEBUG_END);
    EXPECT_FALSE(Session().IsOpen());

    program->Command(ID_DEBUG_CONTINUE);
    ASSERT_TRUE(program->WaitFor([this] { return Session().IsRunning(); }));
    program->App().CloseWorkspace();
    EXPECT_FALSE(Session().IsOpen());
    EXPECT_EQ(program->App().GetActiveProjectPath(), "");
}
