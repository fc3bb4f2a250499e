#include "build/ConsoleLineSplitter.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

Lines Split(const std::vector<std::string> &chunks) {
    Lines lines;
    ConsoleLineSplitter splitter([&](std::string_view line) { lines.emplace_back(line); });
    for (const std::string &chunk : chunks) splitter.Add(chunk);
    splitter.Finish();
    return lines;
}

TEST(ConsoleLineSplitter, EndsLines) {
    const struct {
        std::vector<std::string> chunks;
        Lines expected;
    } cases[] = {
        {{"a\r\n"}, {"a"}},
        {{"a\r\r\n"}, {"a"}},
        {{"a\n\nb"}, {"a", "b"}},
        {{"a\n\n\n"}, {"a"}},
        {{"a\n\rb\n"}, {"a", "", "b"}},  // a CR behind an LF ends a line of its own
        {{"a\r\n\r\nb"}, {"a", "", "b"}},
        {{"a\r\n\nb"}, {"a", "", "b"}},  // only one LF belongs to the CR
        {{"\nb"}, {"", "b"}},
        {{"no end"}, {"no end"}},
        {{}, {}},
        {{"a\r", "\nb\n"}, {"a", "b"}},  // the end is cut by the border of two reads
        {{"a\n", "\n", "\nb"}, {"a", "b"}},
        {{"a\r", "", "\r", "\n", "b"}, {"a", "b"}},
        {{"ma", "in", ".c\n"}, {"main.c"}},
    };
    for (const auto &c : cases) EXPECT_EQ(Split(c.chunks), c.expected) << testing::PrintToString(c.chunks);
}

TEST(ConsoleLineSplitter, CutsLongLinesIntoPiecesWithoutLoss) {
    constexpr size_t kLongest = ConsoleLineSplitter::kLongestLine;
    EXPECT_EQ(Split({std::string(kLongest, 'x') + "\nb"}), (Lines{std::string(kLongest, 'x'), "b"}));
    EXPECT_EQ(Split({std::string(kLongest, 'x'), "\nb"}), (Lines{std::string(kLongest, 'x'), "b"}));
    EXPECT_EQ(Split({std::string(kLongest + 1, 'x') + "\n"}), (Lines{std::string(kLongest, 'x'), "x"}));
    EXPECT_EQ(Split({std::string(3 * kLongest, 'x')}), Lines(3, std::string(kLongest, 'x')));

    // No piece ends inside of a character; bytes that are no UTF-8 are cut anywhere.
    const Lines pieces = Split({std::string(kLongest - 1, 'x') + "\u20AC\n"});
    EXPECT_EQ(pieces, (Lines{std::string(kLongest - 1, 'x'), "\u20AC"}));
    EXPECT_EQ(Split({std::string(kLongest + 5, '\x80')}),
              (Lines{std::string(kLongest, '\x80'), std::string(5, '\x80')}));
}

// The rule as one looks at it with the whole output at hand.
Lines ReferenceSplit(const std::string &text) {
    Lines lines;
    size_t at = 0;
    while (at < text.size()) {
        const size_t end = text.find_first_of("\r\n", at);
        if (end == std::string::npos) {
            lines.push_back(text.substr(at));
            break;
        }
        lines.push_back(text.substr(at, end - at));
        at = std::min(text.find_first_not_of(text[end], end), text.size());
        if (at < text.size() && text[at] == '\n') ++at;
    }
    return lines;
}

TEST(ConsoleLineSplitter, GivesTheSameLinesForEverySplitOfTheOutput) {
    std::mt19937 random(1);
    const std::string letters = "ab\r\r\n\n";
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (size_t length = random() % 40; length > 0; --length) text += letters[random() % letters.size()];
        std::vector<std::string> chunks;
        for (size_t at = 0; at < text.size();) {
            const size_t count = 1 + random() % 5;
            chunks.push_back(text.substr(at, count));
            at += count;
        }
        ASSERT_EQ(Split(chunks), ReferenceSplit(text)) << testing::PrintToString(chunks);
    }
}

}  // namespace
