// What lines of a listing give, and the table of addresses that they make.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/AddressTable.h"
#include "editor/ListingFormat.h"

namespace {

constexpr int64_t kNone = -1;

struct Case {
    ListingFormat format;
    std::string line;
    int64_t address;  // kNone: the line gives none
    uint32_t code = 0;
};

CAddressTable Read(const std::vector<std::string> &lines) {
    return ReadAddressTable(static_cast<intptr_t>(lines.size()),
                            [&](intptr_t line) { return std::string_view(lines[static_cast<size_t>(line)]); });
}

}  // namespace

TEST(ListingFormat, ReadsTheLinesOfBothFormats) {
    using enum ListingFormat;
    const Case cases[] = {
        {standard, "0012 3FF0 movlw 1\r\n", 0x12, 0x3FF0},
        {standard, "000037   3400     retlw   0x00     retlw   0\r\n", 0x37, 0x3400},
        {standard, "0012 1234 ABCD label\r\n", 0x12, 0x1234ABCD},
        {standard, "0012 1234 ABCD", kNone},
        {standard, "0012 1234 addlw 1\n", kNone},  // reads as a second word, and isn't one
        {standard, "0012 1234\taddlw 1\n", 0x12, 0x1234},
        {standard, "0012 1234  addlw 1\n", 0x12, 0x1234},
        {standard, "0012 3FF0 ;\n", 0x12, 0x3FF0},
        {standard, "0012 3FF0 _x\n", 0x12, 0x3FF0},
        {standard, "0012 3FF0 .x\n", kNone},
        {standard, "???? 2??0 goto x\n", 0, 0x2000},
        {standard, " 0012 3FF0 movlw 1\n", kNone},
        {standard,
         "\xE9"
         "0012 3FF0 movlw 1\n",
         kNone},
        {standard,
         "0012\xE9\x01"
         "3FF0 movlw 1\n",
         0x12, 0x3FF0},  // bytes above 127 part the words
        {standard, "0012", kNone},
        {standard, "0012\n", kNone},
        {standard, "0012:3FF0 movlw 1\n", kNone},
        {standard, "Address  Value    Disassembly              Source\n", kNone},
        {standard, "-------  -----    -----------              ------\n", kNone},
        {standard, "", kNone},
        {numbered, "   123\t0012   3FF0   addlw 1\n", 0x12, 0x3FF0},
        {numbered, "7 12 30 _main\n", 0x12, 0x30},
        {numbered, "7 12 30 movlw 1\n", kNone},  // only letters up to f
        {numbered, "7 12 1234 ABCD 5\n", 0x12, 0x1234},
        {numbered, "7x 12 30 addlw 1\n", kNone},
        {numbered, "7 12 30 9\n", kNone},
        {numbered, "   \n", kNone},
    };
    for (const Case &c : cases) {
        const auto read = ParseListingLine(c.line, c.format);
        EXPECT_EQ(read ? static_cast<int64_t>(read->address) : kNone, c.address) << c.line;
        EXPECT_EQ(read ? read->code : 0, c.code) << c.line;
    }
}

TEST(ListingFormat, KnowsTheHeader) {
    const std::string header = "hi-tech Software PIC compiler";
    const struct {
        std::vector<std::string> lines;
        int32_t lineOf12;  // in the second format alone the last line gives the address
    } cases[] = {
        {{header + "\r\n", "7 12 30 addlw\r\n"}, 1},
        {{"\r\n", "x\n", header + "\r\n", "7 12 30 addlw\r\n"}, 3},
        {{"about\r\n", header + "\r\n", "7 12 30 addlw\r\n"}, -1},
        {{header + std::string(99, ' ') + "\n", "7 12 30 addlw\r\n"}, -1},  // 128 bytes and more are no header
    };
    for (const auto &c : cases) EXPECT_EQ(Read(c.lines).LineOf(0x12), c.lineOf12) << c.lines.front();
}

TEST(AddressTable, KeepsTheLastLineOfAnAddressAndRefusesHostileOnes) {
    const std::vector<std::string> lines = {
        "0005 0001 nop\n",
        "0002 0001 nop\n",
        "0005 0002 nop\n",
        "80000000 0001 nop\n",
        "FFFFFFFF 0001 nop\n",
        "123456789ABCDEF0123456789ABCDEF2 0001 nop\n",
        "1000000 0001 nop\n",
        "000000000000000000000000000007 0001 nop\n",
        "FFFFFF 0001 nop\n",
        std::string(3 << 20, '9') + " 1 nop\n",
        "0009" + std::string(3 << 20, ' ') + "1 nop\n",
    };
    const CAddressTable table = Read(lines);
    const struct {
        uint64_t address;
        int32_t line;
    } expected[] = {{5, 2},        {2, 1},           {3, -1},         {0, -1}, {7, 7},
                    {0xFFFFFF, 8}, {0x80000000, -1}, {0x1000000, -1}, {9, 10}};
    for (const auto &each : expected) EXPECT_EQ(table.LineOf(each.address), each.line) << each.address;
    EXPECT_EQ(table.Size(), CAddressTable::kLimit);
    EXPECT_EQ(Read({lines[0]}).Size(), 6u);
}
