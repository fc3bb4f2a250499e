// What a reset makes of a chip that was in the midst of something.
#include <gtest/gtest.h>

#include <map>

#include "Programs.h"

namespace {

// Counts interrupts of timer 0 in byte 0x20, and resets itself by its watchdog at the end of the first one.
constexpr char kInterrupts14[] =
    "  goto main\n  org 4\n  bcf INTCON, T0IF\n  incf 0x20, f\nwait\n  goto wait\n"
    "main\n  banksel OPTION_REG\n  movlw 0x80\n  movwf OPTION_REG\n"
    "  banksel TMR0\n  movlw 0xa0\n  movwf INTCON\n  goto $";
constexpr char kInterrupts18[] =
    "  goto main\n  org 8\n  bcf INTCON, TMR0IF, a\n  incf 0x20, f, a\nwait\n  bra wait\n"
    "main\n  movlw 0xc0\n  movwf T0CON, a\n  movlw 0xa0\n  movwf INTCON, a\n  bra $";

using Values = std::map<std::string, int>;

uint32_t AddressOf(const CSimChip &chip, const std::string &name) {
    for (uint32_t address = 0; address < chip.DataSize(); ++address)
        if (chip.RegisterName(address) == name) return address;
    ADD_FAILURE() << name;
    return 0;
}

void ExpectSetByReset(const std::string &type, const Values &set, const Values &kept) {
    const auto chip = MakeChipOf(type, "  org 0\n  goto $");
    ASSERT_TRUE(chip);
    for (const Values *values : {&kept, &set})
        for (const auto &[name, value] : *values)
            ASSERT_TRUE(chip->WriteRegister(AddressOf(*chip, name), static_cast<uint8_t>(~value)));
    chip->Reset();
    for (const auto &[name, value] : set)
        EXPECT_EQ(*chip->ReadRegister(AddressOf(*chip, name)) & (name == "INTCON" ? 0xfe : 0xff), value) << name;
    for (const auto &[name, value] : kept) EXPECT_EQ(chip->ReadRegister(AddressOf(*chip, name)), ~value & 0xff) << name;
}

class ResetInAnInterrupt : public testing::TestWithParam<const char *> {};

}  // namespace

TEST_P(ResetInAnInterrupt, LeavesItForTheNextOne) {
    const std::string type = GetParam();
    const bool is18 = type == "PIC18F452";
    const char *const config = is18                   ? "  config WDT = ON, WDTPS = 1\n"
                               : type == "PIC16F1823" ? "  __config _CONFIG1, _WDTE_ON & _FOSC_INTOSC\n"
                                                      : "  __config _WDT_ON & _XT_OSC\n";
    const auto chip = MakeChipOf(type, std::string(config) + "  org 0\n" + (is18 ? kInterrupts18 : kInterrupts14));
    ASSERT_TRUE(chip);
    for (uint8_t turn = 1; turn <= 6; ++turn) {
        chip->WriteRegister(0x20, 0);
        chip->RunTo({}, 2000);
        ASSERT_EQ(chip->ReadRegister(0x20), 1) << int{turn};
        ASSERT_EQ(chip->Stack().size(), 1u);
        const uint64_t resets = chip->Resets();
        if (turn % 3 == 0)
            chip->PowerOnReset();
        else if (turn % 3 == 1)
            chip->Reset();
        else
            for (int i = 0; i < 1000 && chip->Resets() == resets; ++i) chip->RunTo({}, 10000);
        ASSERT_EQ(chip->ProgramCounter(), 0u);
    }
}
INSTANTIATE_TEST_SUITE_P(Chips, ResetInAnInterrupt, testing::Values("PIC16F877A", "PIC16F1823", "PIC18F452"));

TEST(Reset, LeavesNothingUnderWay) {
    const auto chip =
        MakeChipOf("PIC16F628A",
                   "  org 0\n  movlw 0x01\n  movwf PCLATH\n  goto main\n  org 0x120\nmain\n  banksel TXSTA\n"
                   "  movlw 0x55\n  movwf TXSTA\n  banksel RCSTA\n  movlw 0x90\n  movwf RCSTA\n"
                   "  movwf TXREG\n  movwf TXREG\n  banksel EECON1\n  bsf EECON1, RD\n  bsf EECON1, WREN\n"
                   "  bsf EECON1, WR\n  movlw 1\n  addwf PCL, f\n  goto $\n  goto $");
    ASSERT_TRUE(chip);
    for (const bool powerOn : {true, false}) {
        chip->RunTo({}, 30);
        ASSERT_EQ(chip->ReadRegister(AddressOf(*chip, "EECON1")).value_or(0) & 0x06, 0x06);
        powerOn ? chip->PowerOnReset() : chip->Reset();
        const Values values = {{"PCLATH", 0}, {"EECON1", 0}, {"TXSTA", 2}};
        for (const auto &[name, value] : values)
            EXPECT_EQ(chip->ReadRegister(AddressOf(*chip, name)), value) << name << powerOn;
    }
}

TEST(Reset, SetsControlRegistersOfMidRange) {
    ExpectSetByReset("PIC16F877A",
                     {{"INTCON", 0},
                      {"PIE1", 0},
                      {"PIE2", 0},
                      {"PIR2", 0},
                      {"T2CON", 0},
                      {"RCSTA", 0},
                      {"TXSTA", 2},
                      {"ADCON0", 0},
                      {"CCP1CON", 0},
                      {"SSPCON", 0},
                      {"PR2", 0xff},
                      {"TRISB", 0xff}},
                     {{"FSR", 0x12}, {"CCPR1L", 0x34}});
}
TEST(Reset, SetsControlRegistersOfEnhancedChips) {
    ExpectSetByReset("PIC16F1823", {{"INTCON", 0}, {"PIE1", 0}, {"T2CON", 0}, {"BSR", 0}, {"OSCCON", 0x38}},
                     {{"FSR0L", 0x12}, {"LATA", 0xff}});
}
TEST(Reset, SetsControlRegistersOfPic18) {
    ExpectSetByReset("PIC18F452",
                     {{"INTCON", 0},
                      {"INTCON2", 0xf5},
                      {"INTCON3", 0xc0},
                      {"PIE1", 0},
                      {"T2CON", 0},
                      {"RCSTA", 0},
                      {"TXSTA", 2},
                      {"T0CON", 0xff}},
                     {{"FSR0L", 0x12}, {"LATB", 0x34}, {"PRODL", 0x56}});
}

TEST(Reset, IsNotBroughtByThePortOfABaselineChip) {
    const auto chip =
        MakeChipOf("PIC12F508",
                   "  __config _WDT_OFF & _MCLRE_ON & _IntRC_OSC\n  org 0\n  movlw 0x80\n  option\n"
                   "  movlw 0xc0\n  option\nagain\n  incf 0x10, f\n  movf 0x10, w\n  movwf GPIO\n  goto again");
    ASSERT_TRUE(chip);
    chip->RunTo({}, 1000);
    EXPECT_EQ(chip->Resets(), 0u);
    EXPECT_GT(chip->ReadRegister(0x10), 100);
    const int pin = *chip->FindPin("GP3");
    for (double volts : {5.0, 0.0}) chip->SetWires(pin, {{volts, 0}});
    EXPECT_EQ(chip->ProgramCounter(), 0x1ffu) << "reset by the pin";
}
