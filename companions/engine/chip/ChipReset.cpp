// What the library's resets leave out.
#include <14bit-processors.h>
#include <uart.h>

#include <cctype>
#include <string>
#include <string_view>
#include <utility>

#include "chip/ChipLibrary.h"

namespace {

// Registers of which each reset sets at least `bits` to their values at power-on, on all chips that have them; the
// library sets most of them at power-on only. In the order in which they are set: interrupts go off first, flags are
// cleared behind what may set them. In a name '#' is any number of digits and '@' any number of capitals.
// The timers, captures, pins and general memory keep their values; timer 2 and its like are the ones that don't.
constexpr struct {
    std::string_view name;
    uint8_t bits;
} kSetByEachReset[] = {
    {"INTCON", 0xfe},  // without the flag of the port's change
    {"RCON", 0x80},    // the priorities of interrupts; the others tell of resets
    {"STATUS", 0xe0},  // the banks, or pages
    {"INTCON#", 0xff},  {"PIE#", 0xff},       {"IPR#", 0xff},    {"BSR", 0xff},      {"PCLATH", 0xff},
    {"PCLATU", 0xff},   {"OPTION_REG", 0xff}, {"TRIS@", 0xff},   {"ANSEL@", 0xff},   {"WPU@", 0xff},
    {"IOC@", 0xff},     {"T0CON", 0xff},      {"T2CON", 0xff},   {"T4CON", 0xff},    {"T6CON", 0xff},
    {"TMR2", 0xff},     {"TMR4", 0xff},       {"TMR6", 0xff},    {"PR2", 0xff},      {"PR4", 0xff},
    {"PR6", 0xff},      {"CCP#CON", 0xff},    {"CCP#AS", 0xff},  {"CCPTMRS#", 0xff}, {"ECCP#CON", 0xff},
    {"ECCP#AS", 0xff},  {"ECCP#DEL", 0xff},   {"PWM#CON", 0xff}, {"PSTR#CON", 0xff}, {"SSP#CON#", 0xff},
    {"SSP#STAT", 0xff}, {"SSP#ADD", 0xff},    {"SSP#MSK", 0xff}, {"RCSTA#", 0xff},   {"TXSTA#", 0xff},
    {"BAUDCON#", 0xff}, {"BAUDCTL", 0xff},    {"SPBRG@#", 0xff}, {"ADCON#", 0xff},   {"CM#CON#", 0xff},
    {"VRCON", 0xff},    {"CVRCON", 0xff},     {"FVRCON", 0xff},  {"DACCON#", 0xff},  {"CPSCON#", 0xff},
    {"SRCON#", 0xff},   {"APFCON#", 0xff},    {"MDCON", 0xff},   {"CLKRCON", 0xff},  {"CLC#CON", 0xff},
    {"NCO#CON", 0xff},  {"CWG#CON#", 0xff},   {"LVDCON", 0xff},  {"HLVDCON", 0xff},  {"WDTCON", 0xff},
    {"OSCCON", 0xff},   {"PIR#", 0xff},
};

bool Fits(std::string_view name, std::string_view form) {
    for (; !form.empty(); form.remove_prefix(1)) {
        const auto isMore = [&](int (*is)(int)) { return !name.empty() && is(static_cast<unsigned char>(name[0])); };
        if (form[0] == '#') {
            while (isMore(std::isdigit)) name.remove_prefix(1);
        } else if (form[0] == '@') {
            while (isMore(std::isupper)) name.remove_prefix(1);
        } else {
            if (name.empty() || name[0] != form[0]) return false;
            name.remove_prefix(1);
        }
    }
    return name.empty();
}

void SetAsAtPowerOn(Register &where, uint8_t bits) {
    if (bits == 0xff) return where.reset(POR_RESET);
    where.put_value((where.value.get() & ~bits) | (where.por_value.get() & bits));
}

}  // namespace

