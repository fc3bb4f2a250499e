#include "StepPlan.h"

bool CStepPlan::Begin(RunKind kind) {
    size_t depth = chip_.StackDepth();
    if (kind == RunKind::stepOut && depth == 0) return false;
    kind_ = kind;
    startPlace_ = map_.PlaceAt(chip_.ProgramCounter());
    startDepth_ = depth;
    breakpoints_.SetPassage(std::nullopt);
    phase_ = kind == RunKind::run ? Phase::free : Phase::each;
    if (kind == RunKind::stepOut) Pass(depth - 1);
    return true;
}

void CStepPlan::Abandon() {
    phase_ = Phase::free;
    breakpoints_.SetPassage(std::nullopt);
}

// Lets the chip run until the stack is only `level` deep, which is behind the return to the address above that.
void CStepPlan::Pass(size_t level) {
    passageEnd_ = chip_.Stack().at(level);
    passageLevel_ = level;
    phase_ = Phase::passage;
    breakpoints_.SetPassage(passageEnd_);
}

void CStepPlan::Before() {
    from_ = chip_.ProgramCounter();
    fromDepth_ = chip_.StackDepth();
    fromKind_ = chip_.KindAt(from_);
}

// An interrupt is entered instead of an instruction, or right behind one, which may have used the stack itself.
bool CStepPlan::EntersInterrupt(size_t depth, uint32_t pc) const {
    if (depth == fromDepth_ + 1 && chip_.Stack().back() == from_) return true;
    if (!chip_.IsInterruptEntry(pc)) return false;
    switch (fromKind_) {
        case InstructionKind::call: return depth == fromDepth_ + 2;
        case InstructionKind::comeBack: return depth == fromDepth_ && depth > 0;
        case InstructionKind::other: return depth == fromDepth_ + 1;
    }
    return false;
}

bool CStepPlan::After(bool slept) {
    uint32_t pc = chip_.ProgramCounter();
    size_t depth = chip_.StackDepth();
    if (!slept && pc == from_ && depth == fromDepth_) return true;  // jumps to itself, for ever
    bool over = kind_ == RunKind::stepOver || kind_ == RunKind::stepOverInstr;
    bool interrupt = EntersInterrupt(depth, pc);
    if (kind_ != RunKind::stepIntoInstr && depth > 0 && interrupt) {
        Pass(over && depth > fromDepth_ ? fromDepth_ : depth - 1);
        return false;
    }
    bool called = !interrupt && fromKind_ == InstructionKind::call && depth == fromDepth_ + 1;
    if (called && (over || (kind_ == RunKind::stepInto && !map_.PlaceAt(pc)))) {
        Pass(fromDepth_);
        return false;
    }
    return EndsHere();
}

bool CStepPlan::Passed(bool isLate) {
    if (phase_ != Phase::passage) return false;
    const size_t depth = chip_.StackDepth();
    if (depth > passageLevel_) return false;
    const bool returned = chip_.ProgramCounter() == passageEnd_;
    // A function that throws its return address away comes out elsewhere.
    if (!returned && depth == passageLevel_ && !isLate) return false;
    breakpoints_.SetPassage(std::nullopt);
    phase_ = Phase::each;
    return (returned && kind_ == RunKind::stepOut) || EndsHere();
}

bool CStepPlan::EndsHere() const {
    uint32_t pc = chip_.ProgramCounter();
    if (ByInstruction() || !startPlace_) return true;
    if (!map_.IsLineStart(pc)) return false;
    auto place = map_.PlaceAt(pc);
    return chip_.StackDepth() != startDepth_ || !place || place->line != startPlace_->line ||
           place->file != startPlace_->file;
}
