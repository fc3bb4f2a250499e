#include "editor/Abbreviations.h"

#include <gtest/gtest.h>

#include "support/ScratchDirectory.h"

namespace {

std::string BodyOf(const CAbbreviations &table, const char *name) {
    std::string body = "(none)";
    table.Find(name, body);
    return body;
}

}  // namespace

TEST(CAbbreviations, ReadsNamesAndTexts) {
    const CScratchDirectory scratch;
    scratch.Write("a.txt",
                  "\r\nif <*if ($(cond)) {\n\t|\n} *>\r\n"
                  "IF <* \n upper*> <x<*> <*angle*>"
                  "\xC3\xA4\t<**> if <*second*>\n \n");
    CAbbreviations table;
    table.Load(scratch.Windows("a.txt"));
    EXPECT_EQ(table.Count(), 5u);
    EXPECT_EQ(BodyOf(table, "if"), "if ($(cond)) {\n\t|\n} ");  // blanks at the end belong to it
    EXPECT_EQ(BodyOf(table, "IF"), "upper");                    // blanks at the start don't
    EXPECT_EQ(BodyOf(table, "<x<*>"), "angle");
    EXPECT_EQ(BodyOf(table, "\xC3\xA4"), "");
    EXPECT_EQ(BodyOf(table, "If"), "(none)");
}

TEST(CAbbreviations, TakesNothingOfAFaultyFile) {
    const CScratchDirectory scratch;
    scratch.Write("good.txt", "a <*b*>");
    CAbbreviations table;
    table.Load(scratch.Windows("good.txt"));
    for (const char *text : {"c <*d*> e", "c <*d", "c d", "c <*d*> e <*f*", "c<*d*>"}) {
        scratch.Write("bad.txt", text);
        table.Load(scratch.Windows("bad.txt"));
        EXPECT_EQ(table.Count(), 1u) << text;
        EXPECT_EQ(BodyOf(table, "a"), "b") << text;
    }
    table.Load(scratch.Windows("missing.txt"));
    EXPECT_EQ(table.Count(), 1u);
    scratch.Write("empty.txt", " \n");
    table.Load(scratch.Windows("empty.txt"));
    EXPECT_EQ(table.Count(), 0u);
}
