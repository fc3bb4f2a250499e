// Which bytes of data memory an instruction is about to write. Known to the chip's own sources only.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "chip/SimChip.h"

class pic_processor;

struct WrittenBytes {
    std::array<uint32_t, 8> addresses;
    size_t count = 0;

    void Add(uint32_t address) { addresses[count++] = address; }
};

// By the instruction at the program counter itself, of the state that the chip is in before it. There must be one.
WrittenBytes BytesToBeWritten(pic_processor &cpu, Core core);
