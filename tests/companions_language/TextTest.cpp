#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <regex>
#include <string>
#include <vector>

#include "IdHeader.h"
#include "LanguageModule.h"
#include "app/CommandIds.h"
#include "app/StringIds.h"

namespace {

std::vector<std::string> Placeholders(const std::string &text) {
    static const std::regex pattern("%.?");
    std::vector<std::string> found;
    for (std::sregex_iterator it(text.begin(), text.end(), pattern), end; it != end; ++it) found.push_back(it->str());
    return found;
}

std::string Text(int id) {
    const char *text = module::String(id);
    return text ? text : "";
}

}  // namespace

TEST(LanguageTexts, EveryStringHasWordsThatTakeWhatItsNumberPromises) {
    const auto ids = StringIds();
    ASSERT_GT(ids.size(), 100u);
    for (const auto &id : ids) {
        ASSERT_NE(Text(id.id), "") << id.name;
        EXPECT_EQ(Placeholders(Text(id.id)), Placeholders(id.comment)) << id.name << ": " << Text(id.id);
    }
}

TEST(LanguageTexts, EveryCommandHasOneLineForTheStatusBarAndOneForTheToolTip) {
    const auto ids = CommandIds();
    ASSERT_GT(ids.size(), 80u);
    static const std::regex twoLines("[^\n]+\n[^\n]+");
    for (const auto &id : ids) EXPECT_TRUE(std::regex_match(Text(id.id), twoLines)) << id.name << ": " << Text(id.id);
}

TEST(LanguageTexts, EachEntryOfAListHasTheWordsOfItsList) {
    struct {
        int first, last;
    } lists[] = {
        {ID_RECENT_FILES, 34787}, {ID_RECENT_WORKSPACES, 34797}, {ID_TOOL_STEPS, 35047}, {ID_WINDOW_LIST, 65289}};
    for (const auto &list : lists) {
        EXPECT_EQ(Text(list.last), Text(list.first));
        EXPECT_EQ(module::String(list.last + 1), nullptr);
    }
}

TEST(LanguageTexts, FixedWordsAreAsTheProgramNeedsThem) {
    EXPECT_EQ(Text(IDS_APP_TITLE), "Thornwell IDE");
    EXPECT_EQ(Text(IDS_VERSION).front(), '7');
    EXPECT_EQ(Text(IDS_CREATE_WORKSPACE), "Workspace '%s' doesn't exist. Do you want to create a new one?");
    EXPECT_EQ(Text(IDS_CREATE_PROJECT), "Project '%s' doesn't exist. Do you want to create a new one?");
    EXPECT_NE(Text(IDS_RTOS_QUESTION).find("-swcs"), std::string::npos);
    EXPECT_EQ(Text(IDS_MAKEFILE_HEADER).front(), '#');  // make has to take the line for a comment
    EXPECT_EQ(Text(IDS_MAKEFILE_HEADER).find('\n'), std::string::npos);
}

// "!E" and "!W" become "Error" and "Warning" in the build list, which takes "Error main.c(3)" for a compiler's message.
TEST(LanguageTexts, NoLineOfTheProgramReadsAsACompilersMessage) {
    static const std::regex message("(!E|!W|error|warning|warning in|line)[ \t].*", std::regex::icase);
    for (const auto &id : StringIds()) EXPECT_FALSE(std::regex_match(Text(id.id), message)) << id.name;
}

TEST(LanguageTexts, StepNamesDiffer) {
    // Steps are recognised by name without regard to case.
    std::vector<std::string> names;
    for (int id : {IDS_STEP_FIRST, IDS_STEP_SECOND, IDS_STEP_THIRD, IDS_STEP_FOURTH, IDS_STEP_FIFTH}) {
        std::string name = Text(id);
        for (char &c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        EXPECT_EQ(std::ranges::count(names, name), 0) << name;
        names.push_back(name);
    }
}

TEST(LanguageTexts, UnknownIdsGiveNothing) {
    for (int id : {0, -1, 99, 65535, 1 << 30}) {
        EXPECT_EQ(module::String(id), nullptr) << id;
        EXPECT_TRUE(module::Menu(id).empty()) << id;
        EXPECT_TRUE(module::ToolBar(id).empty()) << id;
        EXPECT_TRUE(module::Accelerators(id).empty()) << id;
        EXPECT_EQ(module::CommandIcon(id), nullptr) << id;
    }
}
