#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QDropEvent>
#include <QMdiArea>
#include <QMenu>
#include <QMimeData>
#include <QTabBar>
#include <QUrl>

#include "ProgramTest.h"
#include "build/OutputBar.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/MDIChildWnd.h"
#include "framework/MDITabs.h"
#include "framework/Text.h"
#include "navigation/WorkspaceBar.h"
#include "project/Workspace.h"

class FrameTest : public ProgramTest {
protected:
    CMDITabs *Tabs() {
        for (QTabBar *bar : Frame().findChildren<QTabBar *>())
            if (auto *tabs = dynamic_cast<CMDITabs *>(bar)) return tabs;
        return nullptr;
    }
    bool TabsAtTop() { return Tabs()->shape() == QTabBar::RoundedNorth && Tabs()->y() < Frame().Client()->y(); }
    bool TabsAtBottom() { return Tabs()->shape() == QTabBar::RoundedSouth && Tabs()->y() > Frame().Client()->y(); }

    void Drop(const std::vector<std::string> &names, QWidget *target = nullptr) {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string &name : names) urls << QUrl::fromLocalFile(ToQString(scratch.Native(name)));
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (!target) target = &Frame();
        QCoreApplication::sendEvent(target, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &drop);
        program->Settle();
    }
};

TEST_F(FrameTest, ComposesItsTitle) {
    scratch.CopyExample("");
    scratch.CopyExample("blink");
    scratch.CopyExample("greeting");
    scratch.Write("none.__w", "[Workspace]\r\nCount=0\r\n");
    Start();
    const std::string title = Text(IDS_APP_TITLE);
    EXPECT_EQ(Title(), title);
    ASSERT_TRUE(App().OpenWorkspace(scratch.Windows("blink/blink.__c").c_str(), false));
    EXPECT_EQ(Title(), title + " - blink");
    ASSERT_TRUE(App().OpenWorkspace(scratch.Windows("examples.__w").c_str(), true));
    EXPECT_EQ(Title(), title + " - blink (examples)");
    ASSERT_TRUE(App().OpenWorkspace(scratch.Windows("none.__w").c_str(), true));
    EXPECT_EQ(Title(), title + " - none");

    Open("blink/main.asm");
    Frame().MDIGetActive()->showMaximized();
    program->Settle();
    EXPECT_EQ(Title(), title + " - none") << "a maximised child leaves the title alone";
    Frame().setWindowTitle("something else");
    EXPECT_EQ(Title(), title + " - none");
    App().CloseWorkspace();
    EXPECT_EQ(Title(), title);
}

TEST_F(FrameTest, PutsTheTabsAtOneEdge) {
    scratch.Write("a.asm", "; text\r\n");
    const struct {
        int state, top, bottom;
        bool shown, atTop;
    } cases[] = {
        {1, 1, 0, true, true}, {1, 0, 1, true, false},  {1, 0, 0, true, true}, {1, 1, 1, true, true},
        {5, 9, 0, true, true}, {0, 0, 1, false, false}, {1, 0, 7, true, true},
    };
    for (const auto &each : cases) {
        Set("MDITabs", "State", each.state);
        Set("MDITabs", "Top", each.top);
        Set("MDITabs", "Bottom", each.bottom);
        Start({scratch.Native("a.asm")});
        EXPECT_EQ(Tabs()->isVisible(), each.shown);
        if (each.shown) {
            EXPECT_EQ(TabsAtTop(), each.atTop) << each.top << each.bottom;
            EXPECT_EQ(TabsAtBottom(), !each.atTop) << each.top << each.bottom;
        }
        CloseAndEnd();
        EXPECT_EQ(SettingNumber("MDITabs", "State"), each.shown);
        EXPECT_EQ(SettingNumber("MDITabs", "Top"), each.atTop);
        EXPECT_EQ(SettingNumber("MDITabs", "Bottom"), !each.atTop);
    }
}

TEST_F(FrameTest, MovesAndHidesTheTabs) {
    scratch.Write("a.asm", "; text\r\n");
    Start({scratch.Native("a.asm")});
    EXPECT_EQ(QueryCommand(Frame(), ID_TABS_TOGGLE).text, Text(IDS_TABS_OFF));
    program->Command(ID_TABS_BOTTOM);
    program->Settle();
    EXPECT_TRUE(TabsAtBottom());
    program->Command(ID_TABS_TOGGLE);
    EXPECT_FALSE(Tabs()->isVisible());
    EXPECT_EQ(QueryCommand(Frame(), ID_TABS_TOGGLE_TWIN).text, Text(IDS_TABS_ON));
    program->Command(ID_TABS_TOP);  // takes its side, but stays off
    EXPECT_FALSE(Tabs()->isVisible());
    program->Command(ID_TABS_TOGGLE_TWIN);
    program->Settle();
    EXPECT_TRUE(Tabs()->isVisible());
    EXPECT_TRUE(TabsAtTop());
    EXPECT_TRUE(QueryCommand(Frame(), ID_TABS_TOP).checked.value_or(false));
}

