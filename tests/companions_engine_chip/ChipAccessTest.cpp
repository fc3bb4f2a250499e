// What is seen and changed of a chip from outside.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "Programs.h"

TEST(CSimChip, IsCreatedByAnySpellingOfItsName) {
    std::string error;
    for (const char *none : {"", "PIC", "PIC16F99999", "AVR", "../x", "PIC16F"}) {
        EXPECT_FALSE(CSimChip::Create(none, error)) << none;
        EXPECT_NE(error, "");
    }
    const auto types = CSimChip::Types();
    for (const char *known : {"PIC16F84", "PIC16F628A", "PIC16F877A", "PIC16F1823", "PIC18F452", "PIC18F1220"})
        EXPECT_TRUE(std::binary_search(types.begin(), types.end(), known)) << known;
    EXPECT_TRUE(CSimChip::Create("16f628A", error)) << error;
    EXPECT_FALSE(CSimChip::Create("PIC16F84", error));  // one in the life of a process
}

// Each in a process of its own, which tells by its exit code where it failed.
TEST(CSimChip, MakesEveryTypeItLists) {
    const auto types = CSimChip::Types();
    EXPECT_GT(types.size(), 100u);
    for (const std::string &type : types) {
        std::fflush(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            std::string error;
            const auto chip = CSimChip::Create(type, error);
            if (!chip) _exit(1);
            if (!chip->Load({{{0, 0}, {2, 0}, {4, 0}}, {}, {}}, error)) _exit(2);
            chip->PowerOnReset();
            if (chip->Step() != ChipState::running || chip->Cycles() != 1) _exit(3);
            for (uint32_t address = 0; address < chip->DataSize(); ++address) {
                if (chip->HasRegister(address) != chip->ReadRegister(address).has_value()) _exit(4);
                if (chip->WriteRegister(address, 0) != chip->HasRegister(address)) _exit(5);
            }
            for (uint32_t address = 0; address < chip->EepromSize(); ++address)
                if (!chip->WriteEeprom(address, 0xa5) || chip->ReadEeprom(address) != 0xa5) _exit(6);
            chip->RunTo({}, 100);
            chip->PowerOnReset();
            if (chip->Cycles() != 0) _exit(7);
            int pins = 0;
            for (const char *name : {"RA0", "RB1", "GP0", "GP1"}) {
                const auto pin = chip->FindPin(name);
                if (!pin) continue;
                ++pins;
                for (const double volts : {0.0, 5.0}) {
                    chip->SetWires(*pin, {{volts, 100}});
                    if (std::abs(chip->PinVoltage(*pin) - volts) > 0.01) _exit(8);
                }
            }
            _exit(pins > 0 ? 0 : 9);
        }
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0) << type;
    }
}

TEST(CSimChip, RefusesWhatItHasNoPlaceFor) {
    std::string error;
    const auto chip = CSimChip::Create("PIC16F84", error);
    ASSERT_TRUE(chip) << error;
    ASSERT_TRUE(chip->Load({{{0, 0x3005}}, {}, {{63, 0x7e}}}, error)) << error;
    EXPECT_FALSE(chip->Load({{{0, 0x2800}, {1024, 0x2800}}, {}, {}}, error));
    EXPECT_NE(error.find("0x0400"), std::string::npos) << error;
    EXPECT_FALSE(chip->Load({{}, {}, {{64, 1}}}, error));
    EXPECT_EQ(chip->WordAt(0), 0x3005u);
    EXPECT_EQ(chip->WordAt(1), 0x3fffu);
    EXPECT_EQ(chip->WordAt(4000), 0x3fffu);
    EXPECT_EQ(chip->ReadEeprom(63), 0x7e);
    EXPECT_EQ(chip->ReadEeprom(64), std::nullopt);
    EXPECT_TRUE(chip->WriteEeprom(0, 9) && chip->ReadEeprom(0) == 9);
    EXPECT_FALSE(chip->WriteEeprom(64, 9));
}

TEST(CSimChip, NamesRegistersAsTheChipsHeaderDoes) {
    std::string error;
    const auto chip = CSimChip::Create("PIC16F1823", error);
    ASSERT_TRUE(chip) << error;
    struct {
        uint32_t address;
        const char *name;
    } cases[] = {{0x03, "STATUS"}, {0x83, "STATUS"},    {0x09, "WREG"}, {0x18, "T1CON"},
                 {0x91, "PIE1"},   {0x215, "SSP1CON1"}, {0x20, ""},     {0x0d, ""}};
    for (const auto &c : cases) EXPECT_EQ(chip->RegisterName(c.address), c.name) << c.address;
    EXPECT_TRUE(chip->HasRegister(0x20));
    EXPECT_FALSE(chip->HasRegister(0x0d));
    EXPECT_FALSE(chip->HasRegister(chip->DataSize()));
    EXPECT_FALSE(chip->WriteRegister(0x0d, 1));
    // Common memory is one in all banks.
    EXPECT_TRUE(chip->WriteRegister(0x70, 0x5a));
    EXPECT_EQ(chip->ReadRegister(0xf0), 0x5a);
}

