#include "editor/FindSettings.h"

#include <gtest/gtest.h>

#include "SettingsScratch.h"
#include "editor/FindState.h"
#include "editor/ScintillaMessages.h"

TEST(FindSettings, AsksTheComponentForWhatTheUserChose) {
    const CSettingsScratch scratch;
    CFindSettings settings = CFindSettings::Load();
    EXPECT_TRUE(settings.forward);
    EXPECT_EQ(settings.FlagsFor("foo"), 0);
    settings = {true, true, true, true, false};
    settings.Store();
    EXPECT_FALSE(CFindSettings::Load().forward);

    const intptr_t others = SCFIND_MATCHCASE | SCFIND_WORDSTART | SCFIND_REGEXP;
    EXPECT_EQ(CFindSettings::Load().FlagsFor("foo"), others);  // whole words are off for files
    WriteUserInt("Find", "MatchWholeWord", 1);
    const struct {
        const char *text;
        bool word;
    } cases[] = {{"foo", true}, {"_1", true}, {"a(b", true}, {"foo(", false}, {" foo", false}, {"", false}};
    for (const auto &c : cases)
        EXPECT_EQ(CFindSettings::Load().FlagsFor(c.text), c.word ? others | SCFIND_WHOLEWORD : others) << c.text;
}

TEST(FindHistory, KeepsTheNewestTexts) {
    CFindHistory history;
    for (int i = 0; i < 17; ++i) history.Add(std::to_string(i));
    history.Add("16");
    EXPECT_EQ(history.Texts().size(), 16u);
    EXPECT_EQ(history.Texts().front(), "16");
    EXPECT_EQ(history.Texts().back(), "1");
    history.Add("3");  // an older equal one stays
    history.Add("a");
    history.Add("A");
    EXPECT_EQ(history.Texts()[2], "3");
    EXPECT_EQ(history.Texts().back(), "4");
}
