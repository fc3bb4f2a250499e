#include <QApplication>
#include <QTabBar>
#include <QTest>
#include <QToolBar>

#include "ProgramTest.h"
#include "app/BarIds.h"
#include "build/OutputBar.h"
#include "editor/IDEView.h"
#include "framework/DockBar.h"
#include "framework/Text.h"

namespace {

constexpr const char *kEdit = "Edit Bar State", *kReset = "Reset Bar State", *kDebug = "Debug Bar State";

const struct {
    int command, bar;
} kDebugBars[] = {
    {ID_VIEW_REGISTER_BAR, kBarRegisters}, {ID_VIEW_WATCH_BAR, kBarWatch}, {ID_VIEW_RAM_BAR, kBarRam},
    {ID_VIEW_EEPROM_BAR, kBarEeprom},      {ID_VIEW_STACK_BAR, kBarStack}, {ID_VIEW_PROFILE_BAR, kBarProfile},
    {ID_VIEW_LISTING_BAR, kBarListing},
};

}  // namespace

class BarTest : public ProgramTest {
protected:
    CDockBar &Bar(int id) { return *Frame().findChild<CDockBar *>(QString("bar%1").arg(id, 4, 16)); }
    QToolBar &Strip(int id) { return *Frame().findChild<QToolBar *>(QString("bar%1").arg(id, 4, 16)); }
    bool HasFocus(QWidget &bar) {
        return &bar == QApplication::focusWidget() || bar.isAncestorOf(QApplication::focusWidget());
    }
    bool IsChecked(int command) { return QueryCommand(Frame(), command).checked.value_or(false); }
    bool ButtonIsDown(int command) {
        program->Settle();
        for (const QAction *button : Strip(kBarDebug).actions())
            if (button->data().toInt() == command) return button->isChecked();
        return false;
    }
    std::vector<uint8_t> Layout(const std::string &name) {
        return Store().ReadBinary(name, "State").value_or(std::vector<uint8_t>());
    }
    void SetLayout(const std::string &name, const std::vector<uint8_t> &state) {
        Store().WriteBinary(name, "State", state);
    }
};

TEST_F(BarTest, FollowsHoweverABarIsShownOrHidden) {
    scratch.Write("a.asm", "; text\r\n");
    Start({scratch.Native("a.asm")});
    program->Command(ID_VIEW_DEBUG_TOOL_BAR);
    for (const auto &[command, id] : kDebugBars) {
        CDockBar &bar = Bar(id);
        EXPECT_FALSE(bar.isVisible()) << id;
        EXPECT_FALSE(ButtonIsDown(command));
        program->Command(command);
        EXPECT_TRUE(bar.IsShowing()) << id;
        EXPECT_TRUE(HasFocus(bar)) << id;
        EXPECT_FALSE(qobject_cast<QTabBar *>(QApplication::focusWidget())) << id;
        EXPECT_TRUE(ButtonIsDown(command));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_TRUE(HasFocus(*program->ActiveView())) << id;
        EXPECT_TRUE(bar.IsShowing());
        bar.FocusContent();
        bar.close();  // by its own button
        EXPECT_FALSE(ButtonIsDown(command)) << id;
        EXPECT_TRUE(HasFocus(*program->ActiveView())) << "a bar that goes leaves the keyboard to the document";
    }

    CDockBar &front = Bar(kBarRegisters), &behind = Bar(kBarRam);
    program->Command(ID_VIEW_RAM_BAR);
    program->Command(ID_VIEW_REGISTER_BAR);
    EXPECT_TRUE(Frame().tabifiedDockWidgets(&front).contains(&behind));
    EXPECT_FALSE(ButtonIsDown(ID_VIEW_RAM_BAR)) << "it lies behind the other";
    program->Command(ID_VIEW_RAM_BAR);
    EXPECT_TRUE(behind.IsShowing()) << "the command brings it to the front";
    EXPECT_FALSE(ButtonIsDown(ID_VIEW_REGISTER_BAR));
    program->Command(ID_VIEW_RAM_BAR);
    EXPECT_TRUE(behind.isHidden());
    EXPECT_TRUE(ButtonIsDown(ID_VIEW_REGISTER_BAR));
}

TEST_F(BarTest, KeepsLayoutsOverTwoRuns) {
    Start();
    const std::vector<uint8_t> first = Layout(kReset);
    EXPECT_FALSE(first.empty());
    program->Command(ID_VIEW_WATCH_BAR);
    program->Command(ID_VIEW_STACK_BAR);
    Bar(kBarStack).setFloating(true);
    Frame().addDockWidget(Qt::LeftDockWidgetArea, &Bar(kBarWatch));
    program->Command(ID_VIEW_EDIT_TOOL_BAR);
    program->Command(ID_VIEW_STATUS_BAR);
    CloseAndEnd();

    Start();
    EXPECT_EQ(Layout(kReset), first) << "made once";
    EXPECT_TRUE(Bar(kBarWatch).isVisible());
    EXPECT_EQ(Frame().dockWidgetArea(&Bar(kBarWatch)), Qt::LeftDockWidgetArea);
    EXPECT_TRUE(Bar(kBarStack).isVisible() && Bar(kBarStack).isFloating());
    EXPECT_FALSE(Strip(kBarEdit).isVisible());
    EXPECT_FALSE(IsChecked(ID_VIEW_STATUS_BAR));
    program->Command(ID_RESET_BARS);
    EXPECT_TRUE(Bar(kBarWatch).isHidden());
    EXPECT_TRUE(Bar(kBarStack).isHidden());
    EXPECT_FALSE(Bar(kBarStack).isFloating());
    EXPECT_TRUE(Strip(kBarEdit).isVisible());
    EXPECT_TRUE(IsChecked(ID_VIEW_STATUS_BAR));
}

