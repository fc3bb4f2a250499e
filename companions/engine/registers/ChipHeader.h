// What the assembler's header of a chip ("p16f628a.inc") tells about its registers, as it stands there.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

struct HeaderBit {
    std::string name;
    int bit = 0;  // 0 to 7
};

struct ChipHeader {
    std::vector<std::pair<std::string, uint32_t>> registers;       // name and address, in the header's order
    std::unordered_map<std::string, std::vector<HeaderBit>> bits;  // by the register's name, in the header's order
    std::vector<std::pair<uint32_t, uint32_t>> noMemory;           // from, to
    uint32_t lastAddress = 0;                                      // of data memory; 0 when the header doesn't tell
};

// Any text is read; what it doesn't tell is left out.
ChipHeader ReadChipHeader(std::string_view text);
