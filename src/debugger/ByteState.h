// What a byte of a memory view has been through, and how it looks for it.
#pragma once

#include "widgets/GridCell.h"

enum class ByteState {
    absent,   // the chip has nothing at this address
    same,     // as at the last stop
    changed,  // since then
    unreadable,
    written,     // by the user
    notWritten,  // the user wanted to; the engine refused
};

const GridLook *LookOf(ByteState state);  // null: as other text
int WordsFor(ByteState state);            // id of a text; 0: nothing to say
