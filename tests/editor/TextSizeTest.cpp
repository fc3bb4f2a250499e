#include "editor/TextSize.h"

#include <gtest/gtest.h>

TEST(TextSize, EndsLinesAsWindowsDoes) {
    const struct {
        const char *text, *expected;
    } cases[] = {
        {"", ""},
        {"a", "a"},
        {"\n", "\r\n"},
        {"a\rb\nc\r\nd", "a\r\nb\r\nc\r\nd"},
        {"\r\r\n\n", "\r\n\r\n\r\n"},
        {"a\r", "a\r\n"},
    };
    for (const auto &c : cases) EXPECT_EQ(WithWindowsLineEnds(c.text), c.expected) << c.text;
}

TEST(TextSize, BreaksLongLinesBetweenCharacters) {
    std::string line;
    while (line.size() <= kBrokenLine) line += "x\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
    const std::string text = "short\r\n" + line + "\rlast";
    EXPECT_EQ(LongestLine(text), line.size());
    std::string broken = BreakLongLines(text);
    EXPECT_EQ(LongestLine(broken), kPiece);
    for (size_t at = broken.find('\n', 7); at != broken.npos; at = broken.find('\n', at + 1))
        EXPECT_NE(static_cast<unsigned char>(broken[at + 1]) & 0xC0, 0x80) << at;
    std::erase(broken, '\n');
    EXPECT_EQ(broken, "short\r" + line + "\rlast");

    // What is no UTF-8 is broken all the same, and what is short is left alone.
    EXPECT_EQ(LongestLine(BreakLongLines(std::string(kBrokenLine + 1, '\x80'))), kPiece);
    EXPECT_EQ(BreakLongLines("a\nb\r\n"), "a\nb\r\n");
}
