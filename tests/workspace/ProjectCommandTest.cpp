#include <QComboBox>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "WorkspaceProgram.h"
#include "app/ClockRate.h"
#include "framework/Text.h"
#include "platform/Profile.h"
#include "plugins/PluginInstance.h"
#include "project/CurrentWorkspace.h"
#include "project/ProjectCommands.h"
#include "project/Workspace.h"

namespace {

using ProjectCommands = WorkspaceProgram;

// Notes the clock rates that a plug-in hears of.
class CClockListener : public CPluginInstance {
public:
    explicit CClockListener(std::vector<int> &told) : told_(told) {}
    void ClockRate(int hertz) override { told_.push_back(hertz); }
    void Start() override {}
    void Stop() override {}
    void KeepState() override {}
    void Clock(int, int) override {}
    void Instruction(int, int) override {}
    void Reset() override {}
    void Step(bool) override {}
    void LoadState() override {}

private:
    std::vector<int> &told_;
};

void Accept(QWidget &dialog) {
    QMetaObject::invokeMethod(&dialog, "accept");
}

TEST_F(ProjectCommands, FilesAreAddedAndRemovedByTheirCommands) {
    ASSERT_TRUE(Open("blink/blink.__c"));
    scratch.Write("blink/sub/one.asm", "\tend\n");
    const size_t before = WorkspaceOrNone().GetFileList().size();
    PickFile("blink/sub/one.asm");
    program.Command(ID_PROJECT_ADD_FILES);
    program.Settle();
    EXPECT_TRUE(WorkspaceOrNone().HasFile({}, "sub\\one.asm"));
    EXPECT_NE(scratch.Read("blink/blink.__c").find("=sub\\one.asm"), std::string::npos);
    EXPECT_NE(scratch.Read("blink/blink.__c").find("Last Ext=asm"), std::string::npos);

    PickFile("blink/sub/one.asm");
    program.Answer(IDOK);
    program.Command(ID_PROJECT_ADD_FILES);
    program.Settle();
    EXPECT_EQ(WorkspaceOrNone().GetFileList().size(), before + 1);

    PickFile("blink/fresh.asm");
    program.Command(ID_PROJECT_ADD_NEW_FILE);
    program.Settle();
    EXPECT_EQ(program.ActiveFile(), "fresh.asm");
    EXPECT_EQ(scratch.Read("blink/fresh.asm"), WorkspaceOrNone().EmptySrcContent({}, "fresh"));
    EXPECT_TRUE(program.IsEnabled(ID_PROJECT_REMOVE_FILE));
    program.Answer(IDYES);
    program.Command(ID_PROJECT_REMOVE_FILE);
    EXPECT_FALSE(WorkspaceOrNone().HasFile({}, "fresh.asm"));
    EXPECT_TRUE(scratch.Exists("blink/fresh.asm"));
    EXPECT_FALSE(program.IsEnabled(ID_PROJECT_REMOVE_FILE));
}

TEST_F(ProjectCommands, ANewProjectComesWithItsFirstSource) {
    ASSERT_TRUE(Open("blink/blink.__c"));
    PickFile("fresh.__c");
    program.AnswerDialog([](QWidget &dialog) {
        EXPECT_EQ(dialog.findChild<QComboBox *>()->currentText(), "Assembler");
        dialog.findChild<QListWidget *>()->setCurrentRow(1);
        Accept(dialog);
    });
    program.Command(ID_PROJECT_NEW);
    program.Settle();
    EXPECT_EQ(program.App().GetActiveProjectPath(), scratch.Windows("fresh.__c"));
    EXPECT_EQ(program.App().WorkspaceKind(), 1);
    const std::string source = "fresh" + WorkspaceOrNone().GetFilterExt();
    EXPECT_EQ(WorkspaceOrNone().GetFileList(), std::vector<std::string>{source});
    EXPECT_EQ(scratch.Read(source), WorkspaceOrNone().EmptySrcContent({}, "fresh"));

    scratch.Write("other.asm", "mine");
    ASSERT_TRUE(OpenBoth());
    PickFile("other.__c");
    program.AnswerDialog([](QWidget &dialog) {
        dialog.findChild<QListWidget *>()->setCurrentRow(1);
        Accept(dialog);
    });
    program.Answer(IDNO);
    program.Command(ID_PROJECT_NEW_INTO);
    EXPECT_EQ(WorkspaceOrNone().GetProjects().size(), 3u);
    EXPECT_EQ(program.App().GetActiveProjectPath(), scratch.Windows("other.__c"));
    EXPECT_EQ(scratch.Read("other.asm"), "mine");
    EXPECT_TRUE(WorkspaceOrNone().GetFileList().empty());
}

TEST_F(ProjectCommands, ANewProjectInThePlaceOfTheOpenOneIsEmpty) {
    ASSERT_TRUE(Open("blink/blink.__c"));
    program.App().bookmarks.Add(scratch.Windows("blink/main.asm"), 7, false);
    PickFile("blink/blink.__c");
    program.Answer(IDYES);
    program.AnswerDialog([](QWidget &dialog) {
        dialog.findChild<QListWidget *>()->setCurrentRow(0);
        Accept(dialog);
    });
    program.Command(ID_PROJECT_NEW);
    program.Settle();
    EXPECT_EQ(program.App().GetActiveProjectPath(), scratch.Windows("blink/blink.__c"));
    EXPECT_TRUE(WorkspaceOrNone().GetFileList().empty());
    EXPECT_TRUE(program.App().bookmarks.Markers().empty());
}

TEST_F(ProjectCommands, TheCompilerDialogInsistsOnASelection) {
    ASSERT_TRUE(Open("blink/blink.__c"));
    program.AnswerDialog([](QWidget &dialog) {
        auto *list = dialog.findChild<QListWidget *>();
        ASSERT_NE(list->currentItem(), nullptr);
        EXPECT_EQ(list->currentItem()->text(), "Assembler");
        list->setCurrentItem(nullptr);
        QTimer::singleShot(0, &dialog, [&dialog] { Accept(dialog); });
    });
    program.Answer(IDOK);
    program.AnswerDialog([](QWidget &dialog) {
        dialog.findChild<QListWidget *>()->setCurrentRow(0);
        Accept(dialog);
    });
    program.Command(ID_PROJECT_COMPILER);
    EXPECT_EQ(WorkspaceOrNone().GetCompilerName(), "Assembler");
}

TEST_F(ProjectCommands, BuildOptionsListTheSteps) {
    ASSERT_TRUE(Open("blink/blink.__c"));
    program.AnswerDialog([](QWidget &dialog) {
        const auto *list = dialog.findChild<QListWidget *>();
        ASSERT_EQ(list->count(), WorkspaceOrNone().GetToolsNumber());
        EXPECT_EQ(FromQString(list->item(0)->text()), WorkspaceOrNone().GetToolActionName({}, 0));
        EXPECT_EQ(list->item(0)->checkState() == Qt::Checked, WorkspaceOrNone().IsToolActive({}, 0));
        Accept(dialog);
    });
    program.Command(ID_BUILD_OPTIONS);
}

TEST_F(ProjectCommands, TheOptionsShowTheHostsPagesAndKeepThem) {
    ASSERT_TRUE(Open("blink/blink.__c"));
    program.AnswerDialog([this](QWidget &dialog) {
        // As a toolsuite does whose sheet offers the target as well.
        WritePrivateProfileStringA("Settings", "Target", "PIC16F877A", scratch.Windows("blink/blink.__c").c_str());
        Accept(dialog);
    });
    program.Command(ID_PROJECT_OPTIONS);
    EXPECT_EQ(WorkspaceOrNone().GetTarget(), "PIC16F877A");
    EXPECT_EQ(program.Frame().GetStatusText(kPaneTarget), "PIC16F877A");
    const std::string file = scratch.Read("blink/blink.__c");
    for (const char *line : {"UseSysHeaders=1", "UseSableHeaders=1", "DebugFromMain=1"})
        EXPECT_NE(file.find(line), std::string::npos) << file;
}

TEST_F(ProjectCommands, TheClockRateIsKeptInTheProjectAndShown) {
    EXPECT_FALSE(program.IsEnabled(ID_CLOCK_RATE));
    ASSERT_TRUE(Open("blink/blink.__c"));
    const auto enter = [this](const char *rate, const char *expectedStart) {
        program.AnswerDialog([=](QWidget &dialog) {
            auto *box = dialog.findChild<QComboBox *>();
            QPushButton *ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            EXPECT_EQ(box->currentText(), expectedStart);
            box->setEditText("4.5 MHertz");
            EXPECT_FALSE(ok->isEnabled());
            box->setEditText(rate);
            ok->click();
        });
        program.Command(ID_CLOCK_RATE);
    };
    enter("4 MHz", "4000000");
    EXPECT_EQ(program.Frame().GetStatusText(kPaneClock), "4 MHz");
    enter("3.6864 MHz", "4000000");
    EXPECT_EQ(program.Frame().GetStatusText(kPaneClock), "3.68 MHz");
    EXPECT_NE(scratch.Read("blink/blink.__c").find("ClockRate=3686400"), std::string::npos);
    CPluginBar &plugin = program.Frame().PluginBar(3);
    CPluginBar &hidden = program.Frame().PluginBar(4);
    std::vector<int> told;
    for (CPluginBar *bar : {&plugin, &hidden}) {
        bar->Attach(new QWidget, "Lamp", 1, std::make_unique<CClockListener>(told));
    }
    plugin.show();
    hidden.hide();
    enter("20000000", "3686400");
    EXPECT_EQ(told, std::vector{20000000});
    EXPECT_EQ(program.Frame().GetStatusText(kPaneClock), "20 MHz");
}

TEST(ClockRate, IsReadAndShownInItsUnits) {
    struct {
        const char *text;
        long rate;  // -1: refused
        const char *exact, *shown;
    } const cases[] = {
        {"4000000", 4000000, "4 MHz", "4 MHz"},
        {" 20 mhz ", 20000000, "20 MHz", "20 MHz"},
        {"3,6864M", 3686400, "3.6864 MHz", "3.68 MHz"},
        {"4.05 MHz", 4050000, "4.05 MHz", "4.5 MHz"},  // as the status bar has always written it
        {"32.768 kHz", 32768, "32.768 kHz", "0.3 MHz"},
        {"0", 0, "0 Hz", "0 MHz"},
        {"999.0 Hz", 999, "999 Hz", "0.0 MHz"},
        {"1000 MHz", 1000000000, "1000 MHz", "1000 MHz"},
        {"1000000001", -1, "", ""},
        {"99999999999999999999999", -1, "", ""},
        {"1.5", -1, "", ""},
        {"1.2.3 MHz", -1, "", ""},
        {"-4 MHz", -1, "", ""},
        {"MHz", -1, "", ""},
        {". MHz", -1, "", ""},
        {"4 MHz 5", -1, "", ""},
        {"", -1, "", ""},
    };
    for (const auto &c : cases) {
        const auto rate = ParseClockRate(c.text);
        EXPECT_EQ(rate.value_or(-1), c.rate) << c.text;
        if (!rate) continue;
        EXPECT_EQ(ExactClockRate(*rate), c.exact);
        EXPECT_EQ(ClockRateText(*rate), c.shown);
    }
}

}  // namespace
