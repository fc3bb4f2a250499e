#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "ProgramTest.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ScintillaMessages.h"
#include "platform/Profile.h"
#include "project/Workspace.h"

class WorkspaceTest : public ProgramTest {
protected:
    WorkspaceTest() {
        for (const char *example : {"", "blink", "greeting"}) scratch.CopyExample(example);
    }

    void StartWithBoth() {
        Start({scratch.Native("examples.__w")});
        ASSERT_EQ(App().WorkspaceKind(), 2);
    }

    const std::string blink = scratch.Windows("blink/blink.__c"), greeting = scratch.Windows("greeting/greeting.__c");

    std::string Key(const std::string &file, const char *section, const char *key) {
        return ReadProfileString(section, key, "(none)", file);
    }

    std::vector<int> MarkedLines(CIDEDoc *document) {
        std::vector<int> lines;
        for (intptr_t line = -1; (line = ViewOf(document).Send(SCI_MARKERNEXT, line + 1, 1 << 1)) >= 0;)
            lines.push_back(static_cast<int>(line));
        return lines;
    }
    void ToggleMark(CIDEDoc *document, int line) {
        Open(std::filesystem::relative(ToNative(document), scratch.Path()).string());
        ViewOf(document).Send(SCI_GOTOLINE, static_cast<uintptr_t>(line));
        program->Command(ID_BOOKMARK_TOGGLE);
    }
    static std::string ToNative(CIDEDoc *document) {
        std::string path = document->GetPathName();
        std::ranges::replace(path, '\\', '/');
        return path;
    }
};

TEST_F(WorkspaceTest, EachProjectHasItsOwnMarksInTheSameViews) {
    StartWithBoth();
    CIDEDoc *main = Open("blink/main.asm");
    CIDEDoc *texts = Open("greeting/texts.asm");
    ToggleMark(main, 3);
    ToggleMark(texts, 1);
    Edit(main, "; a new first line\r\n");
    EXPECT_EQ(MarkedLines(main), std::vector{4});

    App().workspaces.ActivateProject(blink, greeting);
    EXPECT_TRUE(MarkedLines(main).empty());
    EXPECT_TRUE(MarkedLines(texts).empty());
    EXPECT_FALSE(main->IsModified()) << "saved without a question";
    EXPECT_EQ(scratch.Read("blink/main.asm").find("; a new first line"), 0u);
    EXPECT_EQ(Key(blink, "Bookmarks", "Count"), "2");
    ToggleMark(main, 6);

    App().workspaces.ActivateProject(greeting, blink);
    EXPECT_EQ(MarkedLines(main), std::vector{4});
    EXPECT_EQ(MarkedLines(texts), std::vector{1});
    CloseAndEnd();
    EXPECT_EQ(Key(blink, "Bookmarks", "Count"), "2");
    EXPECT_EQ(Key(greeting, "Bookmarks", "Count"), "1");

    StartWithBoth();
    EXPECT_EQ(MarkedLines(Open("blink/main.asm")), std::vector{4});
}

TEST_F(WorkspaceTest, SaysWhichProjectIsActive) {
    WritePrivateProfileStringA("Settings", "Last Ext", "inc", greeting.c_str());
    WritePrivateProfileStringA("Settings", "Last ExtIdx", "3", greeting.c_str());
    WritePrivateProfileStringA("Settings", "ClockRate", "7372800", greeting.c_str());
    StartWithBoth();
    EXPECT_EQ(Frame().GetStatusText(kPaneWorkspace), Text(IDS_LABEL_WORKSPACE));
    EXPECT_EQ(Frame().GetStatusText(kPaneTarget), "PIC16F628A");
    EXPECT_EQ(Frame().GetStatusText(kPaneClock), "4 MHz");
    EXPECT_EQ(Frame().GetStatusText(kPaneCompiler), "Assembler");
    chmod(scratch.Native("greeting/greeting.__c").c_str(), 0444);

    App().workspaces.ActivateProject(blink, greeting);
    std::vector<std::string> lines{Text(IDS_PROJECT_ACTIVE, {"greeting"})};
    if (geteuid() != 0)  // nothing is read-only to root
        lines.push_back(Line(IDS_PROJECT_READ_ONLY, {scratch.Native("greeting/greeting.__c")}));
    EXPECT_EQ(program->BuildLines(), lines);
    EXPECT_EQ(Frame().GetStatusText(kPaneTarget), Key(greeting, "Settings", "Target"));
    EXPECT_EQ(Frame().GetStatusText(kPaneClock), "7.37 MHz");
    EXPECT_EQ(Setting("Settings", "Last Ext"), "inc");
    EXPECT_EQ(SettingNumber("Settings", "Last ExtIdx"), 3);
    EXPECT_EQ(Title(), Text(IDS_APP_TITLE) + " - greeting (examples)");

    App().workspaces.ActivateProject(greeting, "nobody.__c");
    EXPECT_EQ(App().GetActiveProjectPath(), greeting);

    App().CloseWorkspace();
    for (int pane : {kPaneWorkspace, kPaneTarget, kPaneClock, kPaneCompiler})
        EXPECT_EQ(Frame().GetStatusText(pane), "");
}

