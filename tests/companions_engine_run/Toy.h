// A chip of a dozen instructions with its program and source, to try a run on.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "RunControl.h"

enum class Op { nop, store, add, skipIfZero, jump, call, back, backFromInterrupt, dropReturn, sleep, reset };

// `line` 0: code without source. Each instruction takes a cycle.
struct ToyInstruction {
    int line = 0;
    Op op = Op::nop;
    uint32_t a = 0;  // a target, or a byte of data memory
    uint8_t b = 0;   // a value
};

class CToyChip : public IChip {
public:
    static constexpr uint32_t kMemory = 64, kInterruptEntry = 4;

    explicit CToyChip(std::vector<ToyInstruction> program) : program(std::move(program)) {}

    std::vector<ToyInstruction> program;
    std::map<uint64_t, bool> interrupts;  // at these cycles one is entered
    uint64_t wakesAt = 0;                 // a sleep's end; 0: never

    void PowerOnReset() override { Reset(); }
    void Reset() override {
        pc_ = 0;
        stack_.clear();
    }
    ChipState Step() override;
    ChipState RunTo(const std::vector<bool> &stops, uint64_t most) override;
    bool SomethingIsDue() const override { return wakesAt > cycles_; }
    uint64_t Resets() const override { return resets_; }
    ChipReset LastReset() const override { return {ResetCause::instruction, lastReset_}; }
    uint32_t ProgramSize() const override { return static_cast<uint32_t>(program.size()); }
    uint32_t ProgramCounter() const override { return pc_; }
    bool SetProgramCounter(uint32_t address) override {
        pc_ = address;
        return address < program.size();
    }
    uint64_t Cycles() const override { return cycles_; }
    InstructionKind KindAt(uint32_t address) const override;
    bool IsInterruptEntry(uint32_t address) const override { return address == kInterruptEntry; }
    std::vector<uint32_t> Stack() const override { return stack_; }
    size_t StackDepth() const override { return stack_.size(); }
    uint8_t W() const override { return w_; }
    void SetW(uint8_t value) override { w_ = value; }
    std::optional<uint32_t> FindRegister(const std::string &name) const override {
        return name == "PORT" || name == "port" ? std::optional<uint32_t>(1) : std::nullopt;
    }
    std::optional<uint8_t> ReadRegister(uint32_t address) const override {
        return address < kMemory ? std::optional<uint8_t>(memory_[address]) : std::nullopt;
    }
    bool WriteRegister(uint32_t address, uint8_t value) override {
        if (address < kMemory) memory_[address] = value;
        return address < kMemory;
    }
    bool WatchByte(uint32_t address, bool on) override {
        if (address < kMemory) watched_[address] += on ? 1 : -1;
        return address < kMemory;
    }
    bool TakeWritten() override { return std::exchange(written_, false); }
    void ForgetWritten() override { written_ = false; }

private:
    void Execute(const ToyInstruction &instruction);
    void Write(uint32_t address, uint8_t value) {
        memory_[address] = value;
        written_ |= watched_[address] > 0;
    }

    uint32_t pc_ = 0;
    uint64_t cycles_ = 0;
    uint8_t w_ = 0;
    uint64_t resets_ = 0;
    uint32_t lastReset_ = 0;
    std::vector<uint32_t> stack_;
    uint8_t memory_[kMemory] = {};
    int watched_[kMemory] = {};
    bool written_ = false, asleep_ = false;
};

// Each run of instructions of one line is a piece of its code.
class CToyMap : public IProgramMap {
public:
    explicit CToyMap(const CToyChip &chip) : chip_(chip) {}

    std::map<std::string, ImageSymbol> symbols;
    std::vector<ImageFunction> functions;

    const ImageSymbol *FindSymbol(const std::string &name) const override {
        auto found = symbols.find(name);
        return found == symbols.end() ? nullptr : &found->second;
    }
    const std::vector<ImageFunction> &Functions() const override { return functions; }
    std::optional<ImagePlace> PlaceAt(uint32_t address) const override {
        if (LineAt(address) == 0) return std::nullopt;
        return ImagePlace{"a.c", LineAt(address)};
    }
    bool IsLineStart(uint32_t address) const override {
        return LineAt(address) != 0 && (address == 0 || LineAt(address - 1) != LineAt(address));
    }
    std::vector<uint32_t> AddressesOf(const std::string &, int line) const override {
        std::vector<uint32_t> addresses;
        for (uint32_t address = 0; address < chip_.program.size(); address++)
            if (IsLineStart(address) && LineAt(address) == line) addresses.push_back(address);
        return addresses;
    }

private:
    int LineAt(uint32_t address) const { return address < chip_.program.size() ? chip_.program[address].line : 0; }

    const CToyChip &chip_;
};

class CEventLog : public CSessionEvents {
public:
    std::vector<int> told, instructions;
    std::vector<std::string> texts;
    std::vector<std::pair<int, int>> changes;

    void InstructionDone(int address, int64_t) override { instructions.push_back(address); }
    void RegisterChanged(int handle, int value) override { changes.emplace_back(handle, value); }
    void PinChanged(int, double) override {}
    void Tell(int reason, const std::string &text) override {
        told.push_back(reason);
        if (!text.empty()) texts.push_back(text);
    }
};

// The parts of a run over a toy chip.
struct ToyRun {
    explicit ToyRun(std::vector<ToyInstruction> program) : chip(std::move(program)) {}

    CToyChip chip;
    CToyMap map{chip};
    CNames names{chip, map};
    CBreakpoints breakpoints{chip.ProgramSize(), names};
    CWatchpoints watchpoints{chip, names};
    CRunControl control{chip, map, breakpoints, watchpoints};
    CEventLog events;

    // The reason of the stop; 0 when there was none in many slices.
    int Do(RunKind kind);
    int Line() const {
        auto place = map.PlaceAt(chip.ProgramCounter());
        return place ? place->line : 0;
    }
    int Break(int id, int line) { return breakpoints.Set(id, "a.c", line, map.AddressesOf("a.c", line)).value_or(-1); }
};
