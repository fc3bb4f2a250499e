// Builds of all projects of a workspace, and the question about the RTOS's linker switch.
#include <QTest>

#include "BuildProgram.h"
#include "app/StringIds.h"
#include "framework/ToolBar.h"

namespace {

class WorkspaceBuild : public BuildProgram {
protected:
    void WriteProjects() {
        for (const std::string name : {"one", "two", "three"}) {
            WriteProject(name + "/" + name + ".__c", {"main.asm"});
            scratch.Write(name + "/main.asm", kGoodSource);
        }
        scratch.Write("all.__w",
                      "[Workspace]\nCount=3\nActive=1\nProj0=one\\one.__c\nProj1=two\\two.__c\n"
                      "Proj2=three\\three.__c\n");
    }
    bool HasImage(const std::string &name) { return scratch.Exists(name + "/Debug/" + name + ".hex"); }
    void AddRtosTo(const std::string &name) { WriteProject(name + "/" + name + ".__c", {"main.asm", "SableTiny.LIB"}); }
    std::string Config(const std::string &name) { return scratch.Read(name + "/" + name + ".Debug.__f"); }
};

TEST_F(WorkspaceBuild, AllProjectsAreBuiltRebuiltAndCleaned) {
    WriteProjects();
    Start("all.__w");
    ASSERT_TRUE(program->Build(ID_BUILD_ALL));
    EXPECT_FALSE(Failed()) << program->BuildText();
    for (const char *name : {"one", "two", "three"}) EXPECT_TRUE(HasImage(name)) << program->BuildText();
    EXPECT_EQ(ListCount("Assembling main.asm"), 3);
    ASSERT_TRUE(program->Build(ID_BUILD_ALL));
    EXPECT_EQ(ListCount("Assembling main.asm"), 0);
    ASSERT_TRUE(program->Build(ID_REBUILD_ALL));
    EXPECT_EQ(ListCount("Assembling main.asm"), 3);
    ASSERT_TRUE(program->Build(ID_CLEAN_ALL));
    EXPECT_EQ(ListCount("Done"), 3) << program->BuildText();
    for (const char *name : {"one", "two", "three"}) EXPECT_FALSE(HasImage(name)) << name;

    // The active project alone.
    ASSERT_TRUE(program->Build(ID_BUILD));
    EXPECT_TRUE(HasImage("two"));
    EXPECT_FALSE(HasImage("one") || HasImage("three"));
}

TEST_F(WorkspaceBuild, AProjectThatFailsEndsTheBuildOfAll) {
    WriteProjects();
    scratch.Write("two/main.asm", "\tinclude \"p16f628a.inc\"\n\tcode\nmain\tmovlq\t1\n\tend\n");
    Start("all.__w");
    ASSERT_TRUE(program->Build(ID_BUILD_ALL));
    EXPECT_TRUE(Failed());
    EXPECT_TRUE(HasImage("one"));
    EXPECT_FALSE(HasImage("two") || HasImage("three"));
    EXPECT_TRUE(ListHas("main.asm(3): Error[181]")) << program->BuildText();
    DoubleClickLine(LineWith("Error[181]"));
    EXPECT_EQ(SelectedLine(), 3);
}

TEST_F(WorkspaceBuild, AProjectWithoutMakefileIsToldAndDoesNotStopTheOthers) {
    WriteProjects();
    WriteProject("two/two.__c", {"main.asm", "main.c"});
    Start("all.__w");
    ASSERT_TRUE(program->Build(ID_BUILD_ALL));
    EXPECT_TRUE(ListHas("main.c is no source of the Assembler toolsuite")) << program->BuildText();
    EXPECT_TRUE(HasImage("one"));
    EXPECT_TRUE(HasImage("three"));
    EXPECT_TRUE(program->IsEnabled(ID_BUILD_ALL));
}

TEST_F(WorkspaceBuild, TheRtosQuestionTakesThreeAnswers) {
    const struct {
        BoxResult answer;
        bool builds, addsSwitch;
    } cases[] = {{IDCANCEL, false, false}, {IDNO, true, false}, {IDYES, true, true}};
    for (const auto &c : cases) {
        SCOPED_TRACE(static_cast<int>(c.answer));
        WriteProjects();
        AddRtosTo("one");
        scratch.Write("one/one.Debug.__f", "[Linker]\nExtra=-q\n");
        Start("one/one.__c");
        program->App().AddOutputLine("left alone");
        program->Answer(c.answer);
        program->Command(ID_BUILD);
        ASSERT_TRUE(WaitForIdle());
        EXPECT_EQ(program->Boxes().size(), 1u);
        EXPECT_EQ(ListHas("left alone"), !c.builds) << program->BuildText();
        EXPECT_EQ(ListHas("Building one.__c..."), c.builds);
        EXPECT_EQ(Contains(Config("one"), "Extra=-q -swcs"), c.addsSwitch) << Config("one");
        EXPECT_EQ(Contains(Config("one"), "SableCheck=0"), c.builds) << Config("one");

        // Asked once per configuration, before the linker's step too, and never for a clean.
        program->Command(ID_CLEAN);
        ASSERT_TRUE(WaitForIdle());
        if (!c.builds) program->Answer(IDCANCEL);
        program->Command(ID_STEP_FIFTH_RUN);
        ASSERT_TRUE(WaitForIdle());
        EXPECT_EQ(program->Boxes().size(), c.builds ? 1u : 2u);
        program.reset();
        std::filesystem::remove_all(scratch.Path() / "one");
    }
}

// The first project's steps have come to their end when the user answers for the second.
TEST_F(WorkspaceBuild, AQuestionThatOutlastsTheFirstProjectDoesNotHoldUpTheSecond) {
    WriteProjects();
    AddRtosTo("two");
    scratch.Write("two/sabletiny.lib", "");
    Start("all.__w");
    program->AnswerDialog([this](QWidget &box) {
        ASSERT_TRUE(program->WaitFor([this] { return HasImage("one") && program->App().messageList.IsEmpty(); }));
        box.close();
    });
    program->Command(ID_BUILD_ALL);
    ASSERT_TRUE(WaitForIdle());
    EXPECT_TRUE(HasImage("three")) << program->BuildText();
    EXPECT_FALSE(HasImage("two"));
    EXPECT_TRUE(program->IsEnabled(ID_BUILD_ALL));
    EXPECT_EQ(program->Frame().BuildToolBar().LoadedResource(), IDR_MAINFRAME);
}

TEST_F(WorkspaceBuild, AStandAloneProjectIsAllProjects) {
    WriteProjects();
    Start("one/one.__c");
    ASSERT_TRUE(program->IsEnabled(ID_BUILD_ALL));
    ASSERT_TRUE(program->Build(ID_BUILD_ALL));
    EXPECT_TRUE(HasImage("one"));
    EXPECT_FALSE(Failed());
}

}  // namespace
