#include "registers/RegisterInfo.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include "registers/RegisterGroups.h"

namespace {

constexpr const char *kHeaders = "/usr/share/gputils/header";

std::unique_ptr<CRegisterInfo> Load(const std::string &type) {
    std::string error;
    auto info = CRegisterInfo::Load(type, error);
    EXPECT_TRUE(info) << error;
    return info;
}

TEST(RegisterInfo, ReadsEachHeaderThatIsInstalled) {
    int chips = 0;
    for (const auto &file : std::filesystem::directory_iterator(kHeaders)) {
        const std::string chip = file.path().stem();
        std::string error;
        const auto info = CRegisterInfo::Load(chip, error);
        if (!info) {  // the few that are of no chip
            EXPECT_NE(error.find(chip), std::string::npos) << error;
            continue;
        }
        ++chips;
        EXPECT_GE(info->Registers().size(), 7u) << chip;
        EXPECT_LT(info->Text([](uint32_t) { return 255; }).size(), 4095u) << chip;
        EXPECT_EQ(info->Text(nullptr).find('='), std::string::npos) << chip;
        int64_t last = -1;
        for (const ChipRegister &entry : info->Registers()) {
            const std::string what = chip + ' ' + entry.name;
            EXPECT_FALSE(entry.name.empty()) << chip;
            EXPECT_GT(entry.address, last) << what;
            last = entry.address;
            EXPECT_EQ(info->Find(entry.name), &entry) << what;
            EXPECT_EQ(info->At(entry.address), &entry) << what;
            EXPECT_LT(entry.group, RegisterGroupNames().size()) << what;
            EXPECT_LT(CRegisterInfo::BitText(entry).size(), 255u) << what;
            std::set<std::string> names;
            int lastBit = -1;
            for (const NamedBit &bit : entry.bits) {
                EXPECT_GT(bit.bit, lastBit) << what;
                lastBit = bit.bit;
                EXPECT_TRUE(!bit.name.empty() && names.insert(bit.name).second) << what << ' ' << bit.name;
            }
            EXPECT_LT(lastBit, 8) << what;
        }
    }
    EXPECT_GT(chips, 600);
}

// Names, addresses, groups and bits as the data sheets have them.
TEST(RegisterInfo, KnowsTheRegistersOfTheCommonChips) {
    const struct {
        const char *chip;
        const char *name;  // or alias
        uint32_t address;
        const char *shown, *group, *bits;
    } cases[] = {
        {"PIC16F628A", "STATUS", 3, "STATUS", "Core", "0:C 1:DC 2:Z 3:NOT_PD 4:NOT_TO 5:RP0 6:RP1 7:IRP"},
        {"16F628A", "portb", 6, "PORTB", "Ports", "0:RB0 1:RB1 2:RB2 3:RB3 4:RB4 5:RB5 6:RB6 7:RB7"},
        {"p16f628a", "TMR1", 14, "TMR1L", "Timers", ""},
        {"pic16f628a", "VRCON", 0x9F, "VRCON", "Analog", "0:VR0 1:VR1 2:VR2 3:VR3 5:VRR 6:VROE 7:VREN"},
        {"PIC16F628A", "EECON1", 0x9C, "EECON1", "EEPROM/Flash", "0:RD 1:WR 2:WREN 3:WRERR"},
        {"PIC16F877A", "TRISE", 0x89, "TRISE", "Ports", "0:TRISE0 1:TRISE1 2:TRISE2 4:PSPMODE 5:IBOV 6:OBF 7:IBF"},
        {"PIC16F877A", "INTCON", 11, "INTCON", "Interrupts",
         "0:RBIF 1:INTF 2:TMR0IF 3:RBIE 4:INTE 5:TMR0IE 6:PEIE 7:GIE"},
        {"PIC16F877A", "ADCON0", 0x1F, "ADCON0", "Analog", "0:ADON 2:GO_NOT_DONE 3:CHS0 4:CHS1 5:CHS2 6:ADCS0 7:ADCS1"},
        {"PIC16F1939", "FSR1", 6, "FSR1L", "Core", ""},
        {"PIC16F1939", "LATE", 0x110, "LATE", "Ports", "0:LATE0 1:LATE1 2:LATE2 3:LATE3"},
        {"PIC16F1939", "SPBRG", 0x19B, "SP1BRGL", "Serial", ""},
        {"PIC16F1939", "STKPTR", 0xFED, "STKPTR", "Core", ""},
        {"PIC16F1939", "LCDCON", 0x791, "LCDCON", "LCD", "0:LMUX0 1:LMUX1 2:CS0 3:CS1 5:WERR 6:SLPEN 7:LCDEN"},
        {"PIC18F4520", "DDRB", 0xF93, "TRISB", "Ports",
         "0:TRISB0 1:TRISB1 2:TRISB2 3:TRISB3 4:TRISB4 5:TRISB5 6:TRISB6 7:TRISB7"},
        {"PIC18F4520", "STATUS", 0xFD8, "STATUS", "Core", "0:C 1:DC 2:Z 3:OV 4:N"},
        {"PIC18F4520", "PC", 0xFF9, "PCL", "Core", ""},
        {"PIC18F4520", "RCON", 0xFD0, "RCON", "System",
         "0:NOT_BOR 1:NOT_POR 2:NOT_PD 3:NOT_TO 4:NOT_RI 6:SBOREN 7:IPEN"},
        {"PIC18F87J11", "ODCON2", 0xFCE, "TMR1L", "Timers", ""},  // TMR1L after a reset
        {"PIC18F87J11", "T1CON", 0xFCD, "T1CON", "Timers",
         "0:TMR1ON 1:TMR1CS 2:NOT_T1SYNC 3:T1OSCEN 4:T1CKPS0 5:T1CKPS1 6:T1RUN 7:RD16"},
    };
    for (const auto &c : cases) {
        const auto info = Load(c.chip);
        const ChipRegister *found = info ? info->Find(c.name) : nullptr;
        ASSERT_TRUE(found) << c.chip << ' ' << c.name;
        EXPECT_EQ(found->address, c.address) << c.name;
        EXPECT_EQ(found->name, c.shown);
        EXPECT_EQ(RegisterGroupNames()[found->group], c.group) << c.name;
        EXPECT_STREQ(CRegisterInfo::BitText(*found).c_str(), c.bits) << c.chip << ' ' << c.name;
    }
}

TEST(RegisterInfo, FindsTheRegistersThatAreInEachBank) {
    const struct {
        const char *chip;
        uint32_t address;
        const char *name;  // empty: none
    } cases[] = {
        {"PIC16F628A", 0x83, "STATUS"},  {"PIC16F628A", 0x18B, "INTCON"}, {"PIC16F628A", 0x101, "TMR0"},
        {"PIC16F628A", 0x186, "TRISB"},  {"PIC16F628A", 0x105, ""},       {"PIC16F628A", 0x20, ""},
        {"PIC16F628A", 0x203, ""},       {"PIC16F877A", 0x106, "PORTB"},  {"PIC16F877A", 0x107, ""},
        {"PIC16F1939", 0xF83, "STATUS"}, {"PIC16F1939", 0x48B, "INTCON"}, {"PIC16F1939", 0x81, "INDF1"},
        {"PIC16F1939", 0x0A0, ""},       {"PIC16F54", 0x23, ""},          {"PIC16F57", 0x23, "STATUS"},
        {"PIC18F4520", 0x83, ""},        {"PIC18F4520", 0xF83, "PORTD"},  {"PIC18F4520", 0x100000, ""},
    };
    for (const auto &c : cases) {
        const auto info = Load(c.chip);
        const ChipRegister *found = info->At(c.address);
        EXPECT_EQ(found ? found->name : "", c.name) << c.chip << ' ' << std::hex << c.address;
    }
}

TEST(RegisterInfo, TakesTheHeadersOfTheUsersDirectory) {
    const auto directory = std::filesystem::temp_directory_path() / ("registers-" + std::to_string(getpid()));
    std::filesystem::create_directories(directory);
    std::ofstream(directory / "p16x1.inc") << "W EQU H'0000'\n;----- Register Files ---\nSTATUS EQU H'0003'\r\nADCON "
                                              "EQU H'0020'\nPORTA EQU H'zz'\n\xff\xfe\n"
                                              ";----- ADCON Bits ---\nCHS EQU H'0002'\nGO EQU H'0009'\nCHS0 EQU "
                                              "H'0002'\nCHS1 EQU H'0003'\n;=====\n_X EQU H'0001'\n";
    std::ofstream(directory / "p16x2.inc") << "no header";
    setenv("GPUTILS_HEADER_PATH", directory.c_str(), 1);
    const auto info = Load("PIC16X1");
    std::string error;
    for (const char *type : {"PIC16X2", "PIC16F628A", "../p16x1", ""}) {
        error.clear();
        EXPECT_FALSE(CRegisterInfo::Load(type, error)) << type;
        EXPECT_NE(error.find(directory), std::string::npos) << error;
    }
    unsetenv("GPUTILS_HEADER_PATH");
    std::filesystem::remove_all(directory);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->Text([](uint32_t address) { return address; }), "[Core]0STATUS=03[Analog]0ADCON=20");
    EXPECT_EQ(info->Text([](uint32_t address) { return address; }, 0x5A), "[Core]0STATUS=030W=5A[Analog]0ADCON=20");
    EXPECT_EQ(CRegisterInfo::BitText(*info->Find("adcon")), "2:CHS0 3:CHS1");
    EXPECT_FALSE(info->Find("W") || info->Find("_X") || info->Find("PORTA"));
}

}  // namespace
