// A byte in hexadecimal, typed over digit by digit.
#pragma once

#include "debugger/GridCellByte.h"

class CGridCellHex : public CGridCellByte {
public:
    using CGridCellByte::CGridCellByte;

    std::string Text() const override;

    // Each digit replaces the one at the edit's position and is written at once; behind the second one the next byte's
    // cell is the current one. Anything but a digit means nothing.
    bool OnTyped(CGridCtrl &grid, GridPlace place, char32_t typed) override;

private:
    int high_ = 0;  // the first digit typed; the target may change the byte before the second one
};
