#include "debugger/FrameAddress.h"

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <string>

int FrameAddress(std::string_view row) {
    if (row.size() <= 2 || row[0] != '0' || (row[1] | 0x20) != 'x')
        return static_cast<int>(std::strtol(std::string(row).c_str(), nullptr, 10));
    uint32_t address = 0;
    std::from_chars(row.data() + 2, row.data() + row.size(), address, 16);
    return static_cast<int>(address);
}
