#include "navigation/FunctionStats.h"

#include <gtest/gtest.h>

namespace {

// "name file line rom whole.part" of each row, with a bar between rows.
std::string Parsed(const std::string &text) {
    const auto stats = ParseFunctionStats(text);
    if (!stats) return "none";
    std::string shown;
    for (const SStatData &stat : *stats)
        shown += (shown.empty() ? "" : "|") + stat.name + " " + stat.file + " " + std::to_string(stat.line) + " " +
                 std::to_string(stat.rom) + " " + std::to_string(stat.ramWhole) + "." + std::to_string(stat.ramPart);
    return shown;
}

const std::string kNumbers = ",line=7,ram=12.3,rom=40;";
const std::string kMain = "main:\"m.c\"" + kNumbers;

}  // namespace

TEST(FunctionStats, ReadsALineAsAWhole) {
    const struct {
        std::string text, expected;
    } cases[] = {
        {"", ""},
        {"\n\r\n  // nothing\n", ""},
        {kMain, "main m.c 7 40 12.3"},
        {kMain + "\r\n" + kMain + " // twice\n", "main m.c 7 40 12.3|main m.c 7 40 12.3"},
        {"main : \" ..\\a b\\m.c\" , line = 7 , ram = 12 . 3 , rom = 40 ;", "main ..\\a b\\m.c 7 40 12.3"},
        {"int f(char *[2], long?) :\"\"" + kNumbers, "int f(char *[2], long?)  7 40 12.3"},
        {"f(char &) :\"\"" + kNumbers, "none"},
        {"#GLOBAL:\"\"" + kNumbers, "#GLOBAL  7 40 12.3"},
        {"class Motor : start:\"m.c\"" + kNumbers, "Motor::start m.c 7 40 12.3"},
        {"class A:f:\"m.c\"" + kNumbers + "\n" + kMain, "A::f m.c 7 40 12.3|main m.c 7 40 12.3"},
        {"class:\"m.c\"" + kNumbers, "class m.c 7 40 12.3"},  // a function's name, too
        {"classify:\"m.c\"" + kNumbers, "classify m.c 7 40 12.3"},
        {"#HEAP_BLOCK : 1, 2, 3;", ""},
        {kMain + "\n#HEAP_BLOCK:1,2,3;\n", "main m.c 7 40 12.3"},
        {kMain + "#HEAP_BLOCK:1,2,3;", "main m.c 7 40 12.3"},
        {kMain + "last:\"n.c\"" + kNumbers, "last n.c 7 40 12.3"},  // a line gives one row
        {"f:\"m.c\",line=4294967295,ram=2147483648.0,rom=2147483647;", "f m.c 2147483647 2147483647 2147483647.0"},
    };
    for (const auto &c : cases) EXPECT_EQ(Parsed(c.text), c.expected) << c.text;
}

TEST(FunctionStats, DropsAllForOneBadLine) {
    const char *bad[] = {
        "main:\"m.c\",line=7,ram=12.3,",
        "rom=40;",  // split over two lines
        "main:\"m.c\",line=7,ram=12.3,rom=40",
        "main:\"m.c\",line=7,ram=12,rom=40;",
        "main:\"m.c\",line=4294967296,ram=1.1,rom=1;",
        "1st:\"m.c\",line=7,ram=12.3,rom=40;",
        "#HEAP_BLOCK:1,2;",
        "#HEAP_BLOCK:1,2,3",
        "class A:",
        "class :f:\"m.c\",line=7,ram=12.3,rom=40;",
        "main:\"\\m.c\",line=7,ram=12.3,rom=40;",
        "/ comment",
    };
    for (const char *line : bad) {
        EXPECT_EQ(Parsed(line), "none") << line;
        EXPECT_EQ(Parsed(kMain + "\n" + line + "\n" + kMain), "none") << line;
    }
    EXPECT_EQ(Parsed(kMain + std::string(1, '\0')), "none");
    EXPECT_EQ(Parsed(std::string(10000, 'n') + ":\"m.c\"" + kNumbers), std::string(10000, 'n') + " m.c 7 40 12.3");
}
