#include "RegisterGroups.h"

#include <algorithm>
#include <array>

namespace {

enum Group : size_t {
    core,
    ports,
    interrupts,
    timers,
    capture,
    serial,
    analog,
    memory,
    system,
    usb,
    can,
    lcd,
    ethernet,
    other,
    count
};

constexpr std::array<std::string_view, count> kNames = {"Core",   "Ports",  "Interrupts",   "Timers", "Capture/PWM",
                                                        "Serial", "Analog", "EEPROM/Flash", "System", "USB",
                                                        "CAN",    "LCD",    "Ethernet",     "Other"};

// The first form that fits decides: what is more special stands first.
constexpr struct {
    Group group;
    std::string_view forms;  // blanks between them
} kForms[] = {
    {core,
     "INDF* FSR* *SHAD PC PCL* STATUS WREG BSR STKPTR TOS TOS? TABLAT TBLPTR* PROD PROD? PLUSW# POSTINC# POSTDEC# "
     "PREINC# OPTION* IBSR IFSR IW ISTATUS ALUSTA CPUSTA"},
    {ports,
     "PORT* GPIO TRIS* LAT* DDR* WPU* ODCON* SLRCON* INLVL* HIDRVC HDRVC APFCON* *PPS PPS* RPINR* RPOR* PADCFG#"},
    {interrupts, "INTCON* PIR PIE PIR# PIE# IPR# IOC* INTIE_REG INTSTA EEINTF"},
    {timers,
     "TMR* T#CON* T#GCON T#PR T#TMR T#HLT T#CLKCON T#RST T?CON T0STA PR# PR#? HLT* SMT* AT#* RTC* ALRM* TCLKCON "
     "TCON#"},
    {capture,
     "CCP* ECCP* DATACCP PWM* PSTR* P#DEL CWG* COG* PSMC* PDC#? PTCON# PTMR? PTPER? SEVTCMP? DTCON OVDCON? "
     "FLTCONFIG CAP#* QEICON MAXCNT? POSCNT? VELR? DFLTCON CA#? PW#DC?"},
    {serial,
     "RCSTA* RC#STA TXSTA* TX#STA RCREG* RC#REG TXREG* TX#REG SPBRG* SPBTG# SP#BRG* BAUD* SSP* MSK I2C* SPP* "
     "PSPCON DMACON# DMABC? RXADDR? TXADDR? LININTF TXBUF COM#* PMADDR* PMDIN* PMDOUT* PMMODE* PMSTAT* PME? PMCONH "
     "PMCONL"},
    {memory, "EE* PMADR* PMDAT* PMCON* NVM*"},
    {system,
     "PCON* RCON* OSC* WD* CLKRCON CPUDOZE BORCON VREGCON PMD# PMDIS# PD# ICD* DSCON? DSGPR# DSWAKE? ACTCON "
     "REFO* HLVDCON LVDCON MEMCON DEVSEL"},
    {analog,
     "AD* AAD* ANSEL* ANCON* ANCFG CM*CON* CMOUT CMSTAT* CVR* VR* FVR* DAC* SRCON* CPS* CTMU* OPA* ZCD* REFCON# "
     "REFCON SLPC* C#CON# MCOUT CCD* CALCON"},
    {usb, "UCON UCFG UADDR UIE UIR UEIE UEIR UEP# UFRM* USTAT USWSTAT UCTRL BD#*"},
    {can,
     "CAN* COMSTAT BRGCON# CIOCON ECANCON RXB#* TXB#* RXF* RXM* B#CON B#D# B#DLC B#EID? B#SID? RXERRCNT TXERRCNT "
     "MSEL# BSEL# BIE# SDFLC TXBIE"},
    {lcd, "LCD*"},
    {ethernet,
     "MA* MICMD MIRD* MIREGADR MISTAT MIWR* ECON# EDATA EDMA* EFLOCON EHT# EIE EIR EP* ERDPT* ERX* ESTAT ETX* EWRPT*"},
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

std::span<const std::string_view> RegisterGroupNames() {
    return kNames;
}

bool IsOfForm(std::string_view name, std::string_view pattern) {
    if (pattern.empty()) return name.empty();
    const std::string_view rest = pattern.substr(1);
    switch (pattern.front()) {
        case '*':
            for (size_t size = 0; size <= name.size(); ++size) {
                if (IsOfForm(name.substr(size), rest)) return true;
            }
            return false;
        case '#':
            for (size_t size = 0; size < name.size() && IsDigit(name[size]);) {
                if (IsOfForm(name.substr(++size), rest)) return true;
            }
            return false;
        default:
            return !name.empty() && (pattern.front() == '?' || pattern.front() == name.front()) &&
                   IsOfForm(name.substr(1), rest);
    }
}

size_t RegisterGroupOf(std::string_view name) {
    for (const auto &[group, forms] : kForms) {
        for (std::string_view left = forms; !left.empty();) {
            const size_t size = std::min(left.find(' '), left.size());
            if (IsOfForm(name, left.substr(0, size))) return group;
            left.remove_prefix(std::min(size + 1, left.size()));
        }
    }
    return other;
}
