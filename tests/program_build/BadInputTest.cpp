// What a build does with projects, tools and directories that aren't as they should be.
#include <filesystem>

#include "BuildProgram.h"
#include "app/MainFrame.h"
#include "editor/IDEDoc.h"
#include "project/CurrentWorkspace.h"
#include "project/Workspace.h"

namespace fs = std::filesystem;

namespace {

TEST_F(BuildProgram, AMissingToolFailsTheBuildWithItsName) {
    for (const char *tool : {"twmake.exe", "pspawn.exe", "asmtool.exe"}) {
        SCOPED_TRACE(tool);
        CScratch home;
        const OwnProgramDirectory directory(home, {tool});
        WriteDemo();
        Start(home, {scratch.Native("demo/demo.__c")});
        ASSERT_TRUE(program->Build());
        EXPECT_TRUE(Failed()) << program->BuildText();
        EXPECT_TRUE(ListHas(tool)) << program->BuildText();
        EXPECT_TRUE(ListHas("Debug/demo.hex is missing"));
        EXPECT_TRUE(program->IsEnabled(ID_BUILD));
        program->Command(ID_BUILD_STOP);
        program->Settle();
        program.reset();
    }
}

// As on a machine on which these programs aren't installed.
class PathOf {
public:
    PathOf(const CScratch &scratch, const std::vector<std::string> &programs) : before_(getenv("PATH")) {
        const fs::path directory = scratch.Path() / "path";
        fs::create_directories(directory);
        for (const std::string &program : programs) fs::create_symlink("/usr/bin/" + program, directory / program);
        setenv("PATH", directory.c_str(), 1);
    }
    ~PathOf() { setenv("PATH", before_.c_str(), 1); }

private:
    const std::string before_;
};

TEST_F(BuildProgram, AMachineWithoutMakeOrAssemblerIsToldSo) {
    const struct {
        std::vector<std::string> programs;
        const char *words;
    } cases[] = {{{"gpasm", "gplink", "gplib", "gpdasm", "sh"}, "there is no \"make\" on PATH"},
                 {{"sh"}, "\"gputils\""}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.words);
        CScratch home;
        const PathOf path(home, c.programs);
        WriteDemo();
        const std::string project = scratch.Read("demo/demo.__c");
        Start(home, {scratch.Native("demo/demo.__c")});
        ASSERT_TRUE(program->Build());
        EXPECT_TRUE(Failed());
        EXPECT_TRUE(ListHas(c.words)) << program->BuildText();
        EXPECT_EQ(program->Frame().GetStatusText(kPaneTarget), "PIC16F628A");
        program.reset();
    }
}

TEST_F(BuildProgram, AProjectOfAnUnknownToolsuiteStaysAsItIs) {
    WriteProject("demo/demo.__c", {"main.asm"}, "PIC16F628A", "Larch");
    const std::string before = scratch.Read("demo/demo.__c");
    Start("demo/demo.__c");
    EXPECT_EQ(program->App().WorkspaceKind(), 0);
    EXPECT_TRUE(
        ListHas("The toolsuite 'Larch' of the project " + scratch.Native("demo/demo.__c") + " is not installed"))
        << program->BuildText();
    EXPECT_EQ(scratch.Read("demo/demo.__c"), before);
    EXPECT_FALSE(program->IsEnabled(ID_BUILD));
}