TEST_F(WorkspaceTest, TheBoxChangesTheConfigurationOfEveryProject) {
    StartWithBoth();
    CXTFlatComboBox &box = Frame().ConfigBox();
    ASSERT_EQ(box.GetCount(), 2);
    EXPECT_EQ(Frame().GetProjectConfigName(), "Debug");
    box.SetCurSel(box.FindStringExact("release"));
    program->Command(ID_CONFIG_SELECT);
    for (const std::string &project : {blink, greeting})
        EXPECT_EQ(Key(project, "Settings", "Active Config"), "Release");

    std::string text = "%config%/%name%.hex %target% %shorttarget% %nobody% %NAME% %name";
    Frame().ExpandMacros({}, text);
    EXPECT_EQ(text, "Release/blink.hex PIC16F628A 16F628A %nobody% %NAME% %name");
    text = "%name% %config%";
    Frame().ExpandMacros(greeting, text);
    EXPECT_EQ(text, "greeting Release");

    App().workspaces.ActivateProject(blink, greeting);
    EXPECT_EQ(Frame().GetProjectConfigName(), "Release");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(scratch.Exists("greeting/Release/greeting.hex")) << program->BuildText();
    EXPECT_FALSE(scratch.Exists("greeting/Debug/greeting.hex"));

    box.SetCurSel(-1);
    EXPECT_EQ(Frame().GetProjectConfigName(), "Debug") << "the first item when none is selected";
    App().CloseWorkspace();
    EXPECT_EQ(Frame().GetProjectConfigName(), "");
    text = "[%name%%config%]";
    Frame().ExpandMacros({}, text);
    EXPECT_EQ(text, "[]");
}

TEST_F(WorkspaceTest, OneBrokenProjectFailsTheWholeWorkspace) {
    scratch.Write("mixed.__w", "[Workspace]\r\nCount=2\r\nActive=0\r\nProj0=blink\\blink.__c\r\nProj1=nobody.__c\r\n");
    const std::string before = scratch.Read("mixed.__w");
    Set("Workspace", "Last Workspace", scratch.Windows("mixed.__w"));
    Start();
    EXPECT_EQ(App().WorkspaceKind(), 0);
    EXPECT_EQ(Setting("Workspace", "Last Workspace"), "");
    EXPECT_NE(program->BuildText().find(scratch.Native("nobody.__c")), std::string::npos) << program->BuildText();
    EXPECT_EQ(scratch.Read("mixed.__w"), before);
    EXPECT_FALSE(scratch.Exists("nobody.__c"));
    EXPECT_EQ(Title(), Text(IDS_APP_TITLE));
}

TEST_F(WorkspaceTest, AProjectWhoseOutputDirectoryIsAFileFailsToBuildButOpens) {
    scratch.Write("blink/Debug", "a file in the way\n");
    Start({scratch.Native("blink/blink.__c")});
    EXPECT_EQ(App().WorkspaceKind(), 1);
    EXPECT_TRUE(program->Build());
    EXPECT_NE(program->BuildText().find(scratch.Native("blink/Debug")), std::string::npos) << program->BuildText();
    EXPECT_TRUE(Says(Line(IDS_BUILD_FAILED))) << program->BuildText();
    EXPECT_EQ(scratch.Read("blink/Debug"), "a file in the way\n");
}

