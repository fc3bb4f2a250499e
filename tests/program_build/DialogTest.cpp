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
#include "platform/ProgramDirectory.h"
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
    scratch.Write("demo/main.asm", "\tifndef __18F4520\n\terror \"another chip\"\n\tendif\nstart\tcode\t0\nmain\tnop\n\tend\n");
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
    scratch.Write("demo/main.asm", "\tinclude \"p16f628a.inc\"\n\tifdef FAST\n\tmessg \"fast it is\"\n\tendif\n\tcode\nmain\tnop\n\tend\n");
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

TEST_F(BuildProgram, TheCompilerDialogListsToolsuitesAndChangesNothingOnCancel) {
    WriteDemo();
    Start("demo/demo.__c");
    program->AnswerDialog([](QWidget &dialog) {
        const auto *list = dialog.findChild<QListWidget *>();
        EXPECT_EQ(list->findItems("Assembler", Qt::MatchExactly).size(), 1);
        Press(dialog, QDialogButtonBox::Cancel);
    });
    program->Command(ID_PROJECT_COMPILER);
    EXPECT_EQ(program->Frame().GetStatusText(kPaneCompiler), "Assembler");
    EXPECT_EQ(WorkspaceOrNone().GetCompilerName(), "Assembler");
}

}  // namespace
