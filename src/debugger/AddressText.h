// An address of the chip, as the user reads it.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

inline std::string AddressText(uint32_t address) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%04X", address);
    return text;
}
