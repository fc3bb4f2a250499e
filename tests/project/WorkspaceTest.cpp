#include "project/Workspace.h"

#include <boost/make_shared.hpp>

#include "ModelTest.h"
#include "build/Message.h"
#include "platform/PathCalls.h"
#include "project/CurrentWorkspace.h"
#include "project/ProjectSettings.h"
#include "project/ProjectWorkspace.h"

namespace {

class WorkspaceTest : public ModelTest {
protected:
    std::string WriteWorkspace(const std::string &lines) {
        Write("w/all.__w", "[Workspace]\r\n" + lines);
        return Path("w/all.__w");
    }
};

TEST_F(WorkspaceTest, LoadsWholeOrNotAtAll) {
    WriteProject("w/one.__c");
    WriteProject("two/two.__c");
    Write("w/bad.__c", "[Settings]\r\nActive Compiler=Nobody\r\n");
    struct {
        const char *lines;
        bool loads;
        size_t projects;
        const char *active;  // title, empty: none
    } const cases[] = {
        {"Count=2\r\nActive=1\r\nProj0=one.__c\r\nProj1=..\\two\\two.__c\r\n", true, 2, "two"},
        {"Count=2\r\nActive=2\r\nProj0=one.__c\r\nProj1=..\\two\\two.__c\r\n", true, 2, ""},
        {"Count=2\r\nActive=-1\r\nProj0=one.__c\r\nProj1=./ONE.__c\r\n", true, 1, ""},
        {"Count=1\r\nProj0=one.__c\r\nProj1=bad.__c\r\n", true, 1, "one"},
        {"Count=2\r\nActive=0\r\nProj0=one.__c\r\nProj1=bad.__c\r\n", false, 0, ""},
        {"Count=2\r\nActive=0\r\nProj0=one.__c\r\nProj1=missing.__c\r\n", false, 0, ""},
        {"Count=2000000000\r\nActive=0\r\nProj0=one.__c\r\n", true, 1, "one"},
        {"", true, 0, ""},
    };
    for (const auto &c : cases) {
        const std::string path = WriteWorkspace(c.lines);
        CWorkspace workspace;
        EXPECT_EQ(workspace.Load(path.c_str()), c.loads) << c.lines;
        EXPECT_EQ(workspace.GetProjects().size(), c.projects) << c.lines;
        const auto active = workspace.GetActiveProject();
        EXPECT_EQ(active ? active->GetTitle() : "", c.active) << c.lines;
    }
    CWorkspace workspace;
    EXPECT_FALSE(workspace.Load(WriteWorkspace("Count=1\r\nProj0=bad.__c\r\n").c_str()));
    EXPECT_EQ(workspace.GetLoadFailure().detail, "Nobody");
    EXPECT_EQ(workspace.GetLoadFailure().project, Path("w/bad.__c"));
    EXPECT_FALSE(workspace.Load(Path("w/none.__w").c_str()));
}

TEST_F(WorkspaceTest, ABinaryWorkspaceFileIsRefusedAndKept) {
    using namespace std::string_literals;
    const std::string body = "PK\3\4\0\0[Workspace]\nCount=0\n"s;
    Write("w/all.__w", body);
    CWorkspace workspace;
    EXPECT_FALSE(workspace.Load(Path("w/all.__w").c_str()));
    EXPECT_EQ(workspace.GetLoadFailure().reason, ProjectLoadFailure::Reason::notAProject);
    EXPECT_EQ(Read("w/all.__w"), body);
}

TEST_F(WorkspaceTest, AProjectIsFoundUnderAnySpelling) {
    WriteProject("w/one.__c");
    WriteProject("two/two.__c");
    CWorkspace workspace(Path("w/all.__w").c_str());
    ASSERT_TRUE(workspace.AddProject(Path("w/one.__c"), true, true));
    ASSERT_TRUE(workspace.AddProject("..\\two\\two.__c", false, true));
    struct {
        std::string name;
        const char *title;
    } const cases[] = {
        {"", "one"},
        {"one.__c", "one"},
        {"./ONE.__C", "one"},
        {Path("w/one.__c"), "one"},
        {Path("two/../w/one.__c"), "one"},
        {"../two/two.__c", "two"},
        {Path("TWO/two.__c"), "two"},
        {"two.__c", ""},
        {"three.__c", ""},
    };
    for (const auto &c : cases) {
        const auto project = workspace.FindProject(c.name);
        EXPECT_EQ(project ? project->GetTitle() : "", c.title) << c.name;
    }
    EXPECT_TRUE(workspace.AddProject("./one.__c", false, true));
    EXPECT_TRUE(workspace.AddProject(Path("two/TWO.__c"), true, true));
    EXPECT_EQ(workspace.GetProjects().size(), 2u) << "asked for again, a project only becomes active";
    EXPECT_EQ(workspace.GetActiveProject()->GetTitle(), "two");
    EXPECT_EQ(workspace.ProjectFullPath({}), Path("two/two.__c"));

    workspace.RemoveProject("ONE.__c");
    EXPECT_EQ(workspace.FindProject("one.__c"), nullptr);
}

TEST_F(WorkspaceTest, TheActiveDirectoryIsGivenAsAFullPath) {
    WriteProject("two/two.__c");
    Write("w/readme", "");
    CWorkspace workspace(Path("w/all.__w").c_str());
    ASSERT_TRUE(workspace.AddProject("..\\two\\two.__c", true, true));
    EXPECT_EQ(workspace.GetActiveDirectory(), Path("two") + "\\") << "the directory of the stored name";
    ASSERT_TRUE(workspace.SetActiveDirectory({}, Path("w")));
    EXPECT_EQ(workspace.GetActiveDirectory(), Path("w"));
}

TEST_F(WorkspaceTest, SaveWritesTheListInTheOldPlaceOfKeys) {
    WriteProject("w/one.__c");
    WriteProject("two/two.__c");
    const std::string path =
        WriteWorkspace("; mine\r\nCount=3\r\nActive=0\r\nProj0=one.__c\r\nProj1=..\\two\\two.__c\r\nProj2=one.__c\r\n");
    CWorkspace workspace;
    ASSERT_TRUE(workspace.Load(path.c_str()));
    workspace.RemoveProject("one.__c");
    workspace.SetActiveProject("..\\two\\two.__c");
    workspace.Save();
    EXPECT_EQ(Read("w/all.__w"),
              "[Workspace]\r\n; mine\r\nCount=1\r\nActive=0\r\nProj0=..\\two\\two.__c\r\n"
              "Proj1=..\\two\\two.__c\r\nProj2=one.__c\r\n");
}

TEST_F(WorkspaceTest, AStandAloneProjectGivesItsPlaceToTheNext) {
    const std::string one = WriteProject("one.__c"), two = WriteProject("two.__c", "Count=1\r\nFile0=a.c\r\n");
    CProjectWorkspace workspace(one.c_str());
    ASSERT_TRUE(workspace.AddProject(one, true, true));
    EXPECT_EQ(workspace.GetActiveProject()->GetStoredName(), "one.__c");
    EXPECT_EQ(workspace.ProjectFullPath({}), one);
    ASSERT_TRUE(workspace.AddProject(two, true, true));
    EXPECT_EQ(workspace.GetProjects().size(), 1u);
    EXPECT_EQ(workspace.GetFileList(), std::vector<std::string>{"a.c"});
    workspace.Save();
    EXPECT_EQ(Read("one.__c").find("[Workspace]"), std::string::npos);
}

TEST_F(WorkspaceTest, AChangeOfConfigurationReachesEveryProject) {
    WriteProject("w/one.__c");
    WriteProject("w/two.__c");
    CWorkspace workspace;
    ASSERT_TRUE(workspace.Load(WriteWorkspace("Count=2\r\nProj0=one.__c\r\nProj1=two.__c\r\n").c_str()));
    workspace.SetActiveConfig("Speed");
    EXPECT_EQ(workspace.GetActiveConfigName("two.__c"), "Debug");
    workspace.SetActiveConfig("RELEASE");
    EXPECT_EQ(workspace.GetActiveConfigName("two.__c"), "Release");
    EXPECT_NE(Read("w/one.__c").find("Active Config=Release"), std::string::npos);
}

TEST_F(WorkspaceTest, ProjectCallsRunInTheWorkspaceDirectoryWithTheProjectsPaths) {
    WriteProject("two/two.__c");
    CWorkspace workspace(Path("w/all.__w").c_str());
    Write("w/all.__w", "");
    ASSERT_TRUE(workspace.AddProject(Path("two/two.__c"), true, true));
    const std::string before = GetCurrentDirectoryA();
    EXPECT_TRUE(workspace.IsValidTarget({}, "PIC16F628"));
    EXPECT_FALSE(workspace.IsValidTarget("..\\two\\two.__c", "PIC99"));
    EXPECT_EQ(Recorder().calls.back(), "IsValidTarget: " + Path("two/two.__c") + " PIC99");
    EXPECT_EQ(Recorder().directory, Path("w"));
    EXPECT_EQ(GetCurrentDirectoryA(), before);

    QWidget *pages[2] = {};
    EXPECT_TRUE(workspace.Configure({}, nullptr, pages, 2));
    EXPECT_EQ(Recorder().calls.back(), "Configure: " + Path("two/two.__c") + " " + Path("two/two.Debug.__f") + " 2");
    ToolCommand command;
    command.inputs = {"a.c"};
    ASSERT_TRUE(workspace.GetToolCmdLine({}, 1, command));
    EXPECT_EQ(command.command, "tool1 a.c");
    EXPECT_EQ(command.extra, 7);
}

TEST_F(WorkspaceTest, WithoutAProjectEveryCallGivesItsNeutralResult) {
    CWorkspace workspace(Path("w/all.__w").c_str());
    std::string text = "as it was";
    CStringList list;
    ToolCommand command;
    EXPECT_FALSE(workspace.HasFile({}, "a.c"));
    EXPECT_FALSE(workspace.RemoveFile({}, "a.c"));
    EXPECT_TRUE(workspace.GetFileList().empty());
    EXPECT_EQ(workspace.GetMakefilePath(), "");
    EXPECT_EQ(workspace.GenMake({}, text, false), nullptr);
    EXPECT_FALSE(workspace.SetTarget({}, "X"));
    EXPECT_EQ(workspace.GetTarget(), "");
    EXPECT_EQ(workspace.GetDefaultTarget(), "PIC16F84");
    EXPECT_EQ(workspace.GetCompilerName(), "LarkC");
    EXPECT_EQ(workspace.GetToolName(), "");
    EXPECT_EQ(workspace.GetActiveConfig(), nullptr);
    EXPECT_EQ(workspace.SelectTarget({}, nullptr, text), 2);
    EXPECT_EQ(workspace.GetToolsNumber(), 0);
    EXPECT_FALSE(workspace.GetKeywords({}, 1, text));
    EXPECT_FALSE(workspace.GetToolCmdLine({}, 0, command));
    EXPECT_EQ(workspace.ProjectFullPath({}), "");
    EXPECT_EQ(text, "as it was");
}

TEST_F(WorkspaceTest, NewProjectsTakeTheTargetOfTheActiveOne) {
    EXPECT_EQ(CProject(Path("n.__c")).GetTarget(), "PIC16F628");
    CurrentWorkspace() = boost::make_shared<CProjectWorkspace>(Path("p.__c").c_str());
    WriteProject("p.__c", {}, "Target=SX28\r\n");
    ASSERT_TRUE(CurrentWorkspace()->AddProject(Path("p.__c"), true, true));
    EXPECT_EQ(CProject(Path("n.__c")).GetTarget(), "SX28");
}

TEST_F(WorkspaceTest, ProjectSettingsFollowTheActiveProject) {
    SetProjectString("Settings", "ClockRate", "1");
    EXPECT_EQ(GetProjectInt("Settings", "ClockRate", 4000000), 0) << "no project, no default";
    EXPECT_EQ(GetProjectString("Settings", "ClockRate", "x"), "");
    WriteProject("w/one.__c");
    WriteProject("w/two.__c");
    CurrentWorkspace() = boost::make_shared<CWorkspace>();
    ASSERT_TRUE(CurrentWorkspace()->Load(WriteWorkspace("Count=2\r\nProj0=one.__c\r\nProj1=two.__c\r\n").c_str()));
    SetProjectString("Settings", "ClockRate", "20000000");
    EXPECT_EQ(GetProjectInt("Settings", "ClockRate", 4000000), 20000000);
    CurrentWorkspace()->SetActiveProject("two.__c");
    EXPECT_EQ(GetProjectInt("Settings", "ClockRate", 4000000), 4000000);
}

}  // namespace
