#include "navigation/WorkspaceBar.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QMainWindow>
#include <QTabBar>

#include "TreeHost.h"
#include "navigation/ProjectTree.h"

// The bar takes its host from here in place of the program's.
std::unique_ptr<CWorkspaceBarHost> MakeWorkspaceBarHost() {
    auto host = std::make_unique<TreeHost>();
    host->projects = {MakeProject("\\w", "blink.__c", true, {"main.asm"})};
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

TEST(WorkspaceBar, ShowsItsLabelAndNoTabOfOnlyOne) {
    QMainWindow window;
    auto *bar = new CWorkspaceBar("Workspace", &window);
    window.addDockWidget(Qt::LeftDockWidgetArea, bar);
    window.show();
    bar->SetTitle("Workspace - Stand Alone Project Mode");
    EXPECT_FALSE(bar->findChild<QTabBar *>()->isVisible());
    bool shown = false;
    for (const QLabel *label : bar->findChildren<QLabel *>())
        shown |= label->isVisible() && label->text() == "Workspace - Stand Alone Project Mode";
    EXPECT_TRUE(shown);
}
