// Values as tips in source text, and their formats.
#include "editor/ValueTip.h"

#include <gtest/gtest.h>

#include <map>

#include "debugger/ValueFormat.h"

namespace {

bool Evaluate(const std::string &name, int format, std::string &value) {
    static const std::map<std::string, std::string> kDecimals = {
        {"_count", "18"}, {"reg", "255"}, {"_reg", "7"}, {"_f", "1.5"}, {"_table", "#100"}, {"_hex", "0x1F"}};
    const auto known = kDecimals.find(name);
    if (known == kDecimals.end()) return false;
    value = known->second;
    if (format == kHexadecimal && name == "reg") value = "0xFF";
    return true;
}

}  // namespace

TEST(ValueFormat, ShowsNumbers) {
    const struct {
        int64_t value;
        const char *texts[4];  // by format
    } cases[] = {
        {0, {"0", "0", "00", "0x0"}},
        {5, {"5", "00000101", "05", "0x5"}},
        {256, {"256", "0000000100000000", "0400", "0x100"}},
        {-1, {"-1", "11111111111111111111111111111111", "01777777777777777777777", "0xFFFFFFFF"}},
        {0x100000001, {"4294967297", "00000000000000000000000000000001", "040000000001", "0x00000001"}},
    };
    for (const auto &c : cases) {
        for (int format = 0; format < 4; ++format) EXPECT_EQ(FormatValue(c.value, format), c.texts[format]);
        EXPECT_EQ(FormatValue(c.value, 9), c.texts[0]);
    }
}

TEST(ValueTip, AsksByTheFilesKind) {
    const struct {
        const char *file, *word, *tip, *tipAtStop;
    } cases[] = {
        {"\\a.c", "count", "_count = 0x12", "_count = 18"},
        {"\\a.C", "reg", "reg = 0xFF", "_reg = 7"},
        {"\\a.asm", "reg", "reg = 0xFF", "reg = 0xFF"},
        {"\\a.asm", "count", "", ""},
        {"\\a.bas", "f", "_f = 1.5", "_f = 1.5"},
        {"\\a.h", "table", "_table = 0x64", "_table = 0x64"},
        {"\\a.pas", "hex", "_hex = 0x1F", "_hex = 0x1F"},
        {"\\a.inc", "reg", "", ""},  // of neither family
        {"\\a.c", "1reg", "", ""},
        {"\\a.c", "", "", ""},
        {"\\a.c", "unknown", "", ""},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(ValueTip(c.file, c.word, kHexadecimal, Evaluate), c.tip) << c.file << ' ' << c.word;
        EXPECT_EQ(ValueTipAtStop(c.file, c.word, Evaluate), c.tipAtStop) << c.file << ' ' << c.word;
    }
    EXPECT_EQ(ValueTip("\\a.c", "count", kDecimal, Evaluate), "_count = 18");
}
