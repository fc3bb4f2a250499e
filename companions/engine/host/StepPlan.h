// What a run command has in mind: tells, instruction by instruction, whether it has come to its end.
//
// Calls that are stepped over, interrupts and the rest of a function are passages: the target runs freely up to the
// return address, at the depth of the stack that goes with it.
#pragma once

#include <cstdint>
#include <optional>

#include "Breakpoints.h"
#include "Chip.h"
#include "ProgramMap.h"
#include "Session.h"

class CStepPlan {
public:
    // All must outlive this.
    CStepPlan(const IChip &chip, const IProgramMap &map, CBreakpoints &breakpoints)
        : chip_(chip), map_(map), breakpoints_(breakpoints) {}

    // From where the chip stands. False when there is nothing to step out of.
    bool Begin(RunKind kind);
    void Abandon();

    bool IsStep() const { return phase_ != Phase::free; }  // a step is under way

    // Whether each single instruction has to be shown by Before and After; else Passed is enough, from time to time and
    // wherever the breakpoints' Stops say so.
    bool WantsEach() const { return phase_ == Phase::each; }

    void Before();            // the chip is about to execute an instruction
    bool After(bool slept);   // it has, or has woken from sleep before it: true ends the command here
    bool Passed(bool isLate);  // the chip has run on, `isLate`: for long. True ends the command here

private:
    enum class Phase { free, each, passage };

    bool ByInstruction() const { return kind_ == RunKind::stepIntoInstr || kind_ == RunKind::stepOverInstr; }
    bool EntersInterrupt(size_t depth, uint32_t pc) const;
    void Pass(size_t level);
    bool EndsHere() const;

    const IChip &chip_;
    const IProgramMap &map_;
    CBreakpoints &breakpoints_;

    RunKind kind_ = RunKind::run;
    Phase phase_ = Phase::free;
    std::optional<ImagePlace> startPlace_;
    size_t startDepth_ = 0;

    uint32_t passageEnd_ = 0;  // the return address
    size_t passageLevel_ = 0;  // the stack's depth behind the return

    uint32_t from_ = 0;  // the instruction of Before
    size_t fromDepth_ = 0;
    InstructionKind fromKind_ = InstructionKind::other;
};
