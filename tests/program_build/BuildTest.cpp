// Build, rebuild and clean with the real toolsuite, batch files, tool steps and the build tool bar.
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolButton>
#include <QWindow>
#include <algorithm>

#include "BuildProgram.h"
#include "app/StringIds.h"
#include "build/BuildListBox.h"
#include "build/OutputBar.h"
#include "framework/Text.h"
#include "framework/ToolBar.h"

namespace {

// The control key, held down for the life of the object.
class ControlKey {
public:
    explicit ControlKey(QWidget &window) : window_(window.windowHandle()) {
        QTest::keyPress(window_, Qt::Key_Control, Qt::ControlModifier);
    }
    ~ControlKey() { QTest::keyRelease(window_, Qt::Key_Control); }

private:
    QWindow *window_;
};

TEST_F(BuildProgram, ExamplesBuildRebuildAndCleanWithoutAMessage) {
    for (const std::string name : {"blink", "greeting"}) {
        scratch.CopyExample(name);
        Start(name + "/" + name + ".__c");
        ASSERT_TRUE(program->Build());
        const int assembledFirst = ListCount("Assembling ");
        EXPECT_GT(assembledFirst, 1);
        EXPECT_FALSE(Failed()) << program->BuildText();
        EXPECT_EQ(program->BuildLines().front(), "Building " + name + ".__c...");
        EXPECT_TRUE(Contains(scratch.Read(name + "/makefile." + name), "Thornwell IDE 7"));
        program->Command(ID_NEXT_MESSAGE);
        program->Settle();
        EXPECT_EQ(program->ActiveView(), nullptr) << "a clean build has a message:\n" << program->BuildText();

        ASSERT_TRUE(program->Build());
        EXPECT_EQ(ListCount("Assembling "), 0) << "a second build has nothing to do\n" << program->BuildText();
        ASSERT_TRUE(program->Build(ID_REBUILD));
        EXPECT_EQ(ListCount("Assembling "), assembledFirst);
        {
            const ControlKey held(program->Frame());
            ASSERT_TRUE(program->Build());
        }
        EXPECT_EQ(ListCount("Assembling "), assembledFirst) << "Ctrl makes the build a rebuild";

        for (const char *extension : {".hex", ".cof", ".lst", ".map"})
            EXPECT_TRUE(scratch.Exists(name + "/Debug/" + name + extension));
        ASSERT_TRUE(program->Build(ID_CLEAN));
        EXPECT_EQ(program->BuildText(), "Cleaning...\nDone\n");
        for (const auto &left : std::filesystem::directory_iterator(scratch.Path() / name / "Debug"))
            EXPECT_EQ(left.path().extension(), ".brws") << "the symbols are no build's";
        program.reset();
    }
}

TEST_F(BuildProgram, SourcesAreFoundUnderTheSpellingOfAnotherSystem) {
    // As a project comes from a file system that doesn't tell cases apart.
    scratch.Write("demo/Demo.__c",
                  "[Settings]\r\nActive Compiler=Assembler\r\nActive Config=debug\r\nTarget=PIC16F628A\r\n"
                  "[Files]\r\nCount=2\r\nFile0=SRC\\MAIN.ASM\r\nFile1=lib/helper.asm\r\n");
    scratch.Write("demo/src/Main.asm",
                  "        include \"p16f628a.inc\"\r\n        extern helper\r\nstart   code 0\r\n"
                  "        pagesel helper\r\n        goto helper\r\n        end\r\n");
    scratch.Write("demo/Lib/Helper.asm",
                  "        include \"p16f628a.inc\"\r\n        global helper\r\n        code\r\nhelper\r\n"
                  "        goto helper\r\n        end\r\n");
    Start("demo/Demo.__c");
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(Failed()) << program->BuildText();
    EXPECT_TRUE(scratch.Exists("demo/Debug/Demo.hex")) << program->BuildText();

    scratch.Write("demo/src/Main.asm", "        include \"p16f628a.inc\"\r\n        movlq 1\r\n        end\r\n");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(Failed());
    program->Command(ID_NEXT_MESSAGE);
    program->Settle();
    EXPECT_EQ(SelectedLine(), 2) << program->BuildText();
}

TEST_F(BuildProgram, BatchFilesRunBeforeAndBehindTheMakeToolAndNotInAClean) {
    WriteProject("a dir/demo x.__c", {"main.asm"});
    scratch.Write("a dir/main.asm", kGoodSource);
    scratch.Write("a dir/prebuild.bat", "@echo off\r\nrem said before\r\necho before in $(pwd)\r\n");
    scratch.Write("a dir/postbuild.bat", "echo behind\nfor f in Debug/*.hex; do echo \"image $f\"; done\n");
    scratch.Write("prebuild.bat", "echo the wrong directory\n");
    Start("a dir/demo x.__c");
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(Failed()) << program->BuildText();
    const int before = LineWith("before in " + scratch.Native("a dir")), assembling = LineWith("Assembling main.asm"),
              behind = LineWith("behind"), image = LineWith("image Debug/demo x.hex");
    EXPECT_GE(before, 0) << program->BuildText();
    EXPECT_LT(before, assembling);
    EXPECT_LT(assembling, behind);
    EXPECT_LT(behind, image);
    EXPECT_FALSE(ListHas("wrong directory"));

    ASSERT_TRUE(program->Build(ID_CLEAN));
    EXPECT_FALSE(ListHas("before") || ListHas("behind")) << program->BuildText();
    EXPECT_FALSE(scratch.Exists("a dir/Debug/demo x.hex"));
}

TEST_F(BuildProgram, ALaterStepDoesNotRunBehindAMakeThatFails) {
    WriteDemo();
    scratch.Write("demo/main.asm", "\tinclude \"p16f628a.inc\"\n\tcode\n\tmovlq\t1\n\tend\n");
    scratch.Write("demo/postbuild.bat", "echo behind\n");
    Start("demo/demo.__c");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(Failed());
    EXPECT_TRUE(ListHas("Error: The output file Debug/demo.hex is missing.")) << program->BuildText();
    EXPECT_FALSE(ListHas("behind"));
    EXPECT_EQ(program->BuildLines().back(), "Build failed.");
    EXPECT_TRUE(program->IsEnabled(ID_BUILD));

    // A batch file that fails doesn't end the build: only missing outputs do.
    scratch.Write("demo/main.asm", kGoodSource);
    scratch.Write("demo/prebuild.bat", "exit 3\n");
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(Failed()) << program->BuildText();
    EXPECT_TRUE(ListHas("behind"));
}

TEST_F(BuildProgram, UnsavedChangesAreBuilt) {
    WriteDemo();
    Start("demo/demo.__c");
    ASSERT_TRUE(program->App().FindOrOpenDocument(scratch.Windows("demo/main.asm"), true));
    program->Settle();
    program->Type(" movlq 1 ;");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(Failed());
    EXPECT_TRUE(Contains(scratch.Read("demo/main.asm"), "movlq"));
    EXPECT_TRUE(ListHas("main.asm(1): Error[")) << program->BuildText();
}

TEST_F(BuildProgram, EachStepOfTheToolsMenuWorks) {
    scratch.CopyExample("blink");
    Start("blink/blink.__c");
    QMenu *tools = nullptr;
    for (QAction *top : program->Frame().menuBar()->actions())
        if (top->text() == "&Tools") tools = top->menu();
    ASSERT_NE(tools, nullptr);
    emit tools->aboutToShow();
    struct {
        const char *name;
        std::vector<std::string> leaves;
        const char *line;
    } const steps[] = {
        {"Assemble", {"Debug/main.o", "Debug/led.o", "Debug/timer.o"}, "Assembling main.asm"},
        {"Link", {"Debug/blink.hex", "Debug/blink.cof", "Debug/blink.lst", "Debug/blink.map"}, "Linking "},
        {"Library", {"Debug/blink.lib"}, ""},
        {"Disassemble", {"Debug/blink.dis"}, "Disassembling "},
        {"Memory usage", {}, "%"},
    };
    std::vector<QAction *> actions;
    for (QAction *action : tools->actions())
        if (!action->isSeparator()) actions.push_back(action);
    ASSERT_GE(actions.size(), std::size(steps));
    for (const auto &step : steps) {
        const auto action = std::ranges::find_if(actions, [&](QAction *each) { return each->text() == step.name; });
        ASSERT_NE(action, actions.end()) << step.name;
        ASSERT_TRUE((*action)->isEnabled()) << step.name;
        (*action)->trigger();
        ASSERT_TRUE(WaitForIdle()) << step.name;
        for (const std::string &file : step.leaves)
            EXPECT_TRUE(scratch.Exists("blink/" + file)) << step.name << " " << file;
        EXPECT_TRUE(ListHas(step.line)) << program->BuildText();
        EXPECT_TRUE(ListHas(step.name)) << "the step's title\n" << program->BuildText();
        EXPECT_FALSE(Failed()) << step.name << "\n" << program->BuildText();
    }
}

TEST_F(BuildProgram, AToolStepThatFailsTellsTheMissingOutput) {
    WriteDemo();
    scratch.Write("demo/main.asm",
                  "\tinclude \"p16f628a.inc\"\n\textern far_away\n\tcode\nmain\tcall far_away\n\tend\n");
    Start("demo/demo.__c");
    ASSERT_TRUE(program->Build(ID_STEP_SECOND_RUN));
    EXPECT_FALSE(Failed()) << program->BuildText();
    ASSERT_TRUE(program->Build(ID_STEP_FIFTH_RUN));
    EXPECT_TRUE(Failed());
    EXPECT_EQ(program->BuildLines().front(), "Linking the active project, demo.__c");
    EXPECT_TRUE(ListHas("main.asm(4): Error: Missing definition for symbol \"far_away\"")) << program->BuildText();
    EXPECT_TRUE(ListHas("Debug/demo.hex is missing"));

    // A step that the toolsuite doesn't have.
    EXPECT_FALSE(program->App().build.RunToolStep(40));
    EXPECT_EQ(program->BuildText(), "Error: The build can't be started.\n");
    EXPECT_TRUE(program->IsEnabled(ID_BUILD));
}

TEST_F(BuildProgram, TheBuildButtonBuildsAndRebuildsWithControlHeld) {
    WriteDemo();
    Start("demo/demo.__c");
    const auto button = [&]() -> QToolButton * {  // made afresh with each form of the bar
        for (QToolButton *each : program->Frame().BuildToolBar().findChildren<QToolButton *>())
            if (each->isVisible() && each->defaultAction() && each->defaultAction()->toolTip().startsWith("Build"))
                return each;
        return nullptr;
    };
    const auto click = [&](Qt::KeyboardModifiers modifiers) {
        program->Settle();  // the bar is laid out later
        const QToolButton *build = button();
        if (!build) return false;
        QTest::mouseClick(program->Frame().windowHandle(), Qt::LeftButton, modifiers,
                          build->mapTo(&program->Frame(), QPoint(8, build->height() / 2)));
        return program->WaitFor([&] { return ListHas("Building"); }) && WaitForIdle();
    };
    ASSERT_TRUE(click(Qt::NoModifier));
    EXPECT_EQ(ListCount("Assembling"), 1) << program->BuildText();
    ASSERT_TRUE(click(Qt::NoModifier));
    EXPECT_EQ(ListCount("Assembling"), 0);
    ASSERT_TRUE(click(Qt::ControlModifier));
    EXPECT_EQ(ListCount("Assembling"), 1);
}

TEST_F(BuildProgram, TheBuildToolBarFollowsWhatRuns) {
    WriteDemoWithPrebuild("echo going\nsleep 60\n");
    Start("demo/demo.__c");
    CXTToolBar &bar = program->Frame().BuildToolBar();
    EXPECT_EQ(bar.LoadedResource(), IDR_MAINFRAME);
    for (const int present : {ID_BUILD, ID_REBUILD_BUTTON, ID_STEP_SECOND_RUN, ID_STEP_FIFTH_RUN, ID_STEP_THIRD_RUN})
        EXPECT_TRUE(bar.HasButton(present)) << present;
    for (const int absent : {ID_STEP_FIRST_RUN, ID_STEP_FOURTH_RUN}) EXPECT_FALSE(bar.HasButton(absent)) << absent;
    EXPECT_FALSE(program->IsEnabled(ID_BUILD_STOP));

    program->Command(ID_BUILD);
    ASSERT_TRUE(WaitForLine("going"));
    EXPECT_EQ(bar.LoadedResource(), IDR_BUILD_RUNNING);
    EXPECT_TRUE(bar.HasButton(ID_BUILD_STOP));
    EXPECT_TRUE(program->IsEnabled(ID_BUILD_STOP));
    for (const int off : std::initializer_list<int>{ID_BUILD, ID_REBUILD, ID_REBUILD_BUTTON, ID_CLEAN, ID_BUILD_ALL,
                                                    ID_REBUILD_ALL, ID_CLEAN_ALL, ID_TOOL_STEPS, ID_TOOL_STEPS + 1,
                                                    ID_STEP_SECOND_RUN, ID_STEP_FIFTH_RUN})
        EXPECT_FALSE(program->IsEnabled(off)) << off;
    const std::string before = program->BuildText();
    for (const int command : std::initializer_list<int>{ID_BUILD, ID_CLEAN, ID_TOOL_STEPS + 1})
        program->Command(command);
    program->Settle();
    EXPECT_EQ(program->BuildText(), before) << "a command that is off did something";
    program->Command(ID_BUILD_STOP);
    ASSERT_TRUE(WaitForIdle());
    EXPECT_EQ(bar.LoadedResource(), IDR_MAINFRAME);

    std::filesystem::remove(scratch.Path() / "demo/prebuild.bat");
    const struct {
        int command, form, stop;
    } forms[] = {{ID_STEP_SECOND_RUN, IDR_BUILD_STEP_SECOND, ID_STEP_SECOND_STOP},
                 {ID_STEP_FIFTH_RUN, IDR_BUILD_STEP_FIFTH, ID_STEP_FIFTH_STOP}};
    for (const auto &form : forms) {
        program->Command(form.command);
        EXPECT_EQ(bar.LoadedResource(), form.form);
        EXPECT_TRUE(bar.HasButton(form.stop));
        EXPECT_TRUE(program->IsEnabled(form.stop));
        ASSERT_TRUE(WaitForIdle());
        EXPECT_FALSE(Failed()) << program->BuildText();
        EXPECT_EQ(bar.LoadedResource(), IDR_MAINFRAME);
    }

    program->Command(ID_WORKSPACE_CLOSE);
    EXPECT_FALSE(program->IsEnabled(ID_BUILD));
    EXPECT_FALSE(program->IsEnabled(ID_TOOL_STEPS));
}

}  // namespace
