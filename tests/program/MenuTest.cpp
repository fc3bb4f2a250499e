#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "ProgramTest.h"
#include "build/OutputBar.h"
#include "editor/IDEDoc.h"
#include "framework/Text.h"
#include "framework/WindowsDlg.h"
#include "plugins/PluginInstance.h"

class MenuTest : public ProgramTest {
protected:
    int LinesWith(const std::string &text) {
        const std::vector<std::string> lines = program->BuildLines();
        return static_cast<int>(std::ranges::count(lines, text));
    }
};

TEST_F(MenuTest, ListsSavedMacros) {
    Start();
    const std::vector<std::string> own = Texts(OpenMenu(Text(IDS_MENU_MACRO)));
    const qsizetype entries = OpenMenu(Text(IDS_MENU_MACRO))->actions().size();
    Set("UsrMacro", "Count", 70);
    for (int i = 0; i < 70; ++i)
        if (i != 1) Set("UsrMacro\\" + std::to_string(i), "Name", "R&D " + std::to_string(i));
    QMenu *menu = nullptr;
    for (int opened = 0; opened < 3; ++opened) menu = OpenMenu(Text(IDS_MENU_MACRO));
    ASSERT_EQ(menu->actions().size(), entries + 1 + 63) << "64 at most, one of them without a name";
    EXPECT_EQ(FromQString(menu->actions().back()->text()), "R&&D 63");
    EXPECT_EQ(menu->actions().back()->data().toInt(), ID_USER_MACROS + 63);
    EXPECT_EQ(menu->actions().at(entries + 2)->data().toInt(), ID_USER_MACROS + 2);
    Set("UsrMacro", "Count", 0);
    EXPECT_EQ(Texts(OpenMenu(Text(IDS_MENU_MACRO))), own);
}

TEST_F(MenuTest, SaysWhichMenuItMisses) {
    Start();
    const struct {
        int text;
        const char *missing, *withoutMenu;
    } cases[] = {{IDS_MENU_MACRO, "#1", "#2"}, {IDS_MENU_PLUGINS, "#3", "#4"}, {IDS_MENU_TOOLS, "#5", "#6"}};
    for (const auto &each : cases) {
        const auto line = [](const char *number) {
            return std::string("Internal error ") + number + " in CMainFrame::OnInitMenu.";
        };
        QAction *entry = Frame().FindTopEntry(Text(each.text));
        ASSERT_TRUE(entry);
        entry->setMenu(static_cast<QMenu *>(nullptr));
        App().AddOutputLine(nullptr);
        OpenMenu(Text(IDS_MENU_WINDOW));
        EXPECT_EQ(LinesWith(line(each.withoutMenu)), 1);
        Frame().menuBar()->removeAction(entry);
        OpenMenu(Text(IDS_MENU_WINDOW));
        EXPECT_EQ(LinesWith(line(each.missing)), 1);
        EXPECT_EQ(LinesWith(line(each.withoutMenu)), 1);
    }
}

TEST_F(MenuTest, ListsThePluginsThatThereAre) {
    Start();
    QMenu *menu = OpenMenu(Text(IDS_MENU_PLUGINS));
    EXPECT_EQ(Texts(menu), std::vector<std::string>{Text(IDS_PLUGIN_MENU_EMPTY)});
    EXPECT_FALSE(menu->actions().front()->isEnabled());
    EXPECT_EQ(FromQString(Frame().PluginBar(25).windowTitle()), "Plugin #25 (empty)");
    for (int slot = 0; slot < CPluginBar::kSlots; ++slot)
        EXPECT_FALSE(QueryCommand(Frame(), ID_PLUGIN_BARS + slot).checked.value_or(false))
            << "an empty slot has no command: " << slot;
    for (int slot : {0, 1, 2, 3}) {
        const bool alone = slot == 2;
        Frame().PluginBar(slot).Attach(new QLabel("window"), alone ? "Keys" : "LEDs", alone ? 1 : 3, nullptr);
        Frame().PluginBar(slot).setWindowTitle(ToQString("Title " + std::to_string(slot)));
    }
    for (int opened = 0; opened < 2; ++opened) menu = OpenMenu(Text(IDS_MENU_PLUGINS));
    EXPECT_EQ(Texts(menu), (std::vector<std::string>{"LEDs", "Title 2"}));
    EXPECT_EQ(Texts(OpenMenu("LEDs")), (std::vector<std::string>{"Title 0", "Title 1", "Title 3"}));
    program->Command(ID_PLUGIN_BARS + 2);
    EXPECT_TRUE(Frame().PluginBar(2).IsShowing());
    EXPECT_TRUE(OpenMenu(Text(IDS_MENU_PLUGINS))->actions().at(1)->isChecked());
    program->Command(ID_PLUGIN_BARS + 2);
    EXPECT_TRUE(Frame().PluginBar(2).isHidden());
}

