// The simulated chip as a run sees it.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Chip.h"
#include "registers/RegisterInfo.h"

class CChipFace : public IChip {
public:
    // Both must outlive this; `registers` may be null: then the simulator's names count.
    CChipFace(CSimChip &chip, const CRegisterInfo *registers);

    void PowerOnReset() override { chip_.PowerOnReset(); }
    void Reset() override { chip_.Reset(); }
    ChipState Step() override { return chip_.Step(); }
    ChipState RunTo(const std::vector<bool> &stops, uint64_t most) override { return chip_.RunTo(stops, most); }
    bool SomethingIsDue() const override { return chip_.SomethingIsDue(); }
    uint64_t Resets() const override { return chip_.Resets(); }
    ChipReset LastReset() const override { return chip_.LastReset(); }

    uint32_t ProgramSize() const override { return chip_.ProgramSize(); }
    uint32_t ProgramCounter() const override { return chip_.ProgramCounter(); }
    bool SetProgramCounter(uint32_t address) override { return chip_.SetProgramCounter(address); }
    uint64_t Cycles() const override { return chip_.Cycles(); }
    InstructionKind KindAt(uint32_t address) const override;
    bool IsInterruptEntry(uint32_t address) const override;
    std::vector<uint32_t> Stack() const override { return chip_.Stack(); }
    size_t StackDepth() const override { return chip_.Stack().size(); }

    uint8_t W() const override { return chip_.W(); }
    void SetW(uint8_t value) override { chip_.SetW(value); }
    std::optional<uint32_t> FindRegister(const std::string &name) const override;
    std::optional<uint8_t> ReadRegister(uint32_t address) const override { return chip_.ReadRegister(address); }
    bool WriteRegister(uint32_t address, uint8_t value) override { return chip_.WriteRegister(address, value); }

    bool WatchByte(uint32_t address, bool on) override { return chip_.WatchByte(address, on); }
    bool TakeWritten() override { return chip_.TakeWritten(); }
    void ForgetWritten() override { chip_.ForgetWritten(); }

private:
    CSimChip &chip_;
    const CRegisterInfo *registers_;
    std::unordered_map<std::string, uint32_t> firstByName_;  // in capitals: the lowest address of a register
};
