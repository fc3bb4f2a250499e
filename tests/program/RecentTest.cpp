#include <QAction>
#include <QMenu>
#include <filesystem>

#include "ProgramTest.h"
#include "app/DocTemplateEx.h"
#include "editor/IDEDoc.h"
#include "framework/RecentList.h"

class RecentTest : public ProgramTest {
protected:
    std::vector<std::string> Files() { return CDocTemplateEx::RecentFiles().Entries(); }
    std::vector<std::string> Workspaces() { return CDocTemplateEx::RecentWorkspaces().Entries(); }
};

TEST_F(RecentTest, FilesOpenAgainInEveryRun) {
    for (const char *name : {"a.asm", "b.asm", "c.asm"}) scratch.Write(name, "; text\r\n");
    Start();
    EXPECT_FALSE(program->IsEnabled(ID_RECENT_FILES));
    Open("a.asm");
    Open("b.asm");
    Open("c.asm");
    CloseAndEnd();
    EXPECT_EQ(Setting("Recent Files", "File1"), scratch.Windows("c.asm"));

    Start();
    EXPECT_EQ(Files(), (std::vector{scratch.Windows("c.asm"), scratch.Windows("b.asm"), scratch.Windows("a.asm")}));
    EXPECT_TRUE(program->IsEnabled(ID_RECENT_FILES + 2));
    EXPECT_FALSE(program->IsEnabled(ID_RECENT_FILES + 3));
    program->Command(ID_RECENT_FILES + 2);
    EXPECT_EQ(program->ActiveFile(), "a.asm");
    EXPECT_EQ(Files().front(), scratch.Windows("a.asm"));
    program->Command(ID_RECENT_FILES + 1);
    EXPECT_EQ(program->ActiveFile(), "c.asm");

    program->Command(ID_RECENT_FILES + 1);  // open already: to the top, and the list stays
    EXPECT_EQ(program->ActiveFile(), "a.asm");
    EXPECT_EQ(Files().front(), scratch.Windows("c.asm"));

    std::filesystem::remove(scratch.Path() / "b.asm");
    program->Command(ID_RECENT_FILES + 2);
    EXPECT_EQ(Files(), (std::vector{scratch.Windows("c.asm"), scratch.Windows("a.asm")}));
    EXPECT_EQ(Setting("Recent Files", "File3"), "(none)");
}

TEST_F(RecentTest, AskBeforeTheyMakeWhatIsGone) {
    Set("Recent Workspaces", "Workspace1", scratch.Windows("gone.__w"));
    Set("Recent Workspaces", "Workspace2", scratch.Windows("gone.__c"));
    Set("Recent Workspaces", "Workspace3", scratch.Windows("no/directory.__w"));
    scratch.Write("folder.__w/file", "");
    Set("Recent Workspaces", "Workspace4", scratch.Windows("folder.__w"));
    Start();
    const auto pick = [this](const std::string &name) {
        const auto entries = Workspaces();
        const auto at = std::ranges::find(entries, scratch.Windows(name)) - entries.begin();
        program->Command(ID_RECENT_WORKSPACES + static_cast<int>(at));
    };

    program->Answer(IDNO);
    pick("gone.__w");
    program->Answer(IDNO);
    pick("gone.__c");
    program->Answer(IDNO);
    pick("folder.__w");
    EXPECT_EQ(program->Boxes(),
              (std::vector<std::string>{
                  "Workspace '" + scratch.Native("gone.__w") + "' doesn't exist. Do you want to create a new one?",
                  "Project '" + scratch.Native("gone.__c") + "' doesn't exist. Do you want to create a new one?",
                  "Workspace '" + scratch.Native("folder.__w") + "' doesn't exist. Do you want to create a new one?"}));
    EXPECT_EQ(Workspaces(), std::vector{scratch.Windows("no/directory.__w")});

    program->Answer(IDYES);
    program->Answer(IDOK);
    pick("no/directory.__w");
    EXPECT_EQ(program->Boxes().back(), Text(IDS_CANT_CREATE_FILE, {scratch.Native("no/directory.__w")}));
    EXPECT_TRUE(Workspaces().empty());
}

