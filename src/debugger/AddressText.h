// The address of a byte of data memory, as the user reads it.
#pragma once

#include <cstdio>
#include <string>

inline std::string AddressText(int address) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%04X", static_cast<unsigned>(address));
    return text;
}