TEST(CSimChip, TakesValuesAndJumpsFromOutside) {
    const auto chip = MakeChipOf("PIC18F452", "  org 0\n  bra $\n  org 0x1234\n  movwf 0x20, a\n  nop\n  bra $");
    ASSERT_TRUE(chip);
    EXPECT_FALSE(chip->SetProgramCounter(0x1235));
    EXPECT_FALSE(chip->SetProgramCounter(chip->ProgramSize()));
    ASSERT_TRUE(chip->WriteRegister(0xffa, 0x12));  // PCLATH
    ASSERT_TRUE(chip->WriteRegister(0xff9, 0x34));  // PCL
    EXPECT_EQ(chip->ProgramCounter(), 0x1234u);
    EXPECT_EQ(chip->ReadRegister(0xff9), 0x34);
    chip->SetW(0x77);
    EXPECT_EQ(chip->Cycles(), 0u);
    chip->Step();
    EXPECT_EQ(chip->ReadRegister(0x20), 0x77);
    EXPECT_EQ(chip->ProgramCounter(), 0x1236u);
    EXPECT_EQ(chip->Cycles(), 1u);
}

TEST(CSimChip, LeavesTimersAloneThatAreLookedAt) {
    const auto chip = MakeChipOf("PIC16F877A",
                                 "  org 0\n  goto start\n  org 4\n  bcf INTCON, T0IF\n  incf 0x70, f\n  retfie\nstart\n"
                                 "  banksel OPTION_REG\n  movlw 0xdf\n  movwf OPTION_REG\n  banksel T2CON\n  movlw 4\n"
                                 "  movwf T2CON\n  movlw 0xa0\n  movwf INTCON\n  goto $");
    ASSERT_TRUE(chip);
    constexpr int kOverflows = 160;
    int overflows = 0, last = 0;
    while (chip->Cycles() < kOverflows * 256) {
        chip->ReadRegister(0x01);  // TMR0
        const int timer2 = chip->ReadRegister(0x11).value_or(0);
        overflows += timer2 < last;
        last = timer2;
        chip->Step();
    }
    EXPECT_NEAR(overflows, kOverflows, 1);
    EXPECT_NEAR(chip->ReadRegister(0x70).value_or(0), kOverflows, 1);  // of TMR0
}

TEST(CSimChip, RunsToAStopAndShowsTheStackThere) {
    const auto chip = MakeChipOf(
        "PIC16F1823", "  org 0\n  call one\n  bra 0\none\n  call two\n  return\ntwo\n  incf 0x70, f\n  return");
    ASSERT_TRUE(chip);
    std::vector<bool> stops(5);
    stops[4] = true;
    for (int round = 1; round <= 3; ++round) {  // starts at the stop itself from the second time on
        EXPECT_EQ(chip->RunTo(stops, 1000), ChipState::running);
        EXPECT_EQ(chip->ProgramCounter(), 4u);
        EXPECT_EQ(chip->Stack(), (std::vector<uint32_t>{1, 3}));
        EXPECT_EQ(chip->ReadRegister(0x70), round - 1);
    }
    const uint64_t before = chip->Cycles();
    EXPECT_EQ(chip->RunTo({}, 7), ChipState::running);
    EXPECT_EQ(chip->Cycles() - before, 1u + 2 + 2 + 2 + 2 + 2 + 1);
    chip->Reset();
    EXPECT_EQ(chip->ProgramCounter(), 0u);
    EXPECT_TRUE(chip->Stack().empty());
    EXPECT_GT(chip->Cycles(), before);
    chip->PowerOnReset();
    EXPECT_EQ(chip->Cycles(), 0u);
}

TEST(CSimChip, PulsesAtTheSecondCaptureOfPic18) {
    const auto chip = MakeChipOf("PIC18F452",
                                 "  org 0\n  movlw 0x1f\n  movwf PR2\n  movlw 0x08\n  movwf CCPR2L\n  bcf TRISC, 1\n"
                                 "  movlw 0x04\n  movwf T2CON\n  movlw 0x0c\n  movwf CCP2CON\n  bra $");
    ASSERT_TRUE(chip);
    const auto pin = chip->FindPin("RC1");
    ASSERT_TRUE(pin);
    int high = 0;
    chip->RunTo({}, 1000);
    const uint64_t begin = chip->Cycles();
    while (chip->Cycles() - begin < 3200) {
        chip->Step();
        high += chip->PinVoltage(*pin) > 2.5 ? 2 : 0;  // cycles
    }
    EXPECT_NEAR(high, 800, 20);
}