TEST_F(RecentTest, MakeAMissingWorkspaceWhenTheUserWantsIt) {
    Set("Recent Workspaces", "Workspace1", scratch.Windows("gone.__w"));
    Start();
    program->Answer(IDYES);
    program->Command(ID_RECENT_WORKSPACES);
    EXPECT_TRUE(scratch.Exists("gone.__w"));
    EXPECT_EQ(App().WorkspaceKind(), 2);
    EXPECT_EQ(Workspaces(), std::vector{scratch.Windows("gone.__w")});
}

TEST_F(RecentTest, KeepAnEntryWhoseOpeningWasCancelled) {
    scratch.CopyExample("blink");
    scratch.Write("a.asm", "; text\r\n");
    Set("Recent Workspaces", "Workspace1", scratch.Windows("blink/blink.__c"));
    Set("Workspace", "Load Last Workspace", 0);
    Start();
    CIDEDoc *document = Open("a.asm");
    Edit(document, "; more\r\n");
    program->Answer(IDCANCEL);
    program->Command(ID_RECENT_WORKSPACES);
    EXPECT_EQ(App().WorkspaceKind(), 0);
    EXPECT_EQ(Workspaces().size(), 1u);
    EXPECT_TRUE(document->IsModified());

    program->Answer(IDNO);
    program->Command(ID_RECENT_WORKSPACES);
    EXPECT_EQ(App().GetActiveProjectPath(), scratch.Windows("blink/blink.__c"));
    EXPECT_EQ(scratch.Read("a.asm"), "; text\r\n");
}

TEST_F(RecentTest, WorkspacesSwitchWithoutReopeningTheSame) {
    scratch.CopyExample("blink");
    scratch.CopyExample("greeting");
    scratch.Write("broken.__c", "[Settings]\r\nActive Compiler=Nobody\r\n");
    Set("Recent Workspaces", "Workspace1", scratch.Windows("broken.__c"));
    Set("Recent Workspaces", "Workspace2", scratch.Windows("greeting/greeting.__c"));
    Start({scratch.Native("blink/blink.__c")});
    Open("blink/main.asm");
    program->Command(ID_RECENT_WORKSPACES);  // blink itself
    EXPECT_EQ(program->ActiveFile(), "main.asm");

    program->Command(ID_RECENT_WORKSPACES + 2);
    EXPECT_EQ(App().GetActiveProjectPath(), scratch.Windows("greeting/greeting.__c"));
    EXPECT_TRUE(App().GetDocuments().empty());
    EXPECT_EQ(Workspaces().front(), scratch.Windows("greeting/greeting.__c"));

    program->Command(ID_RECENT_WORKSPACES + 2);  // broken
    EXPECT_EQ(App().WorkspaceKind(), 0);
    EXPECT_EQ(Workspaces(),
              (std::vector{scratch.Windows("greeting/greeting.__c"), scratch.Windows("blink/blink.__c")}));
    EXPECT_TRUE(Says(Line(IDS_TOOLSUITE_MISSING, {"Nobody", scratch.Native("broken.__c")}))) << program->BuildText();
}

TEST_F(RecentTest, ShowInTheirMenus) {
    scratch.Write("a-directory-with-a-long-name/a.asm", "; text\r\n");
    Start();
    ASSERT_TRUE(OpenMenu(Text(IDS_MENU_RECENT_FILES)));
    EXPECT_EQ(Texts(OpenMenu(Text(IDS_MENU_RECENT_FILES))).size(), 1u);
    EXPECT_FALSE(OpenMenu(Text(IDS_MENU_RECENT_FILES))->actions().front()->isEnabled());

    Open("a-directory-with-a-long-name/a.asm");
    OpenMenu("&File");
    QMenu *menu = OpenMenu(Text(IDS_MENU_RECENT_FILES));
    ASSERT_EQ(menu->actions().size(), 1);
    const QString text = menu->actions().front()->text();
    EXPECT_EQ(text.size(), 3 + 30);
    EXPECT_TRUE(text.startsWith("&1 /") && text.endsWith("long-name/a.asm")) << text.toStdString();
    program->Command(ID_FILE_CLOSE);
    menu->actions().front()->trigger();
    EXPECT_EQ(program->ActiveFile(), "a.asm");
}
