// The simulator library's side of a chip. Known to the chip's own sources only: the library's headers define macros and
// global names of every kind.
#pragma once

#include <gpsim_classes.h>

#include <14bit-tmrs.h>
#include <16bit-processors.h>
#include <breakpoints.h>
#include <clock_phase.h>
#include <eeprom.h>
#include <gpsim_interface.h>
#include <gpsim_time.h>
#include <pic-processor.h>

#include <string>
#include <vector>

#include "chip/ChipPins.h"
#include "chip/ChipWatch.h"
#include "chip/InstructionWrites.h"
#include "chip/SimChip.h"

// Hears of each reset: the library tells its interfaces when it stops, and with "break on reset" it believes it does.
class CResetListener : public Interface {
public:
    void SimulationHasStopped(gpointer) override { heard = true; }
    bool heard = false;
};

// The stack of mid-range chips. The library's own neither wraps nor tells: at the ninth call it leaves the call out
// and stays where it is for ever; a return too many goes to address 0. The real one is a ring.
class CRingStack : public Stack {
public:
    CRingStack(Processor *cpu, const Stack &former);
    bool push(unsigned int address) override;
    unsigned int pop() override;
    void reset(RESET_TYPE) override;
    std::vector<uint32_t> Entries() const;

    unsigned int flags = 0;  // of StackFlag

private:
    unsigned int depth_ = 0;  // entries that hold a return address
};

// Where the enhanced chips and PIC18 note it too: in PCON and STKPTR.
enum StackFlag : unsigned int { kStackUnderflow = 0x40, kStackOverflow = 0x80, kStackFlags = 0xc0 };

// Brings the library up, once in a process.
void StartLibrary();

// The library's maker for a chip's name, in any of the usual spellings, or for its twin; null for none.
ProcessorConstructor *FindMaker(const std::string &type);

struct CSimChip::Impl {
    Impl(pic_processor &chip, bool isPic18);

    uint32_t ToIndex(uint32_t address) const { return isPic18 ? address / 2 : address; }
    uint32_t ToAddress(uint32_t index) const { return isPic18 ? index * 2 : index; }
    bool IsEmpty(uint32_t index) const { return cpu.program_memory[index] == &cpu.bad_instruction; }
    Register *RegisterAt(uint32_t address) const;  // null where the chip has none
    uint8_t ValueOf(Register &where) const;        // without the effects that a read has for the chip
    bool IsOverflowing(const Register &where) const;

    void ReadWatched();
    void LookAtWatched(const WrittenBytes &writes);

    ChipState Run(const std::vector<bool> *stops, uint64_t most) {
        return watch.Any() ? RunLoop<true>(stops, most) : RunLoop<false>(stops, most);
    }
    template <bool watching>
    ChipState RunLoop(const std::vector<bool> *stops, uint64_t most);
    void FromReset(RESET_TYPE kind);
    void AfterReset();
    void LeaveInterrupt();
    void LookAtHalt(unsigned int formerIndex, ChipState &state);
    ResetCause CauseOfReset(unsigned int formerIndex) const;
    void LookAtStack(unsigned int flags, ChipState &state);
    // Makes a change that doesn't come out of an instruction. The library looks for what such a one brings, a wake-up
    // or an interrupt, in the middle of a cycle only.
    template <typename Change>
    void FromOutside(Change change);
    bool SomethingDue() const { return get_cycles().active.next != nullptr; }

    // What each reset sets, though the library's don't.
    struct Control {
        Register *where;
        uint8_t bits;
    };
    std::vector<Control> FindControls(const CSimChip &chip) const;

    pic_processor &cpu;  // the library's; lives as long as the process
    const bool isPic18;
    const Core core;
    Register *const timerHigh;  // TMR0H of PIC18; null on other chips
    std::vector<TMR0 *> timers0;
    std::vector<TMR2 *> timers2;  // and its like
    CResetListener &resetListener;
    CChipPins pins;
    CChipWatch watch;
    std::vector<Control> controls;             // in the order in which they are set
    CRingStack *ring = nullptr;                // null: the chip has another kind of stack
    const unsigned int *stackFlags = nullptr;  // of StackFlag
    unsigned int seenStackFlags = 0;           // and the pins' alarm, which makes the run look at both
    bool isAtPowerOn = false;                  // and nothing has happened since: another reset has nothing to do
    uint64_t resets = 0;
    ChipReset lastReset;
    double clockRate = 0;     // of SetClockRate, hertz; 0: the library's own
    uint64_t firstCycle = 0;  // the library's count at the power-on reset; it never goes back
};

template <typename Change>
void CSimChip::Impl::FromOutside(Change change) {
    isAtPowerOn = false;
    ClockPhase *const execute = cpu.mExecute1Cycle, *const idle = cpu.mIdle;
    // An interrupt that an earlier change has brought: it would be its own next phase if this one brings it again.
    ClockPhase *const due = cpu.mCurrentPhase;
    if (due != idle) cpu.mCurrentPhase = execute;
    execute->setNextPhase(execute);
    idle->setNextPhase(idle);
    change();
    if (resetListener.heard) {  // by its pin
        resetListener.heard = false;
        LeaveInterrupt();
        bp.clear_global();
    }
    if (cpu.mCurrentPhase == idle) cpu.mCurrentPhase = idle->getNextPhase();
    if (cpu.mCurrentPhase != execute) return;
    const bool isNew = due == idle || execute->getNextPhase() != execute;
    cpu.mCurrentPhase = isNew ? execute->getNextPhase() : due;
}
