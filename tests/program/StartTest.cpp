#include <QMessageBox>
#include <filesystem>

#include "support/ProgramDirectory.h"
#include "ProgramTest.h"
#include "framework/Text.h"

namespace fs = std::filesystem;

class StartTest : public ProgramTest {
protected:
    struct Box {
        std::string title, text;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
    };

    Box StartWithBox() {
        Box seen;
        Make();
        program->AnswerDialog([&seen](QWidget &window) {
            auto *box = qobject_cast<QMessageBox *>(&window);
            ASSERT_TRUE(box);
            seen = {FromQString(box->windowTitle()), FromQString(box->text()), box->icon()};
            box->accept();
        });
        EXPECT_FALSE(program->StartWithoutWaiting());
        EXPECT_EQ(App().GetMainFrame(), nullptr);
        EXPECT_FALSE(SettingsExist()) << "nothing is written by a start that fails";
        return seen;
    }
};

TEST_F(StartTest, EndsWithAFixedTextWithoutTheLanguageLibrary) {
    const OwnProgramDirectory directory(scratch, {"ide.lang.dll"});
    const Box box = StartWithBox();
    EXPECT_EQ(box.title, "Thornwell IDE startup error");
    EXPECT_EQ(box.text, "Can't load language DLL");
    EXPECT_EQ(box.icon, QMessageBox::Critical);
    End();
}

TEST_F(StartTest, EndsWithALibraryTextWithoutTheEditingComponent) {
    const OwnProgramDirectory directory(scratch, {"SciLexer.dll"});
    const Box box = StartWithBox();
    EXPECT_EQ(box.title, Text(IDS_NO_LEXER_TITLE));
    EXPECT_EQ(box.text, Text(IDS_NO_LEXER));
    EXPECT_FALSE(box.text.empty());
    EXPECT_EQ(box.icon, QMessageBox::Critical);
    End();
}

TEST_F(StartTest, StartsAgainAfterAFailedStart) {
    {
        const OwnProgramDirectory directory(scratch, {"SciLexer.dll"});
        StartWithBox();
        End();
    }
    Start();
    EXPECT_EQ(Title(), Text(IDS_APP_TITLE));
}

TEST_F(StartTest, SaysWhatItLoads) {
    scratch.CopyExample("blink");
    scratch.Write("broken.__c", "[Settings]\r\nActive Compiler=Nobody\r\n[Files]\r\nCount=1\r\nFile0=x.asm\r\n");
    const std::string project = scratch.Windows("blink/blink.__c"), broken = scratch.Windows("broken.__c"),
                      gone = scratch.Windows("gone.__w");
    const struct {
        int load;
        std::string last, expectedLast;
        std::vector<int> lines;  // the reason for a failure stands where the 0 is
    } cases[] = {
        {1, "", "", {IDS_LOADING_WORKSPACE, IDS_NOTHING_TO_LOAD, IDS_STARTUP_DONE}},
        {1, project, project, {IDS_LOADING_WORKSPACE, IDS_LOADED, IDS_STARTUP_DONE}},
        {7, broken, "", {IDS_LOADING_WORKSPACE, 0, IDS_LOADED, IDS_STARTUP_DONE}},
        {1, gone, "", {IDS_LOADING_WORKSPACE, 0, IDS_LOADED, IDS_STARTUP_DONE}},
        {0, project, project, {IDS_STARTUP_DONE}},
    };
    for (const auto &[load, last, expectedLast, lines] : cases) {
        Set("Workspace", "Load Last Workspace", load);
        Set("Workspace", "Last Workspace", last);
        Start();
        ASSERT_TRUE(program->WaitFor([&] { return program->BuildLines().size() >= lines.size(); })) << last;
        const std::vector<std::string> said = program->BuildLines();
        ASSERT_EQ(said.size(), lines.size()) << program->BuildText();
        for (size_t i = 0; i < lines.size(); ++i)
            EXPECT_EQ(said[i], lines[i] != 0 ? Text(lines[i]) : said[i]);
        EXPECT_EQ(Setting("Workspace", "Last Workspace"), expectedLast);
        EXPECT_EQ(App().WorkspaceKind(), load != 0 && expectedLast == project ? 1 : 0);
    }
}

TEST_F(StartTest, PaintsBeforeTheSlowPart) {
    scratch.CopyExample("blink");
    Set("Workspace", "Last Workspace", scratch.Windows("blink/blink.__c"));
    Make();
    ASSERT_TRUE(program->StartWithoutWaiting());
    EXPECT_TRUE(Frame().isVisible());
    EXPECT_EQ(App().WorkspaceKind(), 0);
    App().AddOutputLine("before the first tick");
    ASSERT_TRUE(program->WaitFor([&] { return program->BuildLines() == std::vector{Text(IDS_LOADING_WORKSPACE)}; }));
    EXPECT_EQ(App().WorkspaceKind(), 0);
    EXPECT_FALSE(Frame().IsStarted());
    ASSERT_TRUE(program->WaitFor([&] { return Frame().IsStarted(); }));
    EXPECT_EQ(App().WorkspaceKind(), 1);
}

TEST_F(StartTest, CanBeClosedBeforeItHasStarted) {
    scratch.CopyExample("blink");
    Set("Workspace", "Last Workspace", scratch.Windows("blink/blink.__c"));
    Make();
    ASSERT_TRUE(program->StartWithoutWaiting());
    CloseAndEnd();
    EXPECT_EQ(Setting("Workspace", "Last Workspace"), scratch.Windows("blink/blink.__c"));
}

TEST_F(StartTest, FollowsTheOutputWithErrorAndWarningWords) {
    Start();
    App().AddOutputLine(nullptr);
    EXPECT_TRUE(program->BuildLines().empty());
    for (const char *line : {"!E[1] x", "!W", "!X", " !E", "!", "", "plain"}) App().AddOutputLine(line);
    EXPECT_EQ(program->BuildLines(),
              (std::vector<std::string>{"Error[1] x", "Warning", "!X", " !E", "!", "", "plain"}));
    Frame().PostMessage(kMsgOutputText, std::make_unique<std::string>("posted"));
    Frame().PostMessage(kMsgOutputTextHeap, std::make_unique<std::string>("!Wposted"));
    program->Settle();
    EXPECT_EQ(program->BuildLines()[7], "posted");
    EXPECT_EQ(program->BuildLines()[8], "Warningposted");
}