TEST_F(BarTest, RefusesForeignLayouts) {
    Start();
    CloseAndEnd();
    const std::vector<uint8_t> good = Layout(kEdit);
    std::vector<uint8_t> cut(good.begin(), good.begin() + static_cast<ptrdiff_t>(good.size() / 2)), bent = good,
                                                                                                    other = good;
    bent[good.size() / 2] ^= 0x40;
    other[3] += 1;
    std::vector<uint8_t> noise(good.size());
    for (size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<uint8_t>(i * i * 31 + i / 7);
    for (const auto &state : {cut, bent, other, noise, {}}) {
        for (const char *name : {kEdit, kReset, kDebug}) SetLayout(name, state);
        Start();
        EXPECT_TRUE(Frame().OutputBar().isVisible());
        EXPECT_TRUE(Bar(kBarRegisters).isHidden());
        EXPECT_EQ(Layout(kReset).size(), good.size()) << "one that is no use is made again";
        Frame().EnterDebugLayout();
        EXPECT_TRUE(Bar(kBarRegisters).IsShowing());
        program->Command(ID_VIEW_RAM_BAR);
        EXPECT_TRUE(Bar(kBarRam).IsShowing());
        Frame().LeaveDebugLayout();
        EXPECT_TRUE(Bar(kBarRam).isHidden());
        End();
    }
}

TEST_F(BarTest, HasALayoutForDebugging) {
    Start();
    Bar(kBarOutput).hide();
    program->Settle();
    Frame().EnterDebugLayout();
    program->Settle();
    EXPECT_TRUE(Strip(kBarDebug).isVisible());
    EXPECT_FALSE(Strip(kBarMacro).isVisible());
    for (const int id : {kBarRegisters, kBarWatch, kBarStack}) EXPECT_TRUE(Bar(id).IsShowing()) << id;
    for (const int id : {kBarRam, kBarEeprom, kBarListing, kBarProfile}) EXPECT_TRUE(Bar(id).isHidden()) << id;
    EXPECT_TRUE(ButtonIsDown(ID_VIEW_WATCH_BAR));
    Frame().SetStatusText(kPaneDebugTime, "12 us");
    program->Command(ID_VIEW_WATCH_BAR);
    program->Command(ID_VIEW_PROFILE_BAR);
    Frame().LeaveDebugLayout();
    EXPECT_TRUE(Bar(kBarOutput).isHidden());
    EXPECT_TRUE(Bar(kBarProfile).isHidden());
    EXPECT_EQ(Frame().GetStatusText(kPaneTarget), "");

    Frame().EnterDebugLayout();
    EXPECT_TRUE(Bar(kBarProfile).isVisible()) << "as the last debug run left it";
    EXPECT_TRUE(Bar(kBarWatch).isHidden());
    CloseAndEnd();
    Start();
    EXPECT_TRUE(Bar(kBarProfile).isHidden()) << "the layout of editing is back before it is saved";
    EXPECT_TRUE(Bar(kBarOutput).isHidden());
}

TEST_F(BarTest, FindsItsWindowOnASmallerScreen) {
    Start();
    Frame().setGeometry(90000, 70000, 500, 400);
    CloseAndEnd();
    Start();
    EXPECT_TRUE(Frame().screen()->availableGeometry().intersects(Frame().frameGeometry()));
    CDockBar &bar = Bar(kBarWatch);
    program->Command(ID_VIEW_WATCH_BAR);
    bar.setFloating(true);
    bar.move(90000, 70000);
    CloseAndEnd();
    Start();
    EXPECT_TRUE(Frame().screen()->availableGeometry().intersects(Bar(kBarWatch).frameGeometry()));
}

TEST_F(BarTest, ComesBackToWhereTheKeyboardWas) {
    scratch.Write("a.asm", "; text\r\n");
    Start({scratch.Native("a.asm")});
    const auto leaveAndReturn = [this] {
        QApplication::setActiveWindow(nullptr);
        program->Settle();
        QApplication::setActiveWindow(&Frame());
        program->Settle();
    };
    ASSERT_TRUE(HasFocus(*program->ActiveView()));
    leaveAndReturn();
    EXPECT_TRUE(HasFocus(*program->ActiveView()));
    Frame().OutputBar().FocusContent();
    ASSERT_TRUE(HasFocus(Frame().OutputBar()));
    leaveAndReturn();
    EXPECT_TRUE(HasFocus(Frame().OutputBar()));
    EXPECT_EQ(program->ActiveFile(), "a.asm");
}
