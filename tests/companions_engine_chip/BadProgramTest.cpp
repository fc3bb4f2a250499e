// Programs that go wrong: the chip says so, and can be used on.
#include <gtest/gtest.h>

#include "Programs.h"

namespace {

const std::vector<bool> kNoStops;

void ExpectUsableAfterReset(CSimChip &chip) {
    chip.PowerOnReset();
    EXPECT_EQ(chip.ProgramCounter(), 0u);
    EXPECT_TRUE(chip.Stack().empty());
    EXPECT_EQ(chip.Cycles(), 0u);
    EXPECT_TRUE(chip.WriteRegister(chip.IsPic18() ? 0x20 : 0x70, 3));
}

}  // namespace

TEST(BadProgram, NothingLoaded) {
    std::string error;
    const auto chip = CSimChip::Create("PIC16F628A", error);
    ASSERT_TRUE(chip) << error;
    EXPECT_EQ(chip->Step(), ChipState::offProgram);
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::offProgram);
    EXPECT_EQ(chip->Cycles(), 0u);
    ASSERT_TRUE(chip->Load({{{0, 0x2800}}, {}, {}}, error));
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::running);
    EXPECT_EQ(chip->Cycles(), 2000u);
}

TEST(BadProgram, RunsIntoEmptyMemory) {
    const auto chip = MakeChipOf("PIC18F1220", "  org 0\n  nop\n  nop");
    ASSERT_TRUE(chip);
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::offProgram);
    EXPECT_EQ(chip->ProgramCounter(), 4u);
    ExpectUsableAfterReset(*chip);
}

TEST(BadProgram, JumpsBeyondMemory) {
    const auto chip = MakeChipOf("PIC16F84", "  org 0\n  goto 0x7f0");
    ASSERT_TRUE(chip);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(chip->Step(), ChipState::offProgram);
    EXPECT_EQ(chip->ProgramCounter(), 0u);
    EXPECT_EQ(chip->Resets(), 0u);
}

TEST(BadProgram, JumpsBeyondMemoryOfPic18) {
    const auto chip = MakeChipOf("PIC18F1220", "  org 0\n  nop\n  goto 0x7f000");
    ASSERT_TRUE(chip);
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::offProgram);
    ExpectUsableAfterReset(*chip);
}

// The mid-range stack is a ring: the ninth call takes the place of the first, and the ninth return finds it again.
TEST(BadProgram, StackOverflowOfMidRange) {
    const auto chip = MakeChipOf("PIC16F628A", "  org 0\nagain\n  call next\n  nop\nnext\n  goto again");
    ASSERT_TRUE(chip);
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::stackOverflow);
    EXPECT_EQ(chip->Cycles(), 8 * 4 + 2u);
    EXPECT_EQ(chip->ProgramCounter(), 2u);
    EXPECT_EQ(chip->Stack(), std::vector<uint32_t>(8, 1));
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::stackOverflow);
    EXPECT_EQ(chip->Cycles(), 9 * 4 + 2u);
    ExpectUsableAfterReset(*chip);
}

TEST(BadProgram, StackUnderflowOfMidRange) {
    const auto chip = MakeChipOf("PIC16F628A", "  org 0\n  call sub\n  return\nsub\n  return");
    ASSERT_TRUE(chip);
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::stackUnderflow);
    EXPECT_EQ(chip->Cycles(), 6u);
    ExpectUsableAfterReset(*chip);
}

TEST(BadProgram, StackOverflowOfEnhancedChip) {
    const auto chip = MakeChipOf("PIC16F1823", "  __config _CONFIG2, _STVREN_OFF & _LVP_OFF\n  org 0\n  call 0");
    ASSERT_TRUE(chip);
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::stackOverflow);
    EXPECT_EQ(chip->Cycles(), 17 * 2u);
    EXPECT_EQ(chip->Stack().size(), 16u);
    ExpectUsableAfterReset(*chip);
}

TEST(BadProgram, StackOverflowThatResetsPic18) {
    const auto chip = MakeChipOf(
        "PIC18F452", "  config STVR = ON, WDT = OFF\n  org 0\n  incf 0x20, f, a\n  rcall next\nnext\n  bra next - 2");
    ASSERT_TRUE(chip);
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::stackOverflow);
    EXPECT_EQ(chip->Resets(), 1u);
    EXPECT_EQ(chip->LastReset().cause, ResetCause::stack);
    EXPECT_EQ(chip->ProgramCounter(), 0u);
    EXPECT_TRUE(chip->Stack().empty());
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::running);
    EXPECT_GT(*chip->ReadRegister(0x20), 1);
    ExpectUsableAfterReset(*chip);
}

TEST(BadProgram, SleepsForEver) {
    const auto chip = MakeChipOf("PIC16F628A", "  __config _WDT_OFF & _LVP_OFF & _XT_OSC\n  org 0\n  sleep\n  goto 0");
    ASSERT_TRUE(chip);
    EXPECT_EQ(chip->RunTo(kNoStops, 1000000000), ChipState::asleep);
    EXPECT_FALSE(chip->SomethingIsDue());
    const uint64_t before = chip->Cycles();
    EXPECT_EQ(chip->Step(), ChipState::asleep);
    EXPECT_EQ(chip->Cycles(), before + 1);
    EXPECT_EQ(chip->RunTo(kNoStops, 1000000000), ChipState::asleep);
    chip->Reset();
    EXPECT_EQ(chip->ProgramCounter(), 0u);
    ExpectUsableAfterReset(*chip);
    EXPECT_EQ(chip->Step(), ChipState::asleep);
}

