#include <signal.h>

#include <filesystem>

#include "ProgramTest.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ScintillaMessages.h"
#include "platform/Profile.h"
#include "project/Workspace.h"

class ShutdownTest : public ProgramTest {
protected:
    ShutdownTest() {
        for (const char *example : {"", "blink", "greeting"}) scratch.CopyExample(example);
    }
};

TEST_F(ShutdownTest, LeavesEverythingOnDisk) {
    Start({scratch.Native("examples.__w")});
    CIDEDoc *main = Open("blink/main.asm");
    ViewOf(main).Send(SCI_GOTOLINE, 5);
    program->Command(ID_BOOKMARK_TOGGLE);
    App().breakpoints.Add(scratch.Windows("blink/led.asm"), 9, false);
    scratch.Write("third/third.__c", "[Settings]\r\nActive Compiler=Assembler\r\nTarget=PIC16F84A\r\n");
    App().workspaces.AddProjectToWorkspace(scratch.Windows("third/third.__c"));
    App().workspaces.ActivateProject(scratch.Windows("third/third.__c"), scratch.Windows("blink/blink.__c"));
    Edit(main, "; kept\r\n");
    App().childDisplayMode = 3;
    program->Answer(IDYES);
    CloseAndEnd();

    EXPECT_EQ(scratch.Read("blink/main.asm").find("; kept\r\n"), 0u);
    const std::string project = scratch.Windows("blink/blink.__c"), workspace = scratch.Windows("examples.__w");
    EXPECT_EQ(ReadProfileString("Bookmarks", "L0", "", project), "6");
    EXPECT_EQ(ReadProfileString("Bookmarks", "F0", "", project), scratch.Windows("blink/main.asm"));
    EXPECT_EQ(ReadProfileString("Breakpoints", "L0", "", project), "9");
    EXPECT_EQ(ReadProfileString("Workspace", "Count", "", workspace), "3");
    EXPECT_EQ(ReadProfileString("Workspace", "Active", "", workspace), "0");
    EXPECT_EQ(ReadProfileString("Workspace", "Proj2", "", workspace), "third\\third.__c");
    EXPECT_EQ(SettingNumber("Settings", "ChildDispMode"), 3);
    EXPECT_EQ(Setting("Workspace", "Last Workspace"), workspace);

    Start();
    EXPECT_EQ(App().childDisplayMode, 3);
    EXPECT_EQ(App().GetActiveProjectPath(), project);
    EXPECT_EQ(App().workspace->GetProjects().size(), 3u);
    EXPECT_EQ(App().breakpoints.Markers().size(), 1u);
}

TEST_F(ShutdownTest, StopsWhenTheUserCancels) {
    Start({scratch.Native("blink/blink.__c")});
    CIDEDoc *main = Open("blink/main.asm");
    Edit(main, "; unsaved\r\n");
    program->Answer(IDCANCEL);
    EXPECT_FALSE(program->Close());
    EXPECT_FALSE(Frame().IsClosing());
    EXPECT_TRUE(Frame().isVisible());
    EXPECT_EQ(App().WorkspaceKind(), 1);
    EXPECT_EQ(Frame().ConfigBox().GetCount(), 2);
    EXPECT_EQ(main->GetText().find("; unsaved"), 0u);
    program->Answer(IDNO);
    CloseAndEnd();
    EXPECT_EQ(scratch.Read("blink/main.asm").find("; unsaved"), std::string::npos);
}

TEST_F(ShutdownTest, EndsARunningBuildWithAllItStarted) {
    scratch.Write("blink/prebuild.bat", "echo $$ > running.pid\necho it runs\nsleep 120\n");
    Start({scratch.Native("blink/blink.__c")});
    Open("blink/main.asm");
    program->Command(ID_BUILD);
    ASSERT_TRUE(program->WaitFor([&] { return program->BuildText().find("it runs") != std::string::npos; }));
    const pid_t child = std::stoi(scratch.Read("blink/running.pid"));
    ASSERT_EQ(kill(child, 0), 0);
    CloseAndEnd();
    for (int i = 0; i < 100 && kill(child, 0) == 0; ++i) usleep(50000);
    EXPECT_NE(kill(child, 0), 0);

    scratch.Write("blink/prebuild.bat", "echo now short\n");
    Start();
    EXPECT_TRUE(App().build.IsIdle());
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(scratch.Exists("blink/Debug/blink.hex")) << program->BuildText();
}

TEST_F(ShutdownTest, ManyProgramsRunOneAfterTheOther) {
    for (int run = 0; run < 5; ++run) {
        Start({scratch.Native("examples.__w")});
        EXPECT_EQ(App().WorkspaceKind(), 2);
        Open("blink/main.asm");
        Open("greeting/main.asm");
        App().NewDocument();
        if (run % 2 == 0) CloseAndEnd();  // the others are gone without a close
    }
}
