#include "editor/TextSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "Component.h"

namespace {

constexpr intptr_t kExactly = SCFIND_MATCHCASE, kRegExp = SCFIND_MATCHCASE | SCFIND_REGEXP;

class TextSearch : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(component.sci); }

    CTextSearch For(const std::string &text, intptr_t flags = kExactly) const {
        return CTextSearch(component.sci, text, flags);
    }

    // The hits that repeated searches meet until they come round, as "start-end start-end ".
    static std::vector<std::string> Walk(const CTextSearch &search, bool reverse) {
        std::vector<std::string> hits;
        TextRange last;
        if (reverse) last.start = last.end = 1 << 20;
        for (int i = 0; i < 50; ++i) {
            const auto hit = search.FindNext(last, reverse);
            if (!hit) break;
            const std::string shown = std::to_string(hit->start) + "-" + std::to_string(hit->end);
            if (!hits.empty() && hits.front() == shown) return hits;
            hits.push_back(shown);
            last = *hit;
        }
        if (!hits.empty()) hits.push_back("doesn't come round");
        return hits;
    }

    CTestComponent component;
};

std::string Joined(const std::vector<std::string> &hits) {
    std::string all;
    for (const std::string &hit : hits) all += (all.empty() ? "" : " ") + hit;
    return all;
}

}  // namespace

TEST_F(TextSearch, MeetsEveryHitOnceInEitherDirection) {
    const struct {
        const char *text, *find;
        intptr_t flags;
        const char *hits;
    } cases[] = {
        {"foo foofoo", "foo", kExactly, "0-3 4-7 7-10"},
        {"aaaaa", "aa", kExactly, "0-2 2-4"},
        {"Foo foo", "FOO", 0, "0-3 4-7"},
        {"Foo foo", "foo", kExactly, "4-7"},
        {"foo food", "foo", kExactly | SCFIND_WHOLEWORD, "0-3"},
        {"xfoo food", "foo", kExactly | SCFIND_WORDSTART, "5-8"},
        {"a\r\nb\r\na\r\nb", "a\r\nb", kExactly, "0-4 6-10"},
        {"\xc3\xa4 x \xc3\xa4", "\xc3\xa4", kExactly, "0-2 5-7"},
        {"", "a", kExactly, ""},
        {"abc", "d", kExactly, ""},
        // Regular expressions: whole runs, empty hits, line ends, words, whole characters
        {"axxxb xx", "x+", kRegExp, "1-4 6-8"},
        {"a\r\n\r\nb", "^", kRegExp, "0-0 3-3 5-5"},
        {"a\r\n\r\nb", "$", kRegExp, "1-1 3-3 6-6"},
        {"a\n", "$", kRegExp, "1-1 2-2"},
        {"axxb", "x*", kRegExp, "0-0 1-3 3-3"},
        {"", "^", kRegExp, "0-0"},
        {"foofoo foo", "\\<foo", kRegExp, "0-3 7-10"},
        {"a\xc3\xa9z", ".", kRegExp, "0-1 1-3 3-4"},
        {"\xc3\xa9", "[\xc2\xa9]", kRegExp, ""},  // half of a character
        {"ab12 cd345", "[0-9]", kRegExp, "2-3 3-4 7-8 8-9 9-10"},
        {"a", "[a", kRegExp, ""},
    };
    for (const auto &c : cases) {
        component.Fill(c.text);
        const CTextSearch search = For(c.find, c.flags);
        std::vector<std::string> forward = Walk(search, false);
        EXPECT_EQ(Joined(forward), c.hits) << c.text << ", " << c.find;
        if (std::string(c.text) == "aaaaa") continue;  // from its end there are others
        std::ranges::reverse(forward);
        EXPECT_EQ(Walk(search, true), forward) << c.text << ", " << c.find << " backward";
    }
}

TEST_F(TextSearch, WalksALineOfManyHitsBackward) {
    component.Fill(std::string(3000, 'x').c_str());
    EXPECT_EQ(For("x", kRegExp).FindNext({2500, 2501}, true), (TextRange{2499, 2500}));
}

TEST_F(TextSearch, ReplacesAll) {
    const struct {
        const char *text, *find, *replacement;
        intptr_t flags;
        intptr_t count;  // -1: no hit
        const char *result;
    } cases[] = {
        {"a b a", "a", "aaa", kExactly, 2, "aaa b aaa"},
        {"aaaa", "aa", "", kExactly, 2, ""},
        {"x = 12", "\\([a-z]\\) = \\([0-9]+\\)", "\\2 -> \\1", kRegExp, 1, "12 -> x"},
        {"a\r\n\r\nb\r\n", "^", "> ", kRegExp, 4, "> a\r\n> \r\n> b\r\n> "},
        {"a\r\n\r\nb\r\n", "$", ";", kRegExp, 3, "a;\r\n;\r\nb;\r\n"},
        {"a\nb", "$", ";", kRegExp, 2, "a;\nb;"},
        {"", "^", "> ", kRegExp, 1, "> "},
        {"axxb", "x*", "-", kRegExp, 3, "-a--b"},
        {"\xc3\xa9\xc3\xa9", "x*", "-", kRegExp, 2, "-\xc3\xa9-\xc3\xa9"},
        {"foofoo", "\\<foo", "bar", kRegExp, 1, "barfoo"},
        {"abc", "d", "e", kExactly, -1, "abc"},
        {"a*", "*a", "e", kRegExp, -1, "a*"},
    };
    for (const auto &c : cases) {
        component.Fill(c.text);
        component.sci.Send(SCI_EMPTYUNDOBUFFER);
        EXPECT_EQ(For(c.find, c.flags).ReplaceAll(c.replacement).value_or(-1), c.count) << c.text << ", " << c.find;
        EXPECT_EQ(component.sci.GetText(), c.result) << c.text << ", " << c.find;
        EXPECT_EQ(component.sci.Send(SCI_CANUNDO) != 0, c.count > 0);
        component.sci.Send(SCI_UNDO);  // one step
        EXPECT_EQ(component.sci.GetText(), c.text);
        EXPECT_FALSE(component.sci.Send(SCI_CANUNDO));
    }
}

TEST_F(TextSearch, LeavesAReadOnlyTextAndTellsOnce) {
    component.Fill("a a a");
    component.sci.Send(SCI_SETREADONLY, 1);
    EXPECT_EQ(For("a").ReplaceAll("b"), 0);
    EXPECT_EQ(component.sci.GetText(), "a a a");
    EXPECT_EQ(component.CountOf(SCN_MODIFYATTEMPTRO), 1u);
}

TEST_F(TextSearch, KnowsABadExpressionFromAMiss) {
    component.Fill("abc");
    for (const char *bad : {"[a", "*a", "\\(a", "a\\)", "\\1", "^*"})
        EXPECT_TRUE(For(bad, kRegExp).IsBadExpression()) << bad;
    for (const char *good : {"zz", "^b", "[z]", "a", "c[^a]$"})
        EXPECT_FALSE(For(good, kRegExp).IsBadExpression()) << good;
    EXPECT_FALSE(For("[a").IsBadExpression());
}

// Quadratic work would take minutes.
TEST_F(TextSearch, ReplacesManyHitsInTime) {
    std::string text;
    for (int line = 0; line < 200000; ++line) text += "unsigned foo;\r\n";
    for (const intptr_t flags : {kExactly, kRegExp}) {
        component.sci.Send(SCI_SETMODEVENTMASK, 0);
        component.Fill(text.c_str());
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(For("foo", flags).ReplaceAll("number"), 200000);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    }
}
