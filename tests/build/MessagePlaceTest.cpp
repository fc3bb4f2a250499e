#include "build/MessagePlace.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <string>
#include <vector>

namespace {

const std::set<std::string> kFiles = {"main.c", "c:\\my dir\\x.c", "a b.c", "main.c ", "error", "line 3.c", "\x80.c"};

bool Exists(const std::string &name) { return kFiles.contains(name); }

std::string Place(const std::vector<std::string> &lines) {
    const auto access = [&](size_t index) { return std::string_view(lines[index]); };
    const auto place = ClassifyMessage(access, lines.size() - 1, Exists);
    return place ? place->file + "@" + std::to_string(place->line) : "none";
}

TEST(MessagePlace, ReadsEachFormOfMessage) {
    const struct {
        std::vector<std::string> lines;  // the last one is read
        const char *expected;
    } cases[] = {
        // A position alone; the file stands above.
        {{"main.c", "line 12: oops"}, "main.c@12"},
        {{"main.c", "other", "LINE 12: oops"}, "main.c@12"},
        {{"main.c", "warning in line 12: oops"}, "main.c@12"},
        {{"main.c", "2> line 12: oops"}, "main.c@12"},
        {{"nothing.c", "line 12: oops"}, "none"},
        {{"line 12: oops"}, "none"},
        {{"main.c", "line x"}, "main.c@0"},
        {{"main.c", "line 1a:"}, "main.c@59"},  // 10 + 'a' - '0'
        {{"main.c", "line\t7:"}, "main.c@7"},
        {{"main.c", "line 7"}, "main.c@7"},
        {{"main.c", "line:7"}, "none"},
        {{"main.c(1): x", "line 2: y"}, "none"},  // the whole line above has to be the name

        // A word, then file and line; the file isn't looked for.
        {{"warning foo.c(3) bar"}, "foo.c@3"},
        {{"error foo.c(12,4): text"}, "foo.c@12"},
        {{"Error  foo.c (12): text"}, "foo.c @12"},
        {{"1> error foo.c(12): text"}, "foo.c@12"},
        {{"warning: unused"}, "none"},
        {{"warning no place"}, "none"},
        {{"error foo.c(12"}, "none"},
        {{"error ab)c(5)"}, "ab)c@5"},
        {{"error \x80\xFF foo.c(5)"}, "foo.c@5"},  // bytes beyond ASCII count as blanks

        // A numbered word.
        {{"Warning[205] c:\\src\\main.asm 12 : text"}, "c:\\src\\main.asm@12"},
        {{"12> Error[113] a.asm 7 : x"}, "a.asm@7"},
        {{"ERROR[113]a.asm  7 : x"}, "a.asm@7"},
        {{"Warning[205]"}, "none"},
        {{"Warning[205] a.asm"}, "none"},
        {{"Warning[205 a.asm 3"}, "none"},
        {{"Error[1] a.asm x"}, "a.asm@0"},
        {{"Error[x] main.c 3"}, "none"},

        // A file that exists, and a line.
        {{"main.c(12): text"}, "main.c@12"},
        {{"3> main.c(12): error"}, "main.c@12"},
        {{"main.c (12): text"}, "main.c @12"},
        {{"c:\\my dir\\x.c(10): error"}, "c:\\my dir\\x.c@10"},
        {{"other.c(12): text"}, "none"},
        {{"main.c: error"}, "none"},
        {{"main.c(12"}, "none"},
        {{"main.c)12("}, "none"},
        {{"main.c\t(12)"}, "main.c@12"},
        {{"(12)"}, "none"},
        {{""}, "none"},
        {{"3>main.c(12)"}, "none"},  // no blank behind the mark
        {{"3> "}, "none"},
        {{"error"}, "none"},
        {{"error(3)"}, "error@3"},  // an existing file of that name
        {{"main.c(  -5)"}, "main.c@-5"},
        {{"main.c()"}, "main.c@0"},
        {{"\x80.c(1)"}, "none"},
    };
    for (const auto &c : cases) EXPECT_EQ(Place(c.lines), c.expected) << testing::PrintToString(c.lines);
}

TEST(MessagePlace, HoldsNumbersThatAreTooLong) {
    EXPECT_EQ(Place({"main.c(99999999999999999999999)"}), "main.c@" + std::to_string(INT_MAX));
    const auto message = ReadMessageText("line 99999999999999999999999999: x");
    ASSERT_TRUE(message);
    EXPECT_EQ(message->needs, MessageText::Needs::fileAbove);
}

}  // namespace
