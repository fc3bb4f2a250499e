// Where an instruction word of a chip lets the program go on.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

enum class Flow {
    next,    // to the next instruction
    skip,    // to the next one or the one behind it
    call,    // to a target, and later to the next one
    jump,    // to a target only
    branch,  // to a target or the next one
    end,     // a return, a reset or a computed jump
};

struct Instruction {
    Flow flow = Flow::next;
    uint32_t size = 1;               // addresses that it takes
    std::optional<uint32_t> target;  // as far as the word tells; of a paged instruction within page 0
    bool paged = false;              // the target's high bits come out of a register
};

// `bits`: see CObjectFile::BitsPerAddress; with others every word reads as Flow::next. `bytes`: from the instruction's
// first byte on; `address`: the instruction's, in addresses of the chip. Any thread.
Instruction DecodeInstruction(int bits, std::string_view bytes, uint32_t address);

// Addresses that a call or jump reaches without the register of the high bits; 0: all.
uint32_t PageSize(int bits);
