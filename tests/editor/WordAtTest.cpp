#include "editor/WordAt.h"

#include <gtest/gtest.h>

#include "Component.h"

TEST(WordAt, ReadsOnItsLine) {
    const CTestComponent component;
    component.Fill("ab_1+c9\nx.h");  // 'c' is at 5, the line end at 7, 'x' at 8
    const struct {
        intptr_t position;
        WordPart part;
        bool (*test)(char);
        const char *word;
    } cases[] = {
        {2, WordPart::whole, IsWordChar, "ab_1"}, {2, WordPart::before, IsWordChar, "ab"},
        {2, WordPart::after, IsWordChar, "_1"},   {4, WordPart::whole, IsWordChar, ""},
        {4, WordPart::before, IsWordChar, "ab_1"}, {4, WordPart::after, IsWordChar, ""},
        {7, WordPart::before, IsWordChar, "c9"},  {8, WordPart::before, IsWordChar, ""},
        {8, WordPart::whole, IsWordChar, "x"},    {8, WordPart::whole, IsPathChar, "x.h"},
        {11, WordPart::whole, IsWordChar, ""},    {-1, WordPart::whole, IsWordChar, ""},
        {12, WordPart::before, IsWordChar, ""},
    };
    for (const auto &c : cases) {
        std::string word = "old";
        EXPECT_EQ(WordAt(component.sci, c.position, word, c.test, c.part), *c.word != 0) << c.position;
        EXPECT_EQ(word, c.word) << c.position << ' ' << static_cast<int>(c.part);
    }
}