TEST_F(MenuTest, ShowsNoManualsOfOthers) {
    Start();
    QMenu *help = Frame().FindTopMenu("&Help");
    ASSERT_TRUE(help);
    const std::vector<std::string> before = Texts(help);
    help->addAction(Frame().MakeCommandAction(ID_HELP_WIZARD, "Wizard", help));
    OpenMenu("&Help");
    EXPECT_EQ(Texts(help), before);
}

TEST_F(MenuTest, HasADialogOfAllWindows) {
    for (char name = 'a'; name < 'l'; ++name) scratch.Write(std::string(1, name) + ".asm", "; text\r\n");
    Start();
    for (char name = 'a'; name < 'j'; ++name) Open(std::string(1, name) + ".asm");
    EXPECT_EQ(Texts(OpenMenu(Text(IDS_MENU_WINDOW))).back().substr(0, 3), "&9 ");
    Open("j.asm");
    Open("k.asm");
    EXPECT_EQ(Texts(OpenMenu(Text(IDS_MENU_WINDOW))).back(), Text(IDS_MENU_ALL_WINDOWS));
    Edit(Open("b.asm"), "; more\r\n");

    program->AnswerDialog([&](QWidget &window) {
        auto *list = window.findChild<QTreeWidget *>();
        ASSERT_TRUE(list);
        ASSERT_EQ(list->topLevelItemCount(), 11);
        EXPECT_EQ(FromQString(list->currentItem()->text(0)), "b.asm *");
        for (QPushButton *button : window.findChildren<QPushButton *>())
            if (button->text() == ToQString(Text(IDS_WINDOWS_SAVE))) button->click();
        EXPECT_EQ(scratch.Read("b.asm").find("; more\r\n"), 0u);
        EXPECT_EQ(FromQString(list->topLevelItem(1)->text(0)), "b.asm");
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Delete);
        EXPECT_EQ(list->topLevelItemCount(), 10);
        list->setCurrentItem(list->topLevelItem(9));
        QTest::keyClick(list, Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    program->Command(ID_WINDOW_LIST_ALL);
    EXPECT_EQ(program->ActiveFile(), "k.asm");
    EXPECT_FALSE(App().FindOrOpenDocument(scratch.Windows("c.asm"), false));
}

TEST_F(MenuTest, EndsTheSearchForPluginsWithTheFrame) {
    Make();
    ASSERT_TRUE(program->StartWithoutWaiting());
    Frame().AddWaitingText("a word of the search");
    App().AddOutputLine("later");
    EXPECT_FALSE(Frame().ArePluginsReady());
    QElapsedTimer clock;
    clock.start();
    CloseAndEnd();
    EXPECT_LT(clock.elapsed(), 3000);

    Make();
    ASSERT_TRUE(program->StartWithoutWaiting());
    for (const char *text : {"first", "second"}) Frame().AddWaitingText(text);
    ASSERT_TRUE(program->WaitFor([this] { return Frame().ArePluginsReady(); }));
    const std::vector<std::string> lines = program->BuildLines();
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(std::vector(lines.end() - 3, lines.end()),
              (std::vector<std::string>{"first", "second", Text(IDS_STARTUP_DONE)}));
}
