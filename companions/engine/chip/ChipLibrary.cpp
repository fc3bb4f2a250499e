#include "chip/ChipLibrary.h"

#include <14bit-processors.h>
#include <comparator.h>
#include <interface.h>
#include <ioports.h>
#include <sim_context.h>

#include <algorithm>
#include <cctype>
#include <typeinfo>
#include <utility>

CRingStack::CRingStack(Processor *cpu, const Stack &former) : Stack(cpu) {
    stack_mask = former.stack_mask;
    STVREN = former.STVREN;
}

bool CRingStack::push(unsigned int address) {
    if (depth_ > stack_mask)
        flags |= kStackOverflow;
    else
        ++depth_;
    contents[pointer] = address;
    pointer = (pointer + 1) & stack_mask;
    return true;
}

unsigned int CRingStack::pop() {
    if (depth_ == 0)
        flags |= kStackUnderflow;
    else
        --depth_;
    pointer = (pointer - 1) & stack_mask;
    return contents[pointer];
}

void CRingStack::reset(RESET_TYPE) {
    pointer = 0;
    depth_ = flags = 0;
}

std::vector<uint32_t> CRingStack::Entries() const {
    std::vector<uint32_t> entries;
    for (unsigned int back = depth_; back > 0; --back) entries.push_back(contents[(pointer - back) & stack_mask]);
    return entries;
}

void StartLibrary() {
    static const bool started = [] {
        initialize_gpsim_core();
        initialization_is_complete();
        return true;
    }();
    (void)started;
}

namespace {

ProcessorConstructor *FindNamed(const std::string &name) {
    for (ProcessorConstructor *maker : *ProcessorConstructor::GetList())
        for (const char *known : maker->names)
            if (known && ("pic" + name == known || "p" + name == known)) return maker;
    return nullptr;
}

// The chip that runs every program of the one of this name alike, for one that the library lacks: the same at a higher
// supply voltage, or of a former revision.
std::string TwinOf(std::string name) {
    if (name == "16f84a") return "16f84";
    if (const size_t low = name.find("lf"); low != std::string::npos) name.erase(low, 1);
    return name;
}

}  // namespace

ProcessorConstructor *FindMaker(const std::string &type) {
    StartLibrary();
    std::string name = type;
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    for (const char *prefix : {"pic", "p"})
        if (name.starts_with(prefix)) {
            name.erase(0, std::string(prefix).size());
            break;
        }
    if (name.empty() || !std::isdigit(static_cast<unsigned char>(name[0]))) return nullptr;
    ProcessorConstructor *const maker = FindNamed(name);
    return maker ? maker : FindNamed(TwinOf(name));
}

