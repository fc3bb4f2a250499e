#include "editor/PrintText.h"

#include <gtest/gtest.h>

#include <clocale>

#include "editor/PrintSettings.h"

TEST(PrintText, ExpandsTheCodesOfHeaders) {
    std::setlocale(LC_TIME, "C");
    std::tm now{};
    now.tm_year = 126;
    now.tm_mon = 10;
    now.tm_mday = 23;
    now.tm_hour = 9;
    const struct {
        const char *text, *expected;
    } cases[] = {
        {"&F", "/home/a&P.c"},  // what a code brings holds no codes
        {"Page &P of &Q", "Page 12 of &Q"},
        {"&D, &T", "11/23/26, 09:00:00"},
        {"&&P&p&", "&12&p&"},
        {"", ""},
    };
    for (const auto &c : cases) EXPECT_EQ(ExpandHeaderText(c.text, 12, "/home/a&P.c", now), c.expected) << c.text;
}

TEST(PrintText, GivesEachTabItsBlanks) {
    const struct {
        const char *line;
        int tabSize;
        const char *expected;
    } cases[] = {
        {"\t\t\tx\r\n", 4, "            x"},
        {"ab\tc\n", 4, "ab    c"},  // no tab stops
        {"\tx", 0, " x"},
        {"x\ry", 4, "x"},
        {"\n", 4, ""},
    };
    for (const auto &c : cases) EXPECT_EQ(ExpandTabs(c.line, c.tabSize), c.expected) << c.line;
    EXPECT_EQ(ExpandTabs(std::string(1000000, 'x'), 4, 10).size(), 10u);
}

TEST(PrintSettings, TakeTheNumberThatAMarginBeginsWith) {
    const struct {
        const char *text;
        double expected;
    } cases[] = {{"1.5", 1.5}, {" +2", 2}, {"0,5", 0}, {"-1", -1}, {"3cm", 3},
                 {"x", 0},     {"", 0},    {"inf", 0}, {"nan", 0}, {"1e999", 0}};
    for (const auto &c : cases) EXPECT_EQ(ParseMargin(c.text), c.expected) << c.text;
}
