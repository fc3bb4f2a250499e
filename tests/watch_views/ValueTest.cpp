// What rows show of values, and what is read of typed ones, without a target.
#include <gtest/gtest.h>

#include "debugger/RegisterValue.h"
#include "debugger/TypedValue.h"
#include "debugger/ValueFormat.h"
#include "debugger/WatchList.h"
#include "debugger/WatchValue.h"
#include "platform/Profile.h"
#include "support/Scratch.h"

namespace {

constexpr PropLook kNormal = PropLook::normal, kChanged = PropLook::changed, kError = PropLook::error;

}  // namespace

// One row through the stops of a run; each answer meets what the ones before have left.
TEST(WatchValue, IsComparedWithTheRefreshBefore) {
    const struct {
        const char *answer;  // null: refused
        bool sameStop;
        WatchShown shown;
    } steps[] = {
        {"0", false, {"0 'NUL'", kNormal}},       {"65", false, {"65 'A'", kChanged}},
        {"65", true, {"65 'A'", kChanged}},       {"65", false, {"65 'A'", kNormal}},
        {"66", true, {"66 'B'", kChanged}},       {"65", true, {"65 'A'", kNormal}},
        {nullptr, false, {"gone", kError}},       {"65", false, {"65 'A'", kNormal}},
        {"12z", false, {"error", kError}},        {"127", false, {"127 'DEL'", kChanged}},
        {"1.5", false, {"1.5", kChanged}},        {"1.50", false, {"1.5", kNormal}},
        {"-1", false, {"-1", kChanged}},          {"#0x10", false, {"0x10", kChanged, true}},
        {"#0x10", false, {"0x10", kNormal, true}}, {"32", false, {"32 'Space'", kChanged}},
        {"9223372036854775808", false, {"-9223372036854775808", kChanged}},
    };
    WatchValue value;
    WatchShown shown;
    for (const auto &step : steps) {
        SCOPED_TRACE(step.answer ? step.answer : "refused");
        WatchAnswer answer;
        if (step.answer) answer.text = step.answer;
        else answer.error = "gone";
        value.keepPrevious = step.sameStop;
        shown = RefreshWatch(value, answer, shown, "error");
        EXPECT_EQ(shown.text, step.shown.text);
        EXPECT_EQ(shown.look, step.shown.look);
        EXPECT_EQ(shown.readOnly, step.shown.readOnly);
    }
}

// A negative number has more bits in one format than in another.
TEST(WatchValue, StandsOutTheSameInAnotherFormat) {
    for (const char *first : {"-1", "7"}) {
        WatchValue value;
        WatchShown shown = RefreshWatch(value, {first, ""}, {}, "error");
        shown = RefreshWatch(value, {"-1", ""}, shown, "error");
        const PropLook look = shown.look;
        value.format = kHexadecimal;
        shown = ReformatWatch(value, {"0xFFFFFFFF", ""}, shown, "error");
        EXPECT_EQ(shown, (WatchShown{"0xFFFFFFFF", look, false}));
        value.keepPrevious = true;
        EXPECT_EQ(RefreshWatch(value, {"0xFFFFFFFF", ""}, shown, "error").look, look);
    }
}

TEST(WatchValue, ReadsTypedNumbersUpToWhatDoesNotBelong) {
    const struct {
        const char *text;
        int format;
        TypedNumber typed;
    } cases[] = {
        {"0x1G", kHexadecimal, {1, true, false}},  {"ff", kHexadecimal, {255, true}},
        {"0XaB 'x'", kHexadecimal, {0xab, true}},  {"0x", kHexadecimal, {0, false}},
        {"00000101 'ENQ'", kBinary, {5, true}},    {"102", kBinary, {2, true, false}},
        {"0101", kOctal, {65, true}},              {"18", kOctal, {1, true, false}},
        {"65 'A'", kDecimal, {65, true}},          {"-5", kDecimal, {0, false, false}},
        {"12", 77, {12, true}},                    {"", kDecimal, {0, false}},
        {"18446744073709551616", kDecimal, {0, true, true, false}},
    };
    for (const auto &each : cases) EXPECT_EQ(ReadTyped(each.text, each.format), each.typed) << each.text;
}

TEST(RegisterValue, HasNoLeadingZerosAndReadsWhatFits) {
    const struct {
        int value, format;
        const char *shown;
    } shown[] = {
        {0, kBinary, "0"}, {5, kBinary, "101"}, {8, kOctal, "010"}, {255, kHexadecimal, "0xFF"}, {200, 9, "200"}};
    for (const auto &each : shown) EXPECT_EQ(RegisterText(static_cast<uint16_t>(each.value), each.format), each.shown);
    const struct {
        const char *text;
        int format;
        TypedNumber typed;
    } typed[] = {
        {"101", kBinary, {5, true}},       {"1x1", kBinary, {5, true, false}},
        {"zz", kBinary, {0, false, false}}, {"017", kOctal, {15, true}},
        {"08", kOctal, {0, true, false}},  {"0x1G", kHexadecimal, {1, true, false}},
        {"fF", kHexadecimal, {255, true}}, {"0x", kHexadecimal, {0, false}},
        {"-1", kDecimal, {-1, true}},      {" +12", kDecimal, {12, true}},
        {"-", kDecimal, {0, false}},       {"12abc", kDecimal, {12, true, false}},
    };
    for (const auto &each : typed) EXPECT_EQ(ReadTypedRegister(each.text, each.format), each.typed) << each.text;
    EXPECT_FALSE(ReadTypedRegister("FFFFFFFFFFFFFFFF", kHexadecimal).fits);
    EXPECT_FALSE(ReadTypedRegister("1" + std::string(64, '0'), kBinary).fits);
}

TEST(TypedValue, KnowsWhatTheTargetHasCutOff) {
    const struct {
        int64_t now, value;
        bool cut;
    } cases[] = {{44, 300, true},  {300, 300, false},    {0, 65536, true}, {5, 0x10005, true},
                 {255, -1, false}, {127, -129, true}, {7, 300, false}};
    for (const auto &each : cases) EXPECT_EQ(IsCutOff(each.now, each.value), each.cut) << each.value;
}

TEST(WatchList, GivesBackWhatTheUserWroteAndReadsEditedSections) {
    const CScratch scratch;
    const std::string file = scratch.Windows("p.__c");
    const std::vector<StoredWatch> watches = {{"$PORTB", 1},  {"a == b", 2}, {"'A'", 3}, {"[x", 1}, {";y", 2},
                                              {std::string(2000, 'x') + "=", 3}};
    ASSERT_TRUE(StoreWatches(file, watches));
    EXPECT_EQ(LoadWatches(file, 0), watches);
    EXPECT_EQ(GetPrivateProfileIntA("Watch", "$PORTB_fmt", -1, file.c_str()), 1);

    scratch.Write("p.__c", "[Watch]\nCount=2000000000\nSym1=b\nSym3=d\nb_fmt=12x\nSym0=\n");
    EXPECT_EQ(LoadWatches(file, 3), (std::vector<StoredWatch>{{"b", 12}, {"d", 3}}));
    for (const char *count : {"-1", "none", ""}) {
        scratch.Write("p.__c", std::string("[Watch]\nSym0=a\nCount=") + count + "\n");
        EXPECT_TRUE(LoadWatches(file, 0).empty()) << count;
    }
}
