#include "navigation/CallTreeView.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

#include "CodeWindowProgram.h"
#include "platform/Profile.h"

namespace {

const std::string kCalls =
    "main : \"main.asm\", line = 27 {\n"
    "  led_start : \"LED.asm\", line = 14 { }\n"
    "  gone : \"gone.asm\", line = 3 { }\n"
    "  far : \"c:far.asm\", line = 3 { }\n"
    "  stir : \".\\r_hren.asm\", line = 3 { }\n"
    "}\n"
    "interrupt : \".\\timer.asm\", line = 20 { }\n";

class CallTreeView : public CodeWindowProgram {
protected:
    // "main(led_start gone)" with "-" behind a folded row.
    std::string Rows(TreeItem parent = nullptr) {
        std::string text;
        for (int i = 0; i < Tree().GetChildCount(parent); ++i) {
            const TreeItem item = Tree().GetChild(i, parent);
            text += (i ? " " : "") + Tree().GetItemText(item);
            if (Tree().GetChildCount(item)) text += (Tree().IsExpanded(item) ? "(" : "-(") + Rows(item) + ")";
        }
        return text;
    }
    std::string JumpFrom(TreeItem item) {
        program.App().AddOutputLine(nullptr);
        Tree().SelectItem(item);
        QTest::keyClick(&Tree(), Qt::Key_Return);
        program.Settle();
        const std::string place = TakePlace();
        return place == "none" ? LastLine() : place;
    }
};

}  // namespace

TEST_F(CallTreeView, ShowsTheTreeOfTheActiveConfigurationsBuild) {
    EXPECT_EQ(Rows(), "");
    Leave("Debug/blink.tree", kCalls, 60);
    EXPECT_EQ(Rows(), "main(led_start gone far stir) interrupt");

    Tree().Expand(Tree().GetChild(0), false);
    Leave("Debug/blink.tree", "other:\"x.c\",line=1{}", 60);  // by its time the file that is on show
    EXPECT_EQ(Rows(), "main-(led_start gone far stir) interrupt");
    Leave("Debug/blink.tree", "other:\"x.c\",line=1{}", 30);
    EXPECT_EQ(Rows(), "other");
    Leave("Debug/blink.tree", "other:\"x.c\",line=1{", 20);
    EXPECT_EQ(Rows(), "");
    Leave("Debug/blink.tree", "", 10);
    EXPECT_EQ(Rows(), "");
    Leave("Debug/blink.tree", kCalls);
    EXPECT_EQ(Rows(), "main(led_start gone far stir) interrupt");
    std::filesystem::remove(scratch.Native("blink/Debug/blink.tree"));
    Bar().LoadAll(true);
    EXPECT_EQ(Rows(), "");
    Leave("Debug/blink.tree", kCalls);
    program.App().CloseWorkspace();
    EXPECT_EQ(FindView<CCallTreeView>(), nullptr);
}

TEST_F(CallTreeView, LeadsToSources) {
    Leave("Debug/blink.tree", kCalls);
    const TreeItem main = Tree().GetChild(0);
    KnowFunction("led_start", "led.asm", 20);  // where it is by now
    KnowFunction("interrupt", "main.asm", 5);  // another function of that name
    program.App().symbols.Maps().Functions.erase("main");
    EXPECT_EQ(JumpFrom(main), "main.asm 27");
    EXPECT_EQ(JumpFrom(Tree().GetChild(0, main)), "led.asm 20");
    EXPECT_EQ(JumpFrom(Tree().GetChild(1)), "timer.asm 20");
    EXPECT_EQ(JumpFrom(Tree().GetChild(1, main)), "The source of 'gone' can't be shown");
    EXPECT_EQ(JumpFrom(Tree().GetChild(2, main)), "The source of 'far' can't be shown");
    scratch.Write("blink/r\u00fchren.asm", "\n\nstir\n");
    const std::string project = scratch.Windows("blink/blink.__c");
    WritePrivateProfileStringA("Files", "Count", "5", project.c_str());
    WritePrivateProfileStringA("Files", "File4", "r\u00fchren.asm", project.c_str());
    EXPECT_EQ(JumpFrom(Tree().GetChild(3, main)), "r\u00fchren.asm 3") << "a build can't write this name";

    std::string deep;
    for (int i = 13; i >= 0; --i) deep = "f" + std::to_string(i) + ":\"main.asm\",line=1{" + deep + "}";
    Leave("Debug/blink.tree", deep);
    TreeItem last = nullptr;
    while (Tree().GetChildCount(last)) last = Tree().GetChild(0, last);
    EXPECT_EQ(Tree().GetItemText(last), "...");
    EXPECT_EQ(JumpFrom(last), "");
}

TEST_F(CallTreeView, FollowsBuildsAndConfigurations) {
    const auto select = [this](const char *name) {
        CXTFlatComboBox &box = program.Frame().ConfigBox();
        box.SetCurSel(box.FindStringExact(name));
        program.Command(ID_CONFIG_SELECT);
    };
    ASSERT_TRUE(program.Build()) << program.BuildText();
    const std::string rows = Rows();
    EXPECT_NE(rows.find("main(led_start timer_start timer_take_tick led_toggle)"), std::string::npos) << rows;
    EXPECT_EQ(List().RowCount(), 8);
    EXPECT_EQ(JumpFrom(Tree().GetChild(0, Tree().GetChild(0))), "main.asm 28");
    select("Release");
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(List().RowCount(), 0);
    select("Debug");
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(List().RowCount(), 8);
}

TEST_F(CallTreeView, FoldsAndUnfoldsFromItsMenu) {
    Leave("Debug/blink.tree", kCalls);
    Show<CCallTreeView>();
    Tree().SelectItem(Tree().GetChild(0));
    const auto choose = [this](const char *entry) {
        bool chosen = false;
        QTimer::singleShot(0, [&] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            for (QAction *action : menu ? menu->actions() : QList<QAction *>())
                if (action->text().remove('&') == entry && action->isEnabled()) {
                    chosen = true;
                    menu->setActiveAction(action);
                    QTest::keyClick(menu, Qt::Key_Return);
                }
            if (menu) menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(Tree().viewport(), &event);
        program.Settle();
        return chosen;
    };
    EXPECT_TRUE(choose("Collapse All"));
    EXPECT_EQ(Rows(), "main-(led_start gone far stir) interrupt");
    EXPECT_TRUE(choose("Expand All"));
    EXPECT_EQ(Rows(), "main(led_start gone far stir) interrupt");
    FindView<CCallTreeView>()->Clear();
    EXPECT_FALSE(choose("Expand All"));
}

TEST_F(CallTreeView, SaysThatAFileIsTooLarge) {
    Leave("Debug/blink.tree", kCalls, 60);
    std::filesystem::resize_file(scratch.Native("blink/Debug/blink.tree"), kLargestBuildFile + (1 << 20));
    Bar().LoadAll(false);
    EXPECT_EQ(Rows(), "");
    EXPECT_NE(LastLine().find("blink.tree is too large to be shown (33 MB)"), std::string::npos) << LastLine();
}
