#include <gtest/gtest.h>

#include <set>

#include "IdHeader.h"
#include "LanguageModule.h"
#include "app/CommandIds.h"
#include "app/StringIds.h"

namespace {

constexpr int kToolBars[] = {IDR_TOOLBAR_MAIN,     IDR_MAINFRAME,         IDR_BUILD_RUNNING,
                             IDR_BUILD_STEP_FIRST, IDR_BUILD_STEP_SECOND, IDR_BUILD_STEP_FIFTH};

std::multiset<int> CommandsOf(int id) {
    std::multiset<int> commands;
    for (const auto &button : module::ToolBar(id))
        if (button.kind != kLangButtonSeparator) commands.insert(button.command);
    return commands;
}

}  // namespace

TEST(LanguageToolBars, ButtonsAreComplete) {
    for (int id : kToolBars) {
        ASSERT_FALSE(module::ToolBar(id).empty()) << id;
        for (const auto &button : module::ToolBar(id)) {
            SCOPED_TRACE(std::to_string(id) + " command " + std::to_string(button.command));
            if (button.kind == kLangButtonSeparator) continue;
            EXPECT_TRUE(IsKnownCommand(button.command));
            EXPECT_EQ(CommandsOf(id).count(button.command), 1u);
            const bool isBox = button.kind == kLangButtonBox;
            EXPECT_STREQ(button.icon, isBox ? nullptr : module::CommandIcon(button.command));
            const bool isDropDown = button.kind == kLangButtonDropDown;
            EXPECT_EQ(button.menu != 0, isDropDown);
            EXPECT_EQ(module::Menu(button.menu).empty(), !isDropDown);
        }
    }
}

TEST(LanguageToolBars, FormsOfTheBuildBarDifferInTheirStopButton) {
    struct {
        int form, stop;
    } forms[] = {{IDR_MAINFRAME, ID_BUILD_STOP},
                 {IDR_BUILD_RUNNING, ID_BUILD_STOP},
                 {IDR_BUILD_STEP_FIRST, ID_STEP_FIRST_STOP},
                 {IDR_BUILD_STEP_SECOND, ID_STEP_SECOND_STOP},
                 {IDR_BUILD_STEP_FIFTH, ID_STEP_FIFTH_STOP}};
    for (const auto &form : forms) {
        std::multiset<int> expected = {ID_CONFIG_SELECT,   ID_BUILD,           ID_REBUILD_BUTTON,  ID_STEP_FIRST_RUN,
                                       ID_STEP_SECOND_RUN, ID_STEP_THIRD_RUN,  ID_STEP_FOURTH_RUN, ID_STEP_FIFTH_RUN,
                                       ID_NEXT_MESSAGE,    ID_PROJECT_OPTIONS, ID_DEBUG_START,     form.stop};
        EXPECT_EQ(CommandsOf(form.form), expected) << form.form;
    }
}