std::vector<CSimChip::Impl::Control> CSimChip::Impl::FindControls(const CSimChip &chip) const {
    std::vector<std::pair<std::string, Register *>> named;
    for (uint32_t address = 0; address < cpu.register_memory_size(); ++address) {
        Register *const found = RegisterAt(address);
        if (found && found->address == address) named.emplace_back(chip.RegisterName(address), found);
    }
    std::vector<Control> controls;
    for (const auto &[form, bits] : kSetByEachReset)
        for (auto &[name, where] : named)
            if (where && Fits(name, form)) controls.push_back({std::exchange(where, nullptr), bits});
    return controls;
}

// The library keeps it that the program is in an interrupt, and takes none then, until a return from it.
void CSimChip::Impl::LeaveInterrupt() {
    if (isPic18) {
        INTCON_16 &intcon = static_cast<_16bit_processor &>(cpu).intcon;
        intcon.in_interrupt = false;
        intcon.set_interrupt_vector(0);
    } else if (core != Core::baseline) {
        if (INTCON *const intcon = static_cast<_14bit_processor &>(cpu).intcon) intcon->in_interrupt = false;
    }
}

void CSimChip::Impl::FromReset(RESET_TYPE kind) {
    cpu.reset(kind);
    for (uint32_t address = 0; address < cpu.register_memory_size(); ++address) {
        // A baud rate generator takes its clearing for a change in the middle of a bit, which is to hold from the next
        // one on, and would begin the first of the bits to come at that time.
        if (auto *const generator = dynamic_cast<_SPBRG *>(cpu.registers[address])) {
            generator->last_cycle = -uint64_t{generator->get_cycles_per_tick()};
            generator->set_start_cycle();  // that time: a bit behind the last one
            generator->last_cycle = 0;
        }
        // What only the chip itself sets and clears stays; a program would wait for ever.
        if (auto *const transmitter = dynamic_cast<_TXSTA *>(cpu.registers[address]))
            transmitter->value.put(transmitter->value.get() | _TXSTA::TRMT);
    }
    if (cpu.eeprom) cpu.eeprom->get_reg_eecon1()->value.put(0);
    // The page that the program was in.
    if (cpu.pclath) cpu.pclath->value.put(0);
    if (kind != POR_RESET || !isPic18) return;
    // Clearing the registers that count the pointers up and down has counted them.
    auto &cpu18 = static_cast<_16bit_processor &>(cpu);
    for (Indirect_Addressing *const pointer : {&cpu18.ind0, &cpu18.ind1, &cpu18.ind2}) pointer->put_fsr(0);
}

// What a chip has on its mind after a reset from outside is of no interest to the next run.
void CSimChip::Impl::AfterReset() {
    LeaveInterrupt();
    bp.clear_global();
    resetListener.heard = false;
    // The library leaves a chip that was asleep in that phase.
    cpu.mIdle->setNextPhase(cpu.mIdle);
    cpu.mExecute1Cycle->setNextPhase(cpu.mExecute1Cycle);
    if (pins.HoldReset())
        cpu.mCurrentPhase = cpu.mIdle;
    else
        cpu.mCurrentPhase = cpu.mExecute1Cycle;
    seenStackFlags = *stackFlags & kStackFlags;
}

void CSimChip::PowerOnReset() {
    if (!impl_->isAtPowerOn) {
        impl_->FromReset(POR_RESET);
        if (impl_->clockRate > 0) impl_->cpu.set_frequency(impl_->clockRate);  // some chips go back to their own rate
    }
    impl_->AfterReset();
    impl_->ReadWatched();
    impl_->resets = 0;
    impl_->firstCycle = get_cycles().get();
    impl_->isAtPowerOn = true;
}

void CSimChip::Reset() {
    if (!impl_->isAtPowerOn) {
        impl_->FromReset(MCLR_RESET);
        impl_->cpu.reset(EXIT_RESET);
        for (const Impl::Control &control : impl_->controls) SetAsAtPowerOn(*control.where, control.bits);
    }
    impl_->AfterReset();
    impl_->ReadWatched();
}
