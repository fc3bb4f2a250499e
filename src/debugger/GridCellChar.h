// A byte as a character, typed over with one.
#pragma once

#include "debugger/GridCellByte.h"

// Characters are Latin-1; "." stands for what isn't printed.
class CGridCellChar : public CGridCellByte {
public:
    using CGridCellByte::CGridCellByte;

    std::string Text() const override;

    // Behind the character the next byte's cell is the current one.
    bool OnTyped(CGridCtrl &grid, GridPlace place, char32_t typed) override;
};