TEST_F(FrameTest, KeepsItsBarsOverTwoRuns) {
    Start();
    const struct {
        int command;
        QWidget *bar;
    } bars[] = {{ID_VIEW_WORKSPACE_BAR, &Frame().WorkspaceBar()},
                {ID_VIEW_OUTPUT_BAR, &Frame().OutputBar()},
                {ID_VIEW_BUILD_TOOL_BAR, &Frame().BuildToolBar()}};
    for (const auto &[command, bar] : bars) {
        EXPECT_TRUE(bar->isVisible());
        EXPECT_EQ(QueryCommand(Frame(), command).checked, true);
        program->Command(command);
        EXPECT_FALSE(bar->isVisible());
        EXPECT_EQ(QueryCommand(Frame(), command).checked, false);
    }
    program->Command(ID_VIEW_OUTPUT_BAR);
    EXPECT_TRUE(Frame().OutputBar().isVisible());
    Frame().addDockWidget(Qt::RightDockWidgetArea, &Frame().WorkspaceBar());
    Frame().resize(1111, 777);
    program->Settle();
    CloseAndEnd();

    Start();
    EXPECT_FALSE(Frame().WorkspaceBar().isVisible());
    EXPECT_FALSE(Frame().BuildToolBar().isVisible());
    EXPECT_TRUE(Frame().OutputBar().isVisible());
    EXPECT_EQ(Frame().dockWidgetArea(&Frame().WorkspaceBar()), Qt::RightDockWidgetArea);
    EXPECT_EQ(Frame().size(), QSize(1111, 777));

    App().AddOutputLine(nullptr);
    program->Command(ID_RESET_BARS);
    EXPECT_EQ(program->BuildLines(), (std::vector<std::string>{"Resetting bar layout...", Text(IDS_BARS_RESET)}));
    EXPECT_TRUE(Frame().WorkspaceBar().isVisible()) << "the layout of the very first run";
    EXPECT_TRUE(Frame().BuildToolBar().isVisible());
    EXPECT_EQ(Frame().dockWidgetArea(&Frame().WorkspaceBar()), Qt::LeftDockWidgetArea);
}

TEST_F(FrameTest, ListsItsWindows) {
    for (const char *name : {"a.asm", "b.asm", "c.asm"}) scratch.Write(name, "; text\r\n");
    Start();
    const size_t without = Texts(OpenMenu(Text(IDS_MENU_WINDOW))).size();
    EXPECT_FALSE(program->IsEnabled(ID_WINDOW_CASCADE));
    for (const char *name : {"a.asm", "b.asm", "c.asm"}) Open(name);
    OpenMenu(Text(IDS_MENU_WINDOW));
    QMenu *menu = OpenMenu(Text(IDS_MENU_WINDOW));
    ASSERT_EQ(Texts(menu).size(), without + 3);
    const QList<QAction *> entries = menu->actions().last(3);
    EXPECT_EQ(FromQString(entries[0]->text()), "&1 " + scratch.Native("a.asm"));
    for (QAction *entry : entries) {
        EXPECT_TRUE(entry->isEnabled());
        EXPECT_EQ(entry->isChecked(), entry == entries[2]);
    }
    entries[0]->trigger();
    EXPECT_EQ(program->ActiveFile(), "a.asm");
    program->Command(ID_WINDOW_NEXT);
    EXPECT_EQ(program->ActiveFile(), "b.asm");
    program->Command(ID_WINDOW_PREV);
    program->Command(ID_WINDOW_PREV);
    EXPECT_EQ(program->ActiveFile(), "c.asm");

    program->Command(ID_WINDOW_TILE_HORZ);
    for (const CMDIChildWnd *child : Frame().Children())
        EXPECT_EQ(child->width(), Frame().Client()->viewport()->width());
    program->Command(ID_FILE_CLOSE);
    EXPECT_EQ(Frame().Children().size(), 2u);
    Edit(program->ActiveDocument(), "; more\r\n");
    program->Answer(IDCANCEL);
    program->Command(ID_WINDOW_CLOSE_ALL);
    EXPECT_EQ(Frame().Children().size(), 2u);
    program->Answer(IDNO);
    program->Command(ID_WINDOW_CLOSE_ALL);
    EXPECT_TRUE(App().GetDocuments().empty());
    EXPECT_EQ(Texts(OpenMenu(Text(IDS_MENU_WINDOW))).size(), without);
}

TEST_F(FrameTest, ListsTheStepsOfTheToolsuite) {
    scratch.CopyExample("blink");
    Start();
    QMenu *menu = OpenMenu(Text(IDS_MENU_TOOLS));
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_FALSE(menu->actions().front()->isEnabled());
    ASSERT_TRUE(App().OpenWorkspace(scratch.Windows("blink/blink.__c").c_str(), false));
    for (int opened = 0; opened < 2; ++opened) menu = OpenMenu(Text(IDS_MENU_TOOLS));
    EXPECT_EQ(menu->actions().size(), App().workspace->GetToolsNumber());
    EXPECT_GT(menu->actions().size(), 1);
    EXPECT_EQ(FromQString(menu->actions().front()->text()), App().workspace->GetToolActionName("", 0));
    EXPECT_TRUE(menu->actions().front()->isEnabled());
    EXPECT_EQ(program->BuildText().find("Internal error"), std::string::npos);
}

TEST_F(FrameTest, OpensWhatIsDropped) {
    scratch.CopyExample("blink");
    Start();
    Drop({"blink/main.asm", "blink/led.asm"});
    EXPECT_EQ(App().GetDocuments().size(), 2u);
    auto *component = ViewOf(Open("blink/main.asm")).findChild<QAbstractScrollArea *>();
    const std::string text = program->ActiveDocument()->GetText();
    Drop({"blink/board.inc"}, component->viewport());
    EXPECT_EQ(program->ActiveFile(), "board.inc") << "a file dropped on a source opens";
    EXPECT_EQ(static_cast<CIDEDoc *>(App().FindOrOpenDocument(scratch.Windows("blink/main.asm"), false))->GetText(),
              text);
    Drop({"blink/blink.__c"});
    EXPECT_EQ(App().GetActiveProjectPath(), scratch.Windows("blink/blink.__c"));
    EXPECT_TRUE(App().GetDocuments().empty());
}
