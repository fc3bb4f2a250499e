// Where a chip's indirect pointer points to.
#pragma once

#include <cstdint>
#include <string>

// The two registers that it is made of.
struct PointerParts {
    const char *high, *low;
    bool isBank = false;  // `high` is the status register, whose bit 7 is the pointer's ninth bit
};

PointerParts PointerPartsOf(const std::string &target);  // by the chip's name
int PointerAddressOf(const PointerParts &parts, int64_t high, int64_t low);
