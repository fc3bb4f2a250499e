#include "expression/Expression.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

#include "debugger/EngineApi.h"

namespace {

constexpr int64_t kLowest = std::numeric_limits<int64_t>::min();
constexpr int64_t kHighest = std::numeric_limits<int64_t>::max();

// The value of `text`, or the words why it has none.
struct Result {
    std::optional<int64_t> value;
    std::string error;
};

Result Evaluate(const std::string &text) {
    static const std::map<std::string, int64_t> values = {{"ticks", 7},   {"$PORTB", 0x81}, {"$32", 5},
                                                          {"$pc", 0x123}, {"low", kLowest}, {".local_1", 4}};
    static const std::map<std::string, int64_t> addresses = {{"ticks", 0x20}, {"buffer", 0x30}, {"$PORTB", 6}};
    const auto in = [](const std::map<std::string, int64_t> &map) {
        return [&map](const std::string &name) {
            const auto found = map.find(name);
            return found == map.end() ? std::nullopt : std::optional(found->second);
        };
    };
    const auto byteAt = [](uint32_t address) -> std::optional<uint8_t> {
        if (address >= 0x100) return std::nullopt;
        return static_cast<uint8_t>(address + 1);
    };
    Result result;
    const auto expression = CExpression::Parse(text, result.error);
    if (expression) result.value = expression->Evaluate(in(values), in(addresses), byteAt, result.error);
    return result;
}

std::string Repeat(const std::string &part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += part;
    return text;
}

TEST(Expression, HasTheOperatorsOfC) {
    const struct {
        const char *text;
        int64_t expected;
    } cases[] = {
        {"1 + 2 * 3", 7},
        {"(1 + 2) * 3", 9},
        {"10 - 4 - 3", 3},
        {"100 / 10 / 5", 2},
        {"-7 / 2", -3},
        {"-7 % 3", -1},
        {"1 << 2 + 1", 8},
        {"1 | 6 ^ 3 & 2", 5},
        {"4 & 5 == 5", 0},
        {"1 < 2 == 1", 1},
        {"3 > 2 > 1", 0},
        {"2 >= 2", 1},
        {"2 <= 1", 0},
        {"2 != 2", 0},
        {"!5", 0},
        {"!!5", 1},
        {"~0", -1},
        {"- -3", 3},
        {"!-+~1", 0},
        {"-3 >> 1", -2},
        {"0 || 2", 1},
        {"4 && 2", 1},
        {"1 || 0 && 0", 1},
        {"2 && 0", 0},
        {"1 ? 2 : 3", 2},
        {"0 ? 2 : 0 ? 3 : 4", 4},
        {"1 ? 0 ? 1 : 2 : 3", 2},
        {"0 || 1 ? 5 : 6", 5},
        {"2*(1?3:4)", 6},
        {"0x1f", 31},
        {"0B101", 5},
        {"017", 15},
        {"0", 0},
        {"12uL", 12},
        {"'A'", 65},
        {"'\\n'", 10},
        {"'\\''", 39},
        {"0xFFFFFFFFFFFFFFFF", -1},
        {"ticks+1", 8},
        {"$PORTB & 0x80", 0x80},
        {"$32*2", 10},
        {"$pc == 0x123", 1},
        {" \t.local_1\n", 4},
        {"&ticks", 0x20},
        {"buffer[2]", 0x33},
        {"&buffer[2] + 1", 0x33},
        {"buffer[ticks - 7]", 0x31},
        {"5&ticks", 5},
        {"buffer[-1]", 0x30},
        {"-buffer[0]", -0x31},
        // what isn't needed isn't asked for
        {"0 && nothing", 0},
        {"1 || 1 / 0", 1},
        {"1 ? 2 : nothing", 2},
        {"ticks == 7 || nothing", 1},
        // 64 bits wrap round
        {"0x7FFFFFFFFFFFFFFF + 1", kLowest},
        {"low - 1", kHighest},
        {"-low", kLowest},
        {"low / -1", kLowest},
        {"low % -1", 0},
        {"low * -1", kLowest},
        {"1 << 63", kLowest},
        {"1 << 64", 0},
        {"-1 >> 1000", -1},
        {"5 >> 64", 0},
    };
    for (const auto &c : cases) {
        const Result result = Evaluate(c.text);
        EXPECT_EQ(result.value, c.expected) << c.text << ": " << result.error;
    }
}

TEST(Expression, SaysWhatIsWrongWhere) {
    const struct {
        const char *text, *error;
    } cases[] = {
        {"", "The expression is empty at column 1"},
        {"  ", "The expression is empty at column 3"},
        {"1 +", "A name or a number is missing at column 4"},
        {"1 + )", "A name or a number is missing before \")\" at column 5"},
        {"(1", "A \")\" is missing at column 3"},
        {"buffer[1", "A \"]\" is missing at column 9"},
        {"1 ? 2", "A \":\" is missing at column 6"},
        {"ticks ticks", "An operator is missing at column 7"},
        {"3[1]", "An operator is missing at column 2"},
        {"ticks = 3", "\"==\" is expected in place of \"=\" at column 7"},
        {"1 - #", "The character \"#\" has no meaning at column 5"},
        {"-\x01", "The character \"?\" has no meaning at column 2"},
        {"&3", "A name is missing behind \"&\" at column 2"},
        {"$ + 1", "A name is missing behind \"$\" at column 1"},
        {"12ab", "\"12ab\" is no number at column 1"},
        {"08", "\"08\" is no number at column 1"},
        {"0x", "\"0x\" is no number at column 1"},
        {"99999999999999999999", "The number \"99999999999999999999\" is too large at column 1"},
        {"'ab'", "A single character is expected between apostrophes at column 1"},
        {"'\\", "A single character is expected between apostrophes at column 1"},
        {"1 + nothing", "There is no value for \"nothing\" at column 5"},
        {"&nothing", "There is no address for \"nothing\" at column 2"},
        {"buffer[208]", "There is no byte at address 256 at column 7"},
        {"buffer[-49]", "There is no byte at address -1 at column 7"},
        {"buffer[0x100000000]", "There is no byte at address 4294967344 at column 7"},
        {"5 / (ticks - 7)", "Division by zero at column 3"},
        {"5 % 0", "Division by zero at column 3"},
        {"1 << -1", "A shift by a negative number at column 3"},
    };
    for (const auto &c : cases) {
        const Result result = Evaluate(c.text);
        EXPECT_FALSE(result.value) << c.text;
        EXPECT_EQ(result.error, c.error) << c.text;
    }
}

TEST(Expression, AnswersAnyLengthAndDepth) {
    for (const std::string &text :
         {Repeat("(", 100000), Repeat("(", 2000) + "1" + Repeat(")", 2000), Repeat("buffer[", 2000),
          Repeat("1?", 100000), Repeat("-(", 2000), Repeat("$!x9", 500), Repeat("-", 100000), Repeat("+=", 1000),
          std::string(2000, '\0')}) {
        const Result result = Evaluate(text);
        EXPECT_FALSE(result.value) << text.substr(0, 20);
        EXPECT_FALSE(result.error.empty() || result.error.size() >= 200) << result.error;
    }
    const Result name = Evaluate(Repeat("long_name", 1000));
    EXPECT_LT(name.error.size(), 200u);
    EXPECT_NE(name.error.find("There is no value for \"long_name"), std::string::npos) << name.error;

    EXPECT_EQ(Evaluate(Repeat("(", 99) + "1" + Repeat(")", 99)).value, 1);
    EXPECT_EQ(Evaluate("1" + Repeat("+1", 50000)).value, 50001);
    EXPECT_EQ(Evaluate(Repeat("-", 100000) + "1").value, 1);
    EXPECT_EQ(Evaluate(Repeat("0?1:", 50000) + "2").value, 2);
}

TEST(FormatNumber, WritesAsTheWatchesShow) {
    const struct {
        int64_t value;
        int format;
        const char *expected;
    } cases[] = {
        {5, kDbgDecimal, "5"},
        {-1, kDbgDecimal, "-1"},
        {5, 77, "5"},
        {kLowest, -1, "-9223372036854775808"},
        {0, kDbgBinary, "0"},
        {5, kDbgBinary, "00000101"},
        {256, kDbgBinary, "0000000100000000"},
        {-1, kDbgBinary, "11111111111111111111111111111111"},
        {int64_t{5} << 31, kDbgBinary, "10000000000000000000000000000000"},
        {8, kDbgOctal, "010"},
        {0, kDbgOctal, "00"},
        {-1, kDbgOctal, "01777777777777777777777"},
        {255, kDbgHex, "0xFF"},
        {0, kDbgHex, "0x0"},
        {-1, kDbgHex, "0xFFFFFFFF"},
        {0x123456789A, kDbgHex, "0x3456789A"},
    };
    for (const auto &c : cases) EXPECT_EQ(FormatNumber(c.value, c.format), c.expected) << c.value << ' ' << c.format;
}

}  // namespace
