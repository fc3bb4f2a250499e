// What hangs on a chip's pins, and what the chip makes of it.
#include <gtest/gtest.h>

#include <functional>

#include "Programs.h"

TEST(Pins, AreFoundByEachOfTheirNames) {
    const auto chip = MakeChipOf("PIC16F1823", "  org 0\n  goto 0");
    ASSERT_TRUE(chip);
    for (const auto &[name, same] : {std::pair("RA0", "porta0"), {"an0", "Ra0"}, {"MCLR", "RA3"}, {"PORTC5", "rc5"}}) {
        EXPECT_TRUE(chip->FindPin(name)) << name;
        EXPECT_EQ(chip->FindPin(name), chip->FindPin(same)) << name;
    }
    for (const char *none : {"", "RA6", "RB0", "GP0", "VDD", "port", "RA00"}) EXPECT_FALSE(chip->FindPin(none)) << none;
}

TEST(Pins, ReadTheLevelOfWhatHangsThereTogether) {
    const auto chip = MakeChipOf("PIC16F84", "  org 0\n  bsf STATUS, RP0\n  bcf OPTION_REG, NOT_RBPU\n  goto $");
    ASSERT_TRUE(chip);
    const int pin = *chip->FindPin("RB1");
    struct {
        std::vector<ChipWire> wires;
        double volts, pulledUp;  // without and with the pull-up of 20 kOhm
        bool high, highPulledUp;
    } cases[] = {
        {{{5, 100}}, 5, 5, true, true},
        {{{5, 1000}, {0, 3000}}, 3.75, 3.795, true, true},
        {{{0, 0}, {5, 1000}}, 0, 0, false, false},
        {{{0, 20000}}, 0, 2.5, false, true},
        {{{0, std::numeric_limits<double>::infinity()}}, 0.3, 5, false, true},  // floats
    };
    for (const bool pulledUp : {false, true}) {
        for (const auto &c : cases) {
            SCOPED_TRACE(c.volts);
            chip->SetWires(pin, c.wires);
            EXPECT_NEAR(chip->PinVoltage(pin), pulledUp ? c.pulledUp : c.volts, 0.01);
            EXPECT_EQ((*chip->ReadRegister(6) & 2) != 0, pulledUp ? c.highPulledUp : c.high);
        }
        chip->RunTo({}, 3);
    }
}

TEST(Pins, WakeAndInterruptTheChip) {
    const auto chip = MakeChipOf("PIC18F452",
                                 "  org 0\n  goto main\n  org 8\n  incf 0x20, f, a\n  bcf INTCON, INT0IF, a\n  retfie\n"
                                 "main\n  movlw 0x90\n  movwf INTCON, a\n  sleep\n  incf 0x21, f, a\n  bra main");
    ASSERT_TRUE(chip);
    const int pin = *chip->FindPin("RB0");
    for (int times = 1; times <= 3; ++times) {
        chip->SetWires(pin, {{0, 100}});
        EXPECT_EQ(chip->RunTo({}, 100), ChipState::asleep);
        for (const double volts : {5, 0, 5}) chip->SetWires(pin, {{volts, 100}});  // pending already at the first
        EXPECT_EQ(chip->RunTo({}, 30), ChipState::asleep);
        EXPECT_EQ(chip->ReadRegister(0x20), times);
        EXPECT_EQ(chip->ReadRegister(0x21), times);
        EXPECT_TRUE(chip->Stack().empty());
    }
}

TEST(Pins, HoldTheChipInReset) {
    const auto chip = MakeChipOf("PIC16F84", "  org 0\n  incf 0x20, f\n  goto 0");
    ASSERT_TRUE(chip);
    const int pin = *chip->FindPin("MCLR");
    const std::function<void()> ways[] = {[] {}, [&] { chip->Reset(); }, [&] { chip->PowerOnReset(); }};
    for (const auto &reset : ways) {
        chip->SetWires(pin, {});
        EXPECT_EQ(chip->RunTo({}, 100), ChipState::running);
        chip->SetWires(pin, {{0, 100}});
        reset();
        const auto count = chip->ReadRegister(0x20);
        EXPECT_EQ(chip->RunTo({}, 100), ChipState::asleep);
        EXPECT_EQ(chip->ProgramCounter(), 0u);
        EXPECT_EQ(chip->ReadRegister(0x20), count);
    }
}

TEST(Pins, AreMeasured) {
    const auto chip = MakeChipOf("PIC16F877A",
                                 "  org 0\n  movlw 0x41\n  movwf ADCON0\n  banksel ADCON1\n  movlw 0x8e\n"
                                 "  movwf ADCON1\n  banksel ADCON0\nagain\n  bsf ADCON0, GO\n  goto again");
    ASSERT_TRUE(chip);
    chip->RunTo({}, 10);
    const int pin = *chip->FindPin("an0");
    for (const double volts : {0.0, 1.0, 3.75, 5.0}) {
        chip->SetWires(pin, {{volts, 100}});
        chip->RunTo({}, 1000);
        EXPECT_NEAR(*chip->ReadRegister(0x1e) << 8 | *chip->ReadRegister(0x9e), volts / 5 * 1023, 1.0) << volts;
    }
}
