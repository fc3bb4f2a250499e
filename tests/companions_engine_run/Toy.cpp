#include "Toy.h"

InstructionKind CToyChip::KindAt(uint32_t address) const {
    switch (address < program.size() ? program[address].op : Op::nop) {
        case Op::call: return InstructionKind::call;
        case Op::back:
        case Op::backFromInterrupt: return InstructionKind::comeBack;
        default: return InstructionKind::other;
    }
}

void CToyChip::Execute(const ToyInstruction &instruction) {
    switch (instruction.op) {
        case Op::nop: break;
        case Op::store: Write(instruction.a, instruction.b); break;
        case Op::add: Write(instruction.a, static_cast<uint8_t>(memory_[instruction.a] + instruction.b)); break;
        case Op::skipIfZero: pc_ += memory_[instruction.a] == 0 ? 1 : 0; break;
        case Op::jump: pc_ = instruction.a; break;
        case Op::call:
            stack_.push_back(pc_);
            pc_ = instruction.a;
            break;
        case Op::back:
        case Op::backFromInterrupt:
            pc_ = stack_.back();
            stack_.pop_back();
            break;
        case Op::dropReturn: stack_.pop_back(); break;
        case Op::sleep: asleep_ = true; break;
        case Op::reset:
            lastReset_ = pc_ - 1;
            resets_++;
            Reset();
            break;
    }
}

ChipState CToyChip::Step() {
    if (asleep_) {
        cycles_++;
        asleep_ = wakesAt == 0 || cycles_ < wakesAt;
        return asleep_ ? ChipState::asleep : ChipState::running;
    }
    if (pc_ >= program.size()) return ChipState::offProgram;
    const ToyInstruction instruction = program[pc_++];
    bool underflow = KindAt(pc_ - 1) == InstructionKind::comeBack && stack_.empty();
    if (!underflow) Execute(instruction);
    cycles_++;
    if (interrupts.contains(cycles_)) {
        stack_.push_back(pc_);
        pc_ = kInterruptEntry;
    }
    if (asleep_) return ChipState::asleep;
    return underflow ? ChipState::stackUnderflow : ChipState::running;
}

ChipState CToyChip::RunTo(const std::vector<bool> &stops, uint64_t most) {
    ChipState state = ChipState::running;
    const uint64_t formerResets = resets_;
    do state = Step();
    while (--most > 0 && state == ChipState::running && !written_ && resets_ == formerResets &&
           !(pc_ < stops.size() && stops[pc_]));
    return state;
}

int ToyRun::Do(RunKind kind) {
    if (!control.Start(kind)) return -1;
    for (int slices = 0; slices < 20; slices++) {
        if (auto end = control.Slice(events); end.stopped) return end.reason;
    }
    return 0;
}
