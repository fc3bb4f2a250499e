// Running a chip.
//
// The library's own ways are step(), which writes its trace for each call, and run(), which stops at instructions put
// into program memory in the place of others (a program that reads itself would find them). Both end at a flag that
// resets, jumps out of memory and reads of missing registers set alike. So the loop is here: the same phases of the
// same clock, with the most frequent of them written out.
#include "chip/ChipLibrary.h"

namespace {

// An interrupt is taken, and a jump's second cycle spent, in phases that follow the instruction's own. Bounded, lest a
// phase that leads back to itself hold us.
constexpr int kMostPhases = 16;

}  // namespace

ResetCause CSimChip::Impl::CauseOfReset(unsigned int formerIndex) const {
    constexpr unsigned int kReset18 = 0x00ff, kResetEnhanced = 0x0001, kRcon = 0xfd0, kRconTimeOut = 0x08,
                           kStatusTimeOut = 0x10;
    const unsigned int code = IsEmpty(formerIndex) ? 0 : cpu.program_memory[formerIndex]->get_opcode();
    if ((isPic18 && code == kReset18) || (core == Core::enhanced && code == kResetEnhanced))
        return ResetCause::instruction;
    if (*stackFlags & kStackFlags & ~seenStackFlags) return ResetCause::stack;
    const bool noTimeOut = isPic18 ? cpu.registers[kRcon]->get_value() & kRconTimeOut
                                   : cpu.status->value.data & kStatusTimeOut;
    return noTimeOut ? ResetCause::other : ResetCause::watchdog;
}

// A halt is the library's word for several things: a reset, a jump out of memory, a register that isn't there.
void CSimChip::Impl::LookAtHalt(unsigned int formerIndex, ChipState &state) {
    bp.clear_global();
    if (resetListener.heard) {
        resetListener.heard = false;
        LeaveInterrupt();
        ++resets;
        lastReset = {CauseOfReset(formerIndex), ToAddress(formerIndex)};
    } else if (cpu.pc->value == formerIndex || cpu.pc->value >= cpu.program_memory_size()) {
        state = ChipState::offProgram;  // a jump out of memory isn't carried out
    }
}

void CSimChip::Impl::LookAtStack(unsigned int flags, ChipState &state) {
    const unsigned int news = flags & ~seenStackFlags;
    if (news & kStackOverflow)
        state = ChipState::stackOverflow;
    else if (news & kStackUnderflow)
        state = ChipState::stackUnderflow;
    if (ring) ring->flags = 0;
    seenStackFlags = *stackFlags & kStackFlags;
}

template <bool watching>
ChipState CSimChip::Impl::RunLoop(const std::vector<bool> *stops, uint64_t most) {
    Program_Counter &pc = *cpu.pc;
    Cycle_Counter &clock = get_cycles();
    Breakpoints &breaks = bp;
    phaseExecute1Cycle *const execute = cpu.mExecute1Cycle;
    ClockPhase *const idle = cpu.mIdle;
    instruction **const program = cpu.program_memory;
    const instruction *const empty = &cpu.bad_instruction;
    const uint32_t words = cpu.program_memory_size();
    const uint32_t shift = isPic18 ? 1 : 0;
    const size_t stopsEnd = stops ? stops->size() : 0;

    isAtPowerOn = false;
    breaks.clear_global();
    ChipState state = ChipState::running;
    const uint64_t formerResets = resets;
    for (uint64_t left = most; left > 0; --left) {
        const uint32_t index = pc.value;
        WrittenBytes writes;
        ClockPhase *phase = cpu.mCurrentPhase;
        if (phase == execute) {
            if (index >= words || program[index] == empty) return ChipState::offProgram;
            if constexpr (watching) writes = BytesToBeWritten(cpu, core);
            execute->setNextPhase(execute);
            program[index]->execute();
            clock.increment();  // the library leaves this out when halted, and a cycle would be lost at each reset
            phase = cpu.mCurrentPhase = execute->getNextPhase();
        } else {
            if (phase == idle && stops && !SomethingDue()) return ChipState::asleep;
            phase = cpu.mCurrentPhase = phase->advance();
        }
        for (int i = 0; phase != execute && phase != idle && i < kMostPhases; ++i)
            phase = cpu.mCurrentPhase = phase->advance();

        if constexpr (watching) LookAtWatched(writes);
        if (breaks.global_break) [[unlikely]]
            LookAtHalt(index, state);
        if (const unsigned int flags = *stackFlags & kStackFlags; flags != seenStackFlags) [[unlikely]] {
            LookAtStack(flags, state);
            if (pins.changed) break;
        }
        if (state != ChipState::running) return state;
        // Asleep, the program counter is at the next instruction already.
        if (const size_t address = static_cast<size_t>(pc.value) << shift;
            address < stopsEnd && (*stops)[address] && phase == execute)
            break;
        if (watching && watch.written) break;
        if (resets != formerResets) [[unlikely]]
            break;
    }
    return cpu.mCurrentPhase == idle ? ChipState::asleep : state;
}

// The library throws where it finds itself at odds; such a chip goes no further.
ChipState CSimChip::Step() try { return impl_->Run(nullptr, 1); } catch (...) {
    return ChipState::offProgram;
}

ChipState CSimChip::RunTo(const std::vector<bool> &stops, uint64_t most) try {
    return impl_->Run(&stops, most);
} catch (...) {
    return ChipState::offProgram;
}

bool CSimChip::SomethingIsDue() const {
    return impl_->SomethingDue();
}

uint64_t CSimChip::Resets() const {
    return impl_->resets;
}

ChipReset CSimChip::LastReset() const {
    return impl_->lastReset;
}

uint64_t CSimChip::Cycles() const {
    return get_cycles().get() - impl_->firstCycle;
}
