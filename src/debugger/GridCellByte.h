// A cell of a memory view: one of the two that a byte has, in hexadecimal and as a character.
#pragma once

#include <cstdint>

#include "debugger/ByteState.h"
#include "widgets/GridCell.h"

class CMemoryBar;

class CGridCellByte : public CGridCell {
public:
    CGridCellByte(CMemoryBar &bar, int address) : bar_(bar), address_(address) {}

    int Address() const { return address_; }
    uint8_t Value() const { return value_; }
    ByteState State() const { return state_; }
    bool IsAbsent() const { return state_ == ByteState::absent; }

    // True when the cell has to be redrawn. An absent cell stays as it is.
    bool Show(uint8_t value, ByteState state);

    std::string Tip() const override;

protected:
    // The user has typed `value` for this byte.
    void Enter(uint8_t value) const;

private:
    CMemoryBar &bar_;  // outlives its cells
    int address_;      // as shown: from 0
    uint8_t value_ = 0;
    ByteState state_ = ByteState::same;
};
