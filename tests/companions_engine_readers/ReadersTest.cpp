// The library as the program loads it, over what the writers write and over what nobody should.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "debugger/EngineApi.h"
#include "platform/SharedLibrary.h"
#include "readers/ResultText.h"

namespace {

template <typename Function>
Function *Entry(const char *name) {
    static const CSharedLibrary library(DBGPARS_FILE);
    EXPECT_TRUE(library.IsLoaded()) << library.Error();
    return library.Get<Function>(name);
}

std::ostream &Told(void *user) {
    return *static_cast<std::ostringstream *>(user);
}

// What a reader tells of `text`; "refused" alone when it doesn't read and tells nothing.
std::string Frames(const std::string &text) {
    std::ostringstream told;
    const bool good = Entry<dbgFrameListFn>("dbgFrameList")(
        text.c_str(), [](int address, void *user) { Told(user) << address << ' '; }, &told);
    return told.str() + (good ? "" : "refused");
}

std::string Profile(const std::string &text) {
    std::ostringstream told;
    const bool good = Entry<dbgProfileListFn>("dbgProfileList")(
        text.c_str(),
        [](const char *name, int count, void *user) {
            Told(user) << name << '=' << static_cast<uint32_t>(count) << ' ';
        },
        &told);
    return told.str() + (good ? "" : "refused");
}

std::string Bits(const std::string &text) {
    std::ostringstream told;
    const bool good = Entry<dbgBitNamesFn>("dbgBitNames")(
        text.c_str(), [](const char *name, int bit, void *user) { Told(user) << bit << name << ' '; }, &told);
    return told.str() + (good ? "" : "refused");
}

// Each row as parent>name=value, numbered from 1 in the order of opening; ")" with the row's number where it is closed.
std::string Rows(const std::string &text) {
    static int rows;
    rows = 0;
    std::ostringstream told;
    const bool good = Entry<dbgSymbolValueFn>("dbgSymbolValue")(
        text.c_str(), 0,
        [](int parent, const char *name, const char *value, void *user) {
            Told(user) << parent << '>' << name << '=' << value << ' ';
            return ++rows;
        },
        [](int row, void *user) { Told(user) << ')' << row << ' '; }, &told);
    return told.str() + (good ? "" : "refused");
}

std::string OrgLine(const std::string &line) {
    char name[256] = "";
    uint16_t address = 1, size = 1;
    if (!Entry<dbgParseOrgStringFn>("dbgParseOrgString")(line.c_str(), name, &address, &size)) return "refused";
    return std::string(name) + '@' + std::to_string(address) + '/' + std::to_string(size);
}

struct Case {
    std::string text, expected;
};

TEST(Readers, ReadWhatIsWritten) {
    EXPECT_EQ(Frames(FrameListText({0x1F, 0, 0x1FFFFE})), "31 0 2097150 ");
    EXPECT_EQ(Frames(FrameListText({})), "");
    EXPECT_EQ(Profile(ProfileListText({{"main", 12}, {"two words", 4294967295}, {"", 0}})),
              "main=12 two_words=4294967295 _=0 ");
    EXPECT_EQ(Profile(ProfileListText({{"main", 12}, {"half", 6000000000}, {"most", 12000000000}})),
              "main=3 half=1500000000 most=3000000000 ");
    EXPECT_EQ(Profile("most 4294967296\n"), "most=4294967295 ");
    EXPECT_EQ(Bits(BitNamesText({{0, "C"}, {7, "IRP"}})), "0C 7IRP ");
    EXPECT_EQ(Bits(""), "");

    const std::string longName(50, 'L');
    const std::string rows = RegisterText({{"Core", {{"STATUS", 0x18}, {"STATUS_SHAD", std::nullopt}, {"ST", 255}}},
                                           {"Nothing", {}},
                                           {"Other", {{"STX", 0}, {longName + "A", 1}, {longName + "B", 0xA2}}}});
    EXPECT_EQ(Rows(rows),
              "0>Core= 1>STATUS=24 )2 1>STATUS_SHAD=? )3 1>ST=255 )4 )1 0>Nothing= )5 0>Other= 6>STX=0 )7 6>" +
                  longName + "A=1 )8 6>" + longName + "B=162 )9 )6 ");
}

TEST(Readers, SumUpFunctionsThatTheProfilerHasNoRoomFor) {
    std::vector<ProfileRow> rows;
    for (int i = 0; i < 2000; ++i) rows.push_back({"function_" + std::to_string(i), 1});
    const std::string young = ProfileListText(rows);
    for (ProfileRow &row : rows) row.count = 1'000'000'000'000;
    const std::string old = ProfileListText(rows);
    EXPECT_LE(old.size(), kLongestProfile);
    EXPECT_EQ(std::count(young.begin(), young.end(), '\n'), std::count(old.begin(), old.end(), '\n'));

    const std::string told = Profile(young);
    const auto shown = std::count(young.begin(), young.end(), '\n') - 1;
    EXPECT_GT(shown, 700);
    EXPECT_NE(told.find("(other)=" + std::to_string(2000 - shown) + ' '), std::string::npos);
}

TEST(Readers, RefuseWhatTheyCannotRead) {
    for (const char *text : {"x", "12  34", " 12", "80000000", "12 -3", "12,34"})
        EXPECT_EQ(Frames(text), "refused") << text;
    for (const char *text : {"main", "main x\n", " 12\n", "main 1\n\n", "main 9223372036854775808\n", "main -1\n"}) {
        EXPECT_EQ(Profile(text), "refused") << text;
    }
    for (const char *text : {"C", "0:", ":C", "x:C", "0:C  1:DC", "32:X", "-1:C"})
        EXPECT_EQ(Bits(text), "refused") << text;
    for (const char *text :
         {"0PORTA=1F", "[Core", "[]", "[Core]0", "[Core]0A", "[Core]0A=", "[Core]0A=1", "[Core]0A=1G", "[Core]1A?",
          "[Core]0ABC?4D?", "[Core]0=12", "[Core]0A?0B?x", "[Core]-A?"}) {
        EXPECT_EQ(Rows(text), "refused") << text;
    }
}

TEST(Readers, TakeTheFormsOfAnOrgLine) {
    const std::string longest(255, 'n');
    const Case cases[] = {
        {"counter EQU 0x20", "counter@32/1"},
        {"counter EQU 0x20 ; bytes:2", "counter@32/2"},
        {"gbl_x   equ\t0x00A0\t; 4 bytes\r", "gbl_x@160/4"},
        {"_x.1$@?: SET H'7F'; size = 255 (an array)", "_x.1$@?@127/255"},
        {"x=$1ff", "x@511/1"},
        {"x = 0A0h ;", "x@160/1"},
        {"x = .32 ; 12 things of 3 bytes", "x@32/3"},
        {"x = 32 ; v2 of 1999, one byte", "x@32/1"},
        {"x = D'32'", "x@32/1"},
        {"x = B'101'", "x@5/1"},
        {"x = 65534", "x@65534/1"},
        {longest + " = 1", longest + "@1/1"},
        {longest + "n = 1", "refused"},
        {"x = 65535", "refused"},
        {"x = 0x10000", "refused"},
        {"x = 1 ; bytes:0", "refused"},
        {"x = 1 ; 256 bytes", "refused"},
        {"x EQU", "refused"},
        {"x EQU0x20", "refused"},
        {"x EQU H'20", "refused"},
        {"x EQU 20 21", "refused"},
        {"x EQU 0x", "refused"},
        {"x ORG 0x20", "refused"},
        {"    org 0", "refused"},
        {"1x = 2", "refused"},
        {"; x = 2", "refused"},
        {"", "refused"},
    };
    for (const Case &c : cases) EXPECT_EQ(OrgLine(c.text), c.expected) << c.text;
}

}  // namespace
