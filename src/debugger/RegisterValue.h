// The data of a register, what its row shows of them, and what is typed over it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "debugger/WatchValue.h"

struct RegisterValue {
    uint16_t prev = 0;  // at the refresh before
    uint16_t cur = 0;
    int32_t format = 0;         // a NumberFormat
    bool keepPrevious = false;  // the next refresh doesn't move `cur` to `prev`
};

// Without leading zeros in every format; unlike a watch's.
std::string RegisterText(uint16_t value, int format);

// As of a watch, but for a sign that decimal numbers may have, and binary ones: there each character that isn't a "1"
// is a 0. `isWhole` is false with such a one.
TypedNumber ReadTypedRegister(std::string_view text, int format);
