// Registers, EEPROM and stack of a chip, seen from outside.
#include <algorithm>
#include <cctype>

#include "chip/ChipLibrary.h"

namespace {

// Where the library calls a register otherwise than the chips' headers do. Address 0: wherever it is.
constexpr struct {
    const char *name;
    uint32_t address;
    const char *trueName;
} kTrueNames[] = {
    {"W", 0, "WREG"},
    {"SSP1CON", 0, "SSP1CON1"},
    {"SSP2CON", 0, "SSP2CON1"},
    {"SSPMASK", 0, "SSPMSK"},
    {"EEDATAH", 0, "EEDATH"},
    {"VREFCON", 0x197, "VREGCON"},
    {"WPU", 0x9, "WPUA"},
    {"CLC1POL", 0x32, "CLC1SEL0"},
    {"CLC1SEL0", 0x33, "CLC1SEL1"},
    {"CLC1SEL1", 0x34, "CLC1POL"},
    {"CVRCON", 0x99, "VRCON"},
    {"VRCON", 0x9d, "CVRCON"},
    {"ADRES", 0x1e, "ADRESH"},
    {"DAC2CON1", 0x592, "DAC2REF"},
    {"DAC3CON1", 0x594, "DAC3REF"},
    {"DAC4CON1", 0x596, "DAC4REF"},
};

// What the library reads of a register as its user does, and yet with an effect: TMR0L fills TMR0H, which the program
// would then read.
class CKeepTimerHigh {
public:
    explicit CKeepTimerHigh(Register *high) : high_(high), value_(high ? high->value : RegisterValue()) {}
    ~CKeepTimerHigh() {
        if (high_) high_->value = value_;
    }
    CKeepTimerHigh(const CKeepTimerHigh &) = delete;
    CKeepTimerHigh &operator=(const CKeepTimerHigh &) = delete;

private:
    Register *high_;
    RegisterValue value_;
};

// Enhanced mid-range chips show the general memory of all banks in a row as well, 80 bytes of each.
constexpr uint32_t kLinear = 0x2000, kLinearBank = 80, kLinearFirst = 0x20, kBankSize = 0x80, kBanks = 31;

}  // namespace

Register *CSimChip::Impl::RegisterAt(uint32_t address) const {
    if (address == kWorking) return cpu.Wreg;
    if (core == Core::enhanced && address >= kLinear && address < kLinear + kBanks * kLinearBank)
        address = (address - kLinear) / kLinearBank * kBankSize + kLinearFirst + (address - kLinear) % kLinearBank;
    if (address >= cpu.register_memory_size()) return nullptr;
    Register *found = cpu.registers[address];
    return found && found->isa() != Register::INVALID_REGISTER ? found : nullptr;
}

uint32_t CSimChip::DataSize() const {
    return impl_->cpu.register_memory_size();
}

// At the cycle of its overflow, reading a timer makes the library carry that out before its time.
bool CSimChip::Impl::IsOverflowing(const Register &where) const {
    const uint64_t now = get_cycles().get();
    for (const TMR0 *timer : timers0)
        if (timer == &where) return timer->future_cycle > 0 && timer->future_cycle == now;
    for (TMR2 *timer : timers2)
        if (timer == &where)
            return timer->future_cycle > 0 && (now - timer->last_cycle) / timer->prescale == timer->max_counts();
    return false;
}

uint8_t CSimChip::Impl::ValueOf(Register &where) const {
    if (&where == cpu.pcl) return ToAddress(cpu.pc->value) & 0xff;  // the library gives the one behind it
    if (IsOverflowing(where)) return 0;
    const CKeepTimerHigh keep(timerHigh);
    return static_cast<uint8_t>(where.get_value());
}

bool CSimChip::HasRegister(uint32_t address) const {
    return impl_->RegisterAt(address) != nullptr;
}

std::string CSimChip::RegisterName(uint32_t address) const {
    const Register *found = impl_->RegisterAt(address);
    if (!found) return {};
    std::string name = found->name();
    if (name.starts_with("REG") || name.starts_with("zero")) return {};  // plain memory; reads as zero
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::toupper(c); });
    for (const auto &entry : kTrueNames)
        if (name == entry.name && (entry.address == 0 || entry.address == found->address)) return entry.trueName;
    return name;
}

std::optional<uint8_t> CSimChip::ReadRegister(uint32_t address) const {
    Register *found = impl_->RegisterAt(address);
    if (!found) return std::nullopt;
    return impl_->ValueOf(*found);
}

bool CSimChip::WriteRegister(uint32_t address, uint8_t value) {
    Register *found = impl_->RegisterAt(address);
    if (!found) return false;
    if (found == impl_->cpu.pcl) {
        // The library counts on an instruction that goes on behind it.
        return SetProgramCounter((impl_->cpu.get_pclath_branching_modpcl() | value) & (impl_->isPic18 ? ~1u : ~0u));
    }
    impl_->FromOutside([&] { found->put(value); });
    impl_->ReadWatched();
    return true;
}

uint32_t CSimChip::EepromSize() const {
    return impl_->cpu.eeprom ? impl_->cpu.eeprom->get_rom_size() : 0;
}

std::optional<uint8_t> CSimChip::ReadEeprom(uint32_t address) const {
    if (address >= EepromSize()) return std::nullopt;
    return static_cast<uint8_t>(impl_->cpu.eeprom->get_rom()[address]->get_value());
}

bool CSimChip::WriteEeprom(uint32_t address, uint8_t value) {
    if (address >= EepromSize()) return false;
    impl_->cpu.eeprom->change_rom(address, value);
    return true;
}

std::vector<uint32_t> CSimChip::Stack() const {
    if (impl_->ring) return impl_->ring->Entries();
    // An empty stack of the enhanced chips points behind its end (NO_ENTRY); PIC18's holds byte addresses.
    const ::Stack &stack = *impl_->cpu.stack;
    const int depth = stack.pointer == NO_ENTRY && !impl_->isPic18 ? 0 : stack.pointer;
    std::vector<uint32_t> entries;
    for (int i = 0; i < depth && i <= static_cast<int>(stack.stack_mask); ++i) entries.push_back(stack.contents[i]);
    return entries;
}
