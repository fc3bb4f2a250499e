// The data of a register, what its row shows of them, and what is typed over it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

struct RegisterValue {
    uint16_t prev = 0;  // at the refresh before
    uint16_t cur = 0;
    int32_t format = 0;         // a NumberFormat
    bool keepPrevious = false;  // the next refresh doesn't move `cur` to `prev`
};

// Without leading zeros in every format; unlike a watch's.
std::string RegisterText(uint16_t value, int format);

// A number as typed in a format. Empty when there is none in the text; in binary each character that isn't a "1" is a 0.
std::optional<int64_t> ReadTypedRegister(const std::string &text, int format);
