// The dialogs of compiler, target, options and build steps, and what a build makes of their answers.
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>

#include "BuildProgram.h"
#include "app/MainFrame.h"
#include "app/Settings.h"
#include "framework/Text.h"
#include "framework/ToolBar.h"
#include "project/CurrentWorkspace.h"
#include "project/Workspace.h"

namespace {

void Press(QWidget &dialog, QDialogButtonBox::StandardButton button) {
    dialog.findChild<QDialogButtonBox *>()->button(button)->click();
}

QWidget *Page(QWidget &dialog, const char *title) {
    auto *tabs = dialog.findChild<QTabWidget *>();
    for (int i = 0; tabs && i < tabs->count(); ++i)
        if (tabs->tabText(i) == title) return tabs->widget(i);
    return nullptr;
}

TEST_F(BuildProgram, TheTargetDialogChangesWhatIsBuiltFor) {
    WriteDemo();
    scratch.Write("demo/main.asm",
                  "\tifndef __18F4520\n\terror \"another chip\"\n\tendif\nstart\tcode\t0\nmain\tnop\n\tend\n");
    Start("demo/demo.__c");
    program->AnswerDialog([](QWidget &dialog) {
        dialog.findChild<QLineEdit *>()->setText("18f4520");
        Press(dialog, QDialogButtonBox::Cancel);
    });
    program->Command(ID_PROJECT_TARGET);
    EXPECT_EQ(program->Frame().GetStatusText(kPaneTarget), "PIC16F628A");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(Failed());

    program->AnswerDialog([](QWidget &dialog) {
        dialog.findChild<QLineEdit *>()->setText("18f4520");
        Press(dialog, QDialogButtonBox::Ok);
    });
    program->Command(ID_PROJECT_TARGET);
    EXPECT_EQ(program->Frame().GetStatusText(kPaneTarget), "PIC18F4520");
    EXPECT_TRUE(Contains(scratch.Read("demo/demo.__c"), "Target=PIC18F4520"));
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(Failed()) << program->BuildText();
}

TEST_F(BuildProgram, TheProjectOptionsReachTheAssemblerAndTheirCancelKeepsAll) {
    WriteDemo();
    scratch.Write(
        "demo/main.asm",
        "\tinclude \"p16f628a.inc\"\n\tifdef FAST\n\tmessg \"fast it is\"\n\tendif\n\tcode\nmain\tnop\n\tend\n");
    Start("demo/demo.__c");
    const auto fill = [](QWidget &dialog) {
        dialog.findChildren<QListWidget *>()[0]->item(0)->setText("FAST=1");
        ASSERT_NE(Page(dialog, "Debugger"), nullptr);
        Page(dialog, "Debugger")->findChild<QCheckBox *>()->setChecked(false);
        Page(dialog, "Debugger")->findChild<QComboBox *>()->setCurrentIndex(3);
        ASSERT_NE(Page(dialog, "Browser"), nullptr);
        const auto boxes = Page(dialog, "Browser")->findChildren<QCheckBox *>();
        EXPECT_FALSE(boxes[0]->isEnabled()) << "the toolsuite has no further headers";
        boxes[1]->setChecked(false);
    };
    const std::string project = scratch.Read("demo/demo.__c");
    program->AnswerDialog([&](QWidget &dialog) {
        fill(dialog);
        Press(dialog, QDialogButtonBox::Cancel);
    });
    program->Command(ID_PROJECT_OPTIONS);
    EXPECT_EQ(scratch.Read("demo/demo.__c"), project);
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(ListHas("fast it is"));

    program->AnswerDialog([&](QWidget &dialog) {
        fill(dialog);
        Press(dialog, QDialogButtonBox::Ok);
    });
    program->Command(ID_PROJECT_OPTIONS);
    for (const char *line : {"UseSableHeaders=0", "DebugFromMain=0"})
        EXPECT_TRUE(Contains(scratch.Read("demo/demo.__c"), line)) << scratch.Read("demo/demo.__c");
    EXPECT_EQ(GetUserInt("Debugger", "DefWatchFormat", 0), 3);
    EXPECT_TRUE(Contains(scratch.Read("demo/demo.Debug.__f"), "Defines=FAST=1")) << scratch.Read("demo/demo.Debug.__f");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(ListHas("main.asm(3): Message[301]")) << program->BuildText();

    // Options belong to the configuration.
    program->Frame().ConfigBox().SetCurSel(program->Frame().ConfigBox().FindStringExact("Release"));
    program->Command(ID_CONFIG_SELECT);
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(ListHas("fast it is")) << program->BuildText();
    EXPECT_TRUE(scratch.Exists("demo/Release/demo.hex"));
}

TEST_F(BuildProgram, TheBuildOptionsChooseTheStepsOfABuild) {
    WriteDemo();
    Start("demo/demo.__c");
    const auto check = [](QWidget &dialog, const char *step, bool on) {
        auto *list = dialog.findChild<QListWidget *>();
        const auto items = list->findItems(step, Qt::MatchExactly);
        ASSERT_EQ(items.size(), 1) << step;
        items[0]->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    };
    program->AnswerDialog([&](QWidget &dialog) {
        check(dialog, "Disassemble", true);
        Press(dialog, QDialogButtonBox::Cancel);
    });
    program->Command(ID_BUILD_OPTIONS);
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(scratch.Exists("demo/Debug/demo.dis"));

    program->AnswerDialog([&](QWidget &dialog) {
        check(dialog, "Disassemble", true);
        check(dialog, "Memory usage", false);
        Press(dialog, QDialogButtonBox::Ok);
    });
    program->Command(ID_BUILD_OPTIONS);
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(scratch.Exists("demo/Debug/demo.dis")) << program->BuildText();

    // Applied at once.
    program->AnswerDialog([&](QWidget &dialog) {
        check(dialog, "Link", false);
        Press(dialog, QDialogButtonBox::Apply);
        Press(dialog, QDialogButtonBox::Cancel);
    });
    program->Command(ID_BUILD_OPTIONS);
    ASSERT_TRUE(program->Build(ID_CLEAN));
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(Failed()) << program->BuildText();
    EXPECT_TRUE(scratch.Exists("demo/Debug/main.o"));
    EXPECT_FALSE(scratch.Exists("demo/Debug/demo.hex"));
}

TEST_F(BuildProgram, OptionsThatCantBeWrittenAreNotLostSilently) {
    WriteDemo();
    Start("demo/demo.__c");
    std::filesystem::create_directories(scratch.Path() / "demo/demo.Debug.__f");
    program->AnswerDialog([](QWidget &dialog) { Press(dialog, QDialogButtonBox::Ok); });
    program->Answer(IDOK);
    program->AnswerDialog([](QWidget &dialog) { Press(dialog, QDialogButtonBox::Cancel); });  // the sheet, once more
    program->Command(ID_PROJECT_OPTIONS);
    ASSERT_EQ(program->Boxes().size(), 1u);
    EXPECT_TRUE(Contains(program->Boxes()[0], scratch.Native("demo/demo.Debug.__f"))) << program->Boxes()[0];
}

TEST_F(BuildProgram, AnotherCompilerBringsItsTargetItsButtonsAndItsBuild) {
    CScratch home;
    const OwnProgramDirectory directory(home);
    std::filesystem::create_symlink(PLAIN_TOOLSUITE, directory.Path() / "plain.dll");
    WriteDemo();
    Start(home, {scratch.Native("demo/demo.__c")});
    program->AnswerDialog([](QWidget &dialog) {
        auto *list = dialog.findChild<QListWidget *>();
        ASSERT_EQ(list->count(), 2);
        list->setCurrentItem(list->findItems("Plain", Qt::MatchExactly)[0]);
        Press(dialog, QDialogButtonBox::Cancel);
    });
    program->Command(ID_PROJECT_COMPILER);
    EXPECT_EQ(program->Frame().GetStatusText(kPaneCompiler), "Assembler");

    const auto choose = [](const char *name) {
        return [name](QWidget &dialog) {
            auto *list = dialog.findChild<QListWidget *>();
            list->setCurrentItem(list->findItems(name, Qt::MatchExactly)[0]);
            Press(dialog, QDialogButtonBox::Ok);
        };
    };
    program->AnswerDialog(choose("Plain"));
    program->Answer(IDOK);  // the warning about the target
    program->Command(ID_PROJECT_COMPILER);
    EXPECT_TRUE(Contains(program->Boxes().back(), "PIC16F628A"));
    EXPECT_EQ(program->Frame().GetStatusText(kPaneCompiler), "Plain");
    EXPECT_EQ(program->Frame().GetStatusText(kPaneTarget), "PIC16F84");
    for (const char *line : {"Active Compiler=Plain", "Target=PIC16F84"})
        EXPECT_TRUE(Contains(scratch.Read("demo/demo.__c"), line)) << scratch.Read("demo/demo.__c");
    for (const int gone : {ID_BUILD, ID_STEP_SECOND_RUN, ID_STEP_FIFTH_RUN})
        EXPECT_FALSE(program->Frame().BuildToolBar().HasButton(gone)) << gone;
    EXPECT_FALSE(program->IsEnabled(ID_PROJECT_OPTIONS));
    program->AnswerDialog([](QWidget &dialog) {
        EXPECT_EQ(dialog.findChild<QListWidget *>()->count(), 0);
        Press(dialog, QDialogButtonBox::Ok);
    });
    program->Command(ID_BUILD_OPTIONS);
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(Failed());
    EXPECT_TRUE(ListHas("The toolsuite of the project demo.__c")) << program->BuildText();

    program->AnswerDialog(choose("Assembler"));
    program->Command(ID_PROJECT_COMPILER);
    EXPECT_TRUE(program->Frame().BuildToolBar().HasButton(ID_BUILD));
    program.reset();
}

TEST_F(BuildProgram, ASystemLibraryForTheTargetIsAddedAndLinked) {
    WriteProject("tools/tools.__c", {"helper.asm"});
    scratch.Write("tools/helper.asm", "\tinclude \"p16f628a.inc\"\n\tglobal helper\n\tcode\nhelper\treturn\n\tend\n");
    Start("tools/tools.__c");
    ASSERT_TRUE(program->Build(ID_STEP_SECOND_RUN));
    ASSERT_TRUE(program->Build(ID_TOOL_STEPS + 2));
    ASSERT_TRUE(scratch.Exists("tools/Debug/tools.lib")) << program->BuildText();
    program.reset();

    CScratch home;
    const OwnProgramDirectory directory(home, {"Lib"});
    for (const char *name :
         {"Lib/tools_pic16.lib", "Lib/other_pic18.lib", "Lib/large/tools_PIC16.lib", "Lib/readme.txt"})
        home.Write(std::string("program/") + name, scratch.Read("tools/Debug/tools.lib"));
    std::filesystem::create_directories(directory.Path() / "Lib/dir_pic16.lib");
    WriteDemo();
    scratch.Write("demo/main.asm", "\tinclude \"p16f628a.inc\"\n\textern helper\n\tcode\nmain\tcall\thelper\n\tend\n");
    Start(home, {scratch.Native("demo/demo.__c")});
    program->AnswerDialog([](QWidget &dialog) {
        auto *list = dialog.findChild<QListWidget *>();
        ASSERT_EQ(list->count(), 2);
        EXPECT_EQ(list->item(0)->text(), "tools_pic16.lib");
        EXPECT_EQ(list->item(1)->text(), "large\\tools_PIC16.lib");
        list->setCurrentRow(0);
        Press(dialog, QDialogButtonBox::Cancel);
    });
    program->Command(ID_PROJECT_ADD_LIBRARY);
    EXPECT_EQ(WorkspaceOrNone().GetFileList().size(), 1u);
    for (int again = 0; again < 2; ++again) {
        program->AnswerDialog([](QWidget &dialog) {
            dialog.findChild<QListWidget *>()->setCurrentRow(0);
            Press(dialog, QDialogButtonBox::Ok);
        });
        if (again) program->Answer(IDOK);  // it is in the project already
        program->Command(ID_PROJECT_ADD_LIBRARY);
        EXPECT_EQ(WorkspaceOrNone().GetFileList().size(), 2u);
    }
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(Failed()) << program->BuildText();
    EXPECT_TRUE(Contains(scratch.Read("demo/Debug/demo.map"), "helper")) << program->BuildText();
    program.reset();
}

}  // namespace