namespace {

Core CoreOf(pic_processor &chip) {
    switch (chip.base_isa()) {
        case _12BIT_PROCESSOR_:
            return Core::baseline;
        case _14BIT_PROCESSOR_:
            return Core::midRange;
        case _14BIT_E_PROCESSOR_:
            return Core::enhanced;
        default:
            return Core::pic18;
    }
}

// The library takes five bits of BSR for the bank, where the chip has four, and doesn't look where its memory ends.
void RepeatBanks(pic_processor &cpu) {
    const unsigned int size = cpu.register_memory_size();
    Register **const former = cpu.registers;  // stays: the library's tables of the registers' names know it
    cpu.registers = new Register *[2 * size];
    for (unsigned int half : {0u, size}) std::copy_n(former, size, cpu.registers + half);
    cpu.register_bank = cpu.registers;
}

// The library has the capture/compare of the 16F685 and 16F690 on a timer that isn't the chip's, and reaches for what
// is missing there at the first use.
void JoinCapture1(pic_processor &cpu) {
    constexpr unsigned int kTmr1l = 0x0e;
    auto *const timer = dynamic_cast<TMRL *>(cpu.registers[kTmr1l]);
    if (!timer) return;
    for (unsigned int address = 0; address < cpu.register_memory_size(); ++address)
        if (auto *capture = dynamic_cast<CCPRL *>(cpu.registers[address]);
            capture && capture->tmrl && !capture->tmrl->t1con)
            capture->assign_tmr(timer);
}

// The library leaves the second capture/compare of the older PIC18 without its registers, and reaches for them at the
// first pulse.
void JoinCapture2(_16bit_processor &cpu) {
    struct Opened : CCPCON {
        static bool IsJoined(const CCPCON &module) { return module.*(&Opened::ccprl) != nullptr; }
    };
    constexpr unsigned int kCcp2con = 0xfba, kPin = 1;  // of port C
    if (cpu.registers[kCcp2con] != &cpu.ccp2con || Opened::IsJoined(cpu.ccp2con)) return;
    cpu.ccp2con.setCrosslinks(&cpu.ccpr2l, cpu.pir2, PIR2v2::CCP2IF, &cpu.tmr2);
    cpu.ccp2con.setIOpin(&(*cpu.m_portc)[kPin]);
    cpu.ccpr2l.ccprh = &cpu.ccpr2h;
    cpu.ccpr2h.ccprl = &cpu.ccpr2l;
    cpu.ccpr2l.assign_tmr(&cpu.tmr1l);
}

// What chips without flag registers ask for the interrupt of their one peripheral: that of the EEPROM, if they have
// one.
class CLonePeripheral : public PIR_SET {
public:
    explicit CLonePeripheral(EEPROM *eeprom) : eeprom_(eeprom) {}
    int interrupt_status() override { return eeprom_ && eeprom_->get_reg_eecon1()->value.get() & EECON1::EEIF; }

private:
    EEPROM *const eeprom_;
};

// The library ends the process when a program allows that interrupt.
void JoinEepromInterrupt(_14bit_processor &cpu) {
    auto *const intcon = dynamic_cast<INTCON_14_PIR *>(cpu.intcon);
    if (intcon && !intcon->pir_set) intcon->set_pir_set(new CLonePeripheral(cpu.eeprom));  // as long as the process
}

// What the voltage reference tells of its changes on chips with comparators of their own: reading these makes them
// compare.
class CComparators : public CMCON {
public:
    CComparators(pic_processor &cpu, std::vector<Register *> controls)
        : CMCON(&cpu, "comparators", ""), controls_(std::move(controls)) {}
    unsigned int get() override {
        for (Register *const control : controls_) control->get();
        return 0;
    }

private:
    const std::vector<Register *> controls_;
};

// The library has nobody there on the 16F88x, and tells all the same.
void JoinReference(pic_processor &cpu) {
    std::vector<Register *> controls;
    for (unsigned int address = 0; address < cpu.register_memory_size(); ++address)
        if (Register *const found = cpu.registers[address]; dynamic_cast<CMxCON0_base *>(found))
            controls.push_back(found);
    for (unsigned int address = 0; address < cpu.register_memory_size(); ++address)
        if (auto *reference = dynamic_cast<VRCON *>(cpu.registers[address]); reference && !reference->_cmcon)
            reference->_cmcon = new CComparators(cpu, controls);  // as long as the process
}

class CLowSource : public SignalControl {
    char getState() override { return '0'; }
    void release() override {}
};

// Baseline chips have their reset on a pin that is an input only, whatever the program writes there. The library takes
// that for the level of the pin, and resets the chip.
void DetachInputOnlyPin(pic_processor &cpu) {
    static CLowSource low;
    constexpr unsigned int kInputOnly = 3;
    for (unsigned int address = 0; address < cpu.register_memory_size(); ++address)
        if (auto *port = dynamic_cast<PortRegister *>(cpu.registers[address]))
            if (PinModule *pin = port->getIOpins(kInputOnly); pin && pin->getActiveControl()) pin->setSource(&low);
}

}  // namespace

CSimChip::Impl::Impl(pic_processor &chip, bool pic18)
    : cpu(chip),
      isPic18(pic18),
      core(CoreOf(chip)),
      timerHigh(pic18 ? &static_cast<_16bit_processor &>(chip).tmr0h : nullptr),
      resetListener(*new CResetListener),  // the library deletes it when it is removed
      pins(chip, seenStackFlags) {
    if (isPic18) {
        RepeatBanks(cpu);
        JoinCapture2(static_cast<_16bit_processor &>(cpu));
    }
    if (core == Core::baseline) DetachInputOnlyPin(cpu);
    if (core == Core::midRange) {
        JoinCapture1(cpu);
        JoinReference(cpu);
        JoinEepromInterrupt(static_cast<_14bit_processor &>(cpu));
    }
    for (uint32_t address = 0; address < cpu.register_memory_size(); ++address) {
        if (auto *timer = dynamic_cast<TMR0 *>(cpu.registers[address])) timers0.push_back(timer);
        if (auto *timer = dynamic_cast<TMR2 *>(cpu.registers[address])) timers2.push_back(timer);
    }
    gi.add_interface(&resetListener);
    cpu.setBreakOnReset(true);
    if (auto *stack18 = dynamic_cast<Stack16 *>(cpu.stack)) {
        stackFlags = &stack18->stkptr.value.data;
    } else if (dynamic_cast<Stack14E *>(cpu.stack)) {
        stackFlags = &static_cast<_14bit_e_processor &>(cpu).pcon.value.data;
    } else {
        ring = new CRingStack(&cpu, *cpu.stack);
        delete cpu.stack;
        cpu.stack = ring;  // the library deletes it with the chip
        stackFlags = &ring->flags;
    }
}