TEST(BadProgram, StopsBehindASleepOnlyWhenAwake) {
    const auto chip = MakeChipOf(
        "PIC16F84",
        "  __config _WDT_ON & _XT_OSC\n  org 0\n  bsf STATUS, RP0\n  clrf OPTION_REG\n  sleep\n  nop\n  goto 2");
    ASSERT_TRUE(chip);
    std::vector<bool> stops(4);
    stops[3] = true;
    EXPECT_EQ(chip->RunTo(stops, 100), ChipState::asleep);
    EXPECT_TRUE(chip->SomethingIsDue());
    EXPECT_EQ(chip->RunTo(stops, 10000000), ChipState::running);
    EXPECT_EQ(chip->ProgramCounter(), 3u);
    EXPECT_GT(chip->Cycles(), 1000u);
    EXPECT_EQ(chip->Resets(), 0u);
}

TEST(BadProgram, ResetsInALoop) {
    const auto chip = MakeChipOf("PIC18F452", "  config WDT = OFF\n  org 0\n  nop\n  reset");
    ASSERT_TRUE(chip);
    for (uint64_t resets = 1; resets < 500; ++resets) {
        ASSERT_EQ(chip->RunTo(kNoStops, 1000), ChipState::running);
        ASSERT_EQ(chip->Resets(), resets);
        ASSERT_EQ(chip->Cycles(), 2 * resets);
    }
    EXPECT_EQ(chip->LastReset().cause, ResetCause::instruction);
    EXPECT_EQ(chip->LastReset().address, 2u);
    chip->PowerOnReset();
    EXPECT_EQ(chip->Resets(), 0u);
}

TEST(BadProgram, IsResetByItsWatchdogOverAndOver) {
    const auto chip =
        MakeChipOf("PIC16F84", "  __config _WDT_ON & _XT_OSC\n  org 0\n  bsf STATUS, RP0\n  clrf OPTION_REG\n  goto $");
    ASSERT_TRUE(chip);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(chip->RunTo(kNoStops, 1000000), ChipState::running);
    EXPECT_EQ(chip->Resets(), 3u);
    EXPECT_EQ(chip->LastReset().cause, ResetCause::watchdog);
}

TEST(BadProgram, TouchesRegistersThatAreNotThere) {
    const auto chip = MakeChipOf("PIC16F84", "  org 0\n  movf 0x7f, w\n  movwf 0x7f\n  incf 0x20, f\n  goto 0");
    ASSERT_TRUE(chip);
    EXPECT_EQ(chip->RunTo(kNoStops, 400), ChipState::running);
    EXPECT_EQ(chip->ReadRegister(0x20), 100);
}

TEST(BadProgram, SelectsABankThatIsNotThere) {
    const auto chip = MakeChipOf("PIC18F452", "  org 0\n  movlw 0xf1\n  movwf BSR, a\n  setf 0x40, b\n  bra $");
    ASSERT_TRUE(chip);
    ASSERT_TRUE(chip->WatchByte(0x140, true));
    EXPECT_EQ(chip->RunTo(kNoStops, 1000), ChipState::running);
    EXPECT_TRUE(chip->TakeWritten());
    EXPECT_EQ(chip->ReadRegister(0x140), 0xff);
}

struct UsedPart {
    const char *type, *lines;
    uint32_t address;  // where the end is to be seen, and what
    uint8_t mask, value;
};
class PartTheLibraryEndsAt : public testing::TestWithParam<UsedPart> {};

TEST_P(PartTheLibraryEndsAt, Works) {
    const UsedPart &part = GetParam();
    const auto chip = MakeChipOf(part.type, std::string("  org 0\n") + part.lines);
    ASSERT_TRUE(chip);
    EXPECT_EQ(chip->RunTo(kNoStops, 2000), ChipState::running);
    EXPECT_EQ(chip->ReadRegister(part.address).value_or(0) & part.mask, part.value);
}
INSTANTIATE_TEST_SUITE_P(
    Chips, PartTheLibraryEndsAt,
    testing::Values(UsedPart{"PIC16F84",  // the interrupt of the EEPROM
                             "  goto main\n  org 4\n  bcf EECON1, EEIF\n  incf 0x20, f\n  retfie\nmain\n  movlw 0xc0\n"
                             "  movwf INTCON\n  bsf STATUS, RP0\n  bsf EECON1, WREN\n  movlw 0x55\n  movwf EECON2\n"
                             "  movlw 0xaa\n  movwf EECON2\n  bsf EECON1, WR\n  goto $",
                             0x20, 0xff, 1},
                    UsedPart{"PIC16F690",  // a comparison with timer 1
                             "  movlw 0x40\n  movwf CCPR1L\n  movlw 0x0a\n  movwf CCP1CON\n  bsf T1CON, 0\n  goto $",
                             0x0c, 0x04, 0x04},
                    UsedPart{"PIC16F887",  // the voltage reference
                             "  banksel VRCON\n  movlw 0xa5\n  movwf VRCON\n  goto $", 0x97, 0xff, 0xa5}));
