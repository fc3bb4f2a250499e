#include "navigation/WorkspaceBar.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>
#include <QMainWindow>
#include <QToolBar>
#include <QToolButton>

#include "TreeHost.h"
#include "app/CommandIds.h"
#include "navigation/ProjectTree.h"
#include "navigation/TabBrowseView.h"
#include "navigation/TabTodoView.h"

static TreeHost *theHost;  // of the bar that was made last

// The bar takes its host from here in place of the program's.
std::unique_ptr<CWorkspaceBarHost> MakeWorkspaceBarHost() {
    auto host = std::make_unique<TreeHost>();
    host->projects = {MakeProject("\\w", "blink.__c", true, {"main.asm"})};
    theHost = host.get();
    return host;
}

TEST(WorkspaceBar, RedrawsAfterTheLastOfNestedLocks) {
    QMainWindow window;
    CWorkspaceBar bar("Workspace", &window);
    bar.SetRedraw(false);
    bar.SetRedraw(false);
    bar.Fill();
    bar.SetRedraw(true);
    EXPECT_FALSE(bar.Tree().updatesEnabled());
    bar.SetRedraw(true);
    EXPECT_TRUE(bar.Tree().updatesEnabled());
    bar.SetRedraw(true);  // one too many
    bar.SetRedraw(false);
    EXPECT_FALSE(bar.Tree().updatesEnabled());
    EXPECT_EQ(bar.Tree().Rows().rowCount(), 1);
}

TEST(WorkspaceBar, ShowsItsLabelAndItsTabs) {
    QMainWindow window;
    auto *bar = new CWorkspaceBar("Workspace", &window);
    window.addDockWidget(Qt::LeftDockWidgetArea, bar);
    window.show();
    bar->SetTitle("Workspace - Stand Alone Project Mode");
    bool shown = false;
    for (const QLabel *label : bar->findChildren<QLabel *>())
        shown |= label->isVisible() && label->text() == "Workspace - Stand Alone Project Mode";
    EXPECT_TRUE(shown);

    EXPECT_EQ(bar->GetView(CWorkspaceBar::kTabProjects), &bar->Tree());
    EXPECT_EQ(bar->GetView(CWorkspaceBar::kTabSymbols), bar->GetView<CTabBrowseView>());
    EXPECT_EQ(bar->GetView(CWorkspaceBar::kTabTodo), bar->GetView<CTabTodoView>());
    EXPECT_EQ(bar->GetView(3), nullptr);
    EXPECT_EQ(bar->GetView<QLabel>(), nullptr);
}

TEST(WorkspaceBar, GroupsTheSymbols) {
    QMainWindow window;
    auto *bar = new CWorkspaceBar("Workspace", &window);
    window.addDockWidget(Qt::LeftDockWidgetArea, bar);
    window.show();
    const auto buttons = [&] {
        QCoreApplication::processEvents();  // the tool bar lays itself out later
        std::vector<std::string> shown;
        for (const QToolButton *button : bar->findChild<QToolBar *>()->findChildren<QToolButton *>())
            if (button->isVisible() && !button->text().isEmpty()) shown.push_back(button->text().toStdString());
        return shown;
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(buttons(), Texts{}) << "on the tab of the projects";
    bar->ShowTab(CWorkspaceBar::kTabSymbols);
    EXPECT_EQ(buttons(), Texts{"Group by Category"});

    EXPECT_TRUE(SendCommand(*bar, ID_GROUP_BY_FILE));
    EXPECT_EQ(buttons(), Texts{"Group by File"});
    EXPECT_EQ(theHost->TakeCalls(), Texts{"grouping 2"});
    EXPECT_EQ(QueryCommand(*bar, ID_GROUP_BY_FILE).checked, true);
    EXPECT_EQ(QueryCommand(*bar, ID_GROUP_BY_CATEGORY).checked, false);

    bar->ApplyGrouping(0);
    EXPECT_EQ(bar->Grouping(), 2);
    bar->ApplyGrouping(3);
    EXPECT_EQ(bar->Grouping(), 2);
    bar->ApplyGrouping(1);
    EXPECT_EQ(buttons(), Texts{"Group by Category"});
    EXPECT_EQ(theHost->TakeCalls(), Texts{}) << "comes from the project's file";

    theHost->projects.clear();
    EXPECT_FALSE(SendCommand(*bar, ID_GROUP_BY_FILE));
    EXPECT_EQ(buttons(), Texts{"Group by Category"});
    bar->ShowTab(CWorkspaceBar::kTabTodo);
    EXPECT_EQ(buttons(), Texts{});
}