TEST_F(WorkspaceTest, FindsADocumentUnderEverySpelling) {
    scratch.Write("blink/sub/part.asm", "; part\r\n");
    Start({scratch.Native("blink/blink.__c")});
    CDocument *main = App().FindOrOpenDocument(scratch.Windows("blink/main.asm"), true);
    ASSERT_TRUE(main);
    EXPECT_EQ(main->GetPathName(), scratch.Windows("blink/main.asm"));
    const std::string before = std::filesystem::current_path();
    for (const std::string &name : {std::string("main.asm"), std::string(".\\main.asm"), std::string("MAIN.ASM"),
                                    std::string("sub\\..\\main.asm"), scratch.Windows("blink/Main.Asm"),
                                    scratch.Windows("BLINK/main.asm"), scratch.Windows("greeting/../blink/main.asm")})
        EXPECT_EQ(App().FindOrOpenDocument(name, false), main) << name;
    EXPECT_EQ(App().FindOrOpenDocument("part.asm", false), nullptr);
    EXPECT_EQ(App().FindOrOpenDocument("missing.asm", true), nullptr);
    CDocument *part = App().FindOrOpenDocument("sub/part.asm", true);
    ASSERT_TRUE(part);
    EXPECT_EQ(part->GetPathName(), scratch.Windows("blink/sub/part.asm"));
    EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(WorkspaceTest, TellsFilesApartWhoseNamesDifferInCase) {
    scratch.Write("blink/MAIN.asm", "; another file\r\n");
    scratch.Write("Blink/main.asm", "; in another directory\r\n");
    Start({scratch.Native("blink/blink.__c")});
    CDocument *lower = App().FindOrOpenDocument(scratch.Windows("blink/main.asm"), true);
    CDocument *upper = App().FindOrOpenDocument(scratch.Windows("blink/MAIN.asm"), true);
    CDocument *other = App().FindOrOpenDocument(scratch.Windows("Blink/main.asm"), true);
    EXPECT_EQ(App().GetDocuments().size(), 3u);
    EXPECT_EQ(dynamic_cast<CIDEDoc *>(upper)->GetText(), "; another file\r\n");
    EXPECT_EQ(dynamic_cast<CIDEDoc *>(other)->GetText(), "; in another directory\r\n");
    EXPECT_EQ(App().FindOrOpenDocument("main.asm", false), lower);
    EXPECT_EQ(App().FindOrOpenDocument("MAIN.asm", false), upper);
}

TEST_F(WorkspaceTest, SavesAllThatIsModified) {
    Start({scratch.Native("blink/blink.__c")});
    EXPECT_FALSE(program->IsEnabled(ID_FILE_SAVE_ALL));
    CIDEDoc *main = Open("blink/main.asm"), *led = Open("blink/led.asm"), *timer = Open("blink/timer.asm");
    const std::string timerBefore = scratch.Read("blink/timer.asm");
    Edit(main, "; one\r\n");
    Edit(led, "; two\r\n");
    EXPECT_TRUE(program->IsEnabled(ID_FILE_SAVE_ALL));
    program->Command(ID_FILE_SAVE_ALL);
    EXPECT_EQ(scratch.Read("blink/main.asm").find("; one\r\n"), 0u);
    EXPECT_EQ(scratch.Read("blink/led.asm").find("; two\r\n"), 0u);
    EXPECT_EQ(scratch.Read("blink/timer.asm"), timerBefore);
    EXPECT_FALSE(program->IsEnabled(ID_FILE_SAVE_ALL));

    Edit(main, "; three\r\n");
    Edit(led, "; four\r\n");
    program->Answer(IDYES);
    program->Answer(IDCANCEL);
    EXPECT_FALSE(App().SaveAllDocuments(true));
    EXPECT_FALSE(main->IsModified());
    EXPECT_TRUE(led->IsModified());
    EXPECT_FALSE(timer->IsModified());
}

// What can't be saved is not closed either.
TEST_F(WorkspaceTest, AChangeOfTheWorkspaceKeepsADocumentThatCantBeSaved) {
    Start({scratch.Native("blink/blink.__c")});
    CIDEDoc *document = Open("blink/main.asm");
    Edit(document, "; precious\r\n");
    std::filesystem::rename(scratch.Path() / "blink", scratch.Path() / "elsewhere");
    scratch.Write("blink", "a file in the way");
    program->Answer(IDOK);
    ASSERT_TRUE(program->WaitFor([&] { return program->AnswersLeft() == 0; })) << "told that the file is gone";
    program->Answer(IDOK);
    EXPECT_FALSE(App().OpenWorkspace(greeting.c_str(), false));
    EXPECT_EQ(App().GetDocuments().size(), 1u);
    EXPECT_TRUE(document->IsModified());
    EXPECT_EQ(document->GetText().find("; precious"), 0u);
}
