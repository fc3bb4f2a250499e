// What a run needs of a chip; CSimChip tells what a call of the same name promises. Implemented over the simulated
// chip, and by a little one in the tests.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "chip/SimChip.h"

// As far as a step has to know an instruction: what it does to the stack.
enum class InstructionKind { call, comeBack, other };

class IChip {
public:
    virtual ~IChip() = default;

    virtual void PowerOnReset() = 0;
    virtual void Reset() = 0;
    virtual ChipState Step() = 0;
    virtual ChipState RunTo(const std::vector<bool> &stops, uint64_t most) = 0;
    virtual bool SomethingIsDue() const = 0;
    virtual uint64_t Resets() const = 0;
    virtual ChipReset LastReset() const = 0;

    virtual uint32_t ProgramSize() const = 0;
    virtual uint32_t ProgramCounter() const = 0;
    virtual bool SetProgramCounter(uint32_t address) = 0;
    virtual uint64_t Cycles() const = 0;
    virtual InstructionKind KindAt(uint32_t address) const = 0;
    virtual bool IsInterruptEntry(uint32_t address) const = 0;
    virtual std::vector<uint32_t> Stack() const = 0;  // the innermost last
    virtual size_t StackDepth() const = 0;            // how many Stack() gives

    virtual uint8_t W() const = 0;
    virtual void SetW(uint8_t value) = 0;
    virtual std::optional<uint32_t> FindRegister(const std::string &name) const = 0;  // without regard to case
    virtual std::optional<uint8_t> ReadRegister(uint32_t address) const = 0;
    virtual bool WriteRegister(uint32_t address, uint8_t value) = 0;

    virtual bool WatchByte(uint32_t address, bool on) = 0;
    virtual bool TakeWritten() = 0;
    virtual void ForgetWritten() = 0;
};
