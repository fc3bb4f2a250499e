#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "IdHeader.h"
#include "LanguageModule.h"
#include "app/CommandIds.h"
#include "app/StringIds.h"

namespace {

constexpr int kMenus[] = {IDR_MAINFRAME,           IDR_OUTPUT_MENU,         IDR_WORKSPACE_MENU_PROJECT,
                          IDR_WORKSPACE_MENU_FILE, IDR_WORKSPACE_MENU_ROOT, IDR_TAB_MENU,
                          IDR_BUILD_MENU,          IDR_BAR_MENU,            IDR_HEADER_MENU,         IDR_FOOTER_MENU,
                          IDR_GROUPING_MENU,       IDR_TREE_MENU,           IDR_WORKSPACE_MENU_OUTPUTS,
                          IDR_WATCH_MENU,          IDR_REGISTER_MENU,       IDR_MEMORY_MENU};

bool IsSeparator(const LangMenuEntry &entry) {
    return entry.command == 0 && entry.text == nullptr;
}
bool IsSubMenu(const LangMenuEntry &entry) {
    return entry.command == 0 && entry.text != nullptr;
}

// Index of the entry of `text` in the main menu, or its size.
size_t FindEntry(const std::string &text) {
    const auto menu = module::Menu(IDR_MAINFRAME);
    size_t i = 0;
    while (i < menu.size() && !(menu[i].text && menu[i].text == text)) i++;
    return i;
}

}  // namespace

TEST(LanguageMenus, AreWellFormedTrees) {
    for (int id : kMenus) {
        const auto menu = module::Menu(id);
        ASSERT_FALSE(menu.empty()) << id;
        EXPECT_EQ(menu.front().depth, 0) << id;
        for (size_t i = 0; i < menu.size(); i++) {
            SCOPED_TRACE(std::to_string(id) + " entry " + std::to_string(i));
            const auto &entry = menu[i];
            EXPECT_GE(entry.depth, 0);
            const int deepest = i == 0 ? 0 : menu[i - 1].depth + (IsSubMenu(menu[i - 1]) ? 1 : 0);
            EXPECT_LE(entry.depth, deepest);
            if (entry.command != 0) {
                EXPECT_TRUE(IsKnownCommand(entry.command)) << entry.command;
                EXPECT_NE(entry.text, nullptr);
            }
            // A separator stands between two entries of its own menu.
            if (IsSeparator(entry)) {
                ASSERT_GT(i, 0u);
                ASSERT_LT(i + 1, menu.size());
                EXPECT_GE(menu[i - 1].depth, entry.depth);
                EXPECT_FALSE(IsSeparator(menu[i - 1]));
                EXPECT_EQ(menu[i + 1].depth, entry.depth);
            }
        }
    }
}

TEST(LanguageMenus, AccessKeysAreUniqueInEachMenu) {
    for (int id : kMenus) {
        std::map<int, std::set<char>> keysAtDepth;
        int depth = 0;
        for (const auto &entry : module::Menu(id)) {
            for (; depth > entry.depth; depth--) keysAtDepth.erase(depth);
            depth = entry.depth;
            if (!entry.text || entry.command == ID_RECENT_FILES || entry.command == ID_RECENT_WORKSPACES) continue;
            const char key = module::AccessKey(entry.text);
            EXPECT_NE(key, 0) << entry.text;
            EXPECT_TRUE(keysAtDepth[depth].insert(key).second) << id << ": " << entry.text;
        }
    }
}

TEST(LanguageMenus, HoldWhatTheFrameLooksFor) {
    const auto menu = module::Menu(IDR_MAINFRAME);
    for (int id : {IDS_MENU_TOOLS, IDS_MENU_WINDOW}) {
        const size_t at = FindEntry(module::String(id));
        ASSERT_LT(at, menu.size()) << module::String(id);
        EXPECT_EQ(menu[at].depth, 0);
        EXPECT_TRUE(IsSubMenu(menu[at]));
    }
    struct {
        int text, command;
    } lists[] = {{IDS_MENU_RECENT_FILES, ID_RECENT_FILES}, {IDS_MENU_RECENT_WORKSPACES, ID_RECENT_WORKSPACES}};
    for (const auto &list : lists) {
        const size_t at = FindEntry(module::String(list.text));
        ASSERT_LT(at + 2, menu.size()) << module::String(list.text);
        EXPECT_EQ(menu[at + 1].command, list.command);
        EXPECT_EQ(menu[at + 1].depth, menu[at].depth + 1);
        EXPECT_EQ(menu[at + 2].depth, menu[at].depth);
    }
    // The text of the tabs' toggle changes to and fro; the access key must stay free in both.
    EXPECT_LT(FindEntry(module::String(IDS_TABS_OFF)), menu.size());
    EXPECT_EQ(module::AccessKey(module::String(IDS_TABS_ON)), module::AccessKey(module::String(IDS_TABS_OFF)));
}

TEST(LanguageMenus, EveryCommandIsWithinTheUsersReach) {
    const std::set<int> elsewhere = {
        ID_TOOL_STEPS,         ID_WINDOW_LIST,       // the frame appends these
        ID_WINDOW_LIST_ALL,    ID_USER_MACROS,
        ID_PLUGIN_NONE,        ID_PLUGIN_BARS,
        ID_FUNCTIONS,          ID_VIEW_GOTO_DEFINITION,  // of the code view's menu
        ID_BREAKPOINT_AT_POINTER, ID_BREAKPOINT_PROPERTIES, ID_WATCH_AT_POINTER,
        ID_HELP_OSPREYC,       ID_HELP_OSPREYCPP,    // never show in a menu
        ID_HELP_OSPREYP,       ID_HELP_WIZARD,
        ID_CONFIG_SELECT,                            // the box on the tool bar
        ID_REBUILD_ALL_BUTTON,                       // twin of the menu's command
        ID_STEP_THIRD_STOP,    ID_STEP_FOURTH_STOP,  // the build's stop button does for these
    };
    std::set<int> reached;
    for (int id : kMenus)
        for (const auto &entry : module::Menu(id)) reached.insert(entry.command);
    for (const auto &resource : ResourceIds())
        for (const auto &button : module::ToolBar(resource.id)) reached.insert(button.command);
    for (const auto &id : CommandIds()) {
        if (id.name.ends_with("_UNCHECKED") || elsewhere.contains(id.id)) continue;
        EXPECT_TRUE(reached.contains(id.id)) << id.name;
    }
}