TEST_F(BuildProgram, AnUnknownTargetIsAskedAboutAndFailsTheBuildWhenItIsKept) {
    WriteProject("demo/demo.__c", {"main.asm"}, "PIC16F9999");
    scratch.Write("demo/main.asm", kGoodSource);
    Start();
    program->Answer(IDNO);
    ASSERT_TRUE(program->App().OpenWorkspace(scratch.Windows("demo/demo.__c").c_str(), false));
    EXPECT_EQ(program->Frame().GetStatusText(kPaneTarget), "PIC16F9999");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(Failed());
    EXPECT_TRUE(ListHas("does not know the target \"PIC16F9999\"")) << program->BuildText();
    EXPECT_TRUE(program->IsEnabled(ID_BUILD));
    ASSERT_TRUE(program->Build(ID_STEP_SECOND_RUN));
    EXPECT_TRUE(ListHas("does not know the target \"PIC16F9999\"")) << program->BuildText();

    program->Answer(IDYES);
    ASSERT_TRUE(program->App().OpenWorkspace(scratch.Windows("demo/demo.__c").c_str(), false));
    EXPECT_EQ(program->Frame().GetStatusText(kPaneTarget), "PIC16F628A");
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(Failed()) << program->BuildText();
    EXPECT_TRUE(Contains(scratch.Read("demo/demo.__c"), "Target=PIC16F628A"));
}

TEST_F(BuildProgram, WhatAMakefileCantBeMadeForFailsWithItsReason) {
    const struct {
        const char *what;
        std::vector<std::string> sources;
        std::string words;
    } cases[] = {
        {"a missing source", {"main.asm", "gone.asm"}, "gone.asm(0): Error: there is no such source file"},
        {"no sources", {}, "no assembler sources"},
        {"a source of another language", {"main.asm", "main.c"}, "main.c is no source of the Assembler toolsuite"},
        {"a missing library", {"main.asm", "gone.lib"}, "gone.lib"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        WriteProject("demo/demo.__c", c.sources);
        scratch.Write("demo/main.asm", kGoodSource);
        Start("demo/demo.__c");
        ASSERT_TRUE(program->Build());
        EXPECT_TRUE(Failed());
        EXPECT_TRUE(ListHas(c.words)) << program->BuildText();
        EXPECT_FALSE(scratch.Exists("demo/Debug/demo.hex"));
        EXPECT_TRUE(program->IsEnabled(ID_BUILD));
        program.reset();
    }
}

TEST_F(BuildProgram, PlacesThatMayNotBeWrittenFailTheBuildWithTheirName) {
    WriteDemo();
    fs::create_directories(scratch.Path() / "demo/makefile.demo");
    Start("demo/demo.__c");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(ListHas("The makefile " + scratch.Native("demo/makefile.demo") + " can't be written"))
        << program->BuildText();
    EXPECT_TRUE(Failed());
    ASSERT_TRUE(program->Build(ID_CLEAN));
    EXPECT_TRUE(Failed());
    fs::remove(scratch.Path() / "demo/makefile.demo");

    // A file where the output directory belongs.
    fs::remove_all(scratch.Path() / "demo/Debug");
    scratch.Write("demo/Debug", "a file of the user's");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(Failed()) << program->BuildText();
    EXPECT_EQ(scratch.Read("demo/Debug"), "a file of the user's");
    fs::remove(scratch.Path() / "demo/Debug");
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(Failed()) << program->BuildText();
}

TEST_F(BuildProgram, ABuildOfAProjectWhoseFilesVanishedFailsAndGoesOnWorking) {
    WriteDemo();
    Start("demo/demo.__c");
    ASSERT_TRUE(program->Build());
    fs::rename(scratch.Path() / "demo", scratch.Path() / "moved");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(Failed());
    EXPECT_FALSE(scratch.Exists("demo/demo.__c"));
    fs::remove_all(scratch.Path() / "demo");
    fs::rename(scratch.Path() / "moved", scratch.Path() / "demo");
    ASSERT_TRUE(program->Build(ID_REBUILD));
    EXPECT_FALSE(Failed()) << program->BuildText();
}

TEST_F(BuildProgram, ManyArgumentsOfTheCommandLineAreSeenUpToTheirLimit) {
    std::vector<std::string> arguments = {"-x", "/y"};
    for (int i = 0; i < 150; ++i) {
        const std::string name = "many/f" + std::to_string(i) + " .asm";
        scratch.Write(name, "\tend\n");
        arguments.push_back(scratch.Native(name));
    }
    Start(scratch, arguments);
    EXPECT_EQ(program->App().GetDocuments().size(), 97u) << "100, less the program's name and two switches";
}

}  // namespace
