// A line of the block at the head of a compiler's assembler listing that tells where its variables lie.
//
//   name EQU 0x0020
//   name = 0x0020         ; bytes:2
//   name: SET H'20'       ; 2 bytes
//
// A name (letters, digits, "_", "." "$" "@" "?", no digit first), a ":" or not, one of the words EQU and SET in any
// case or the sign "=", and the address of the first byte: 0x20, $20, 20h, H'20' in hexadecimal, B'..' in binary, O'..'
// in octal, D'32', .32 or plain 32 in decimal. Behind a ";" anything may stand; "bytes" or "size" with a number before
// or behind it is the variable's size, which otherwise is 1.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

struct OrgVariable {
    std::string_view name;  // in the line; at most 255 bytes
    uint16_t address = 0;   // 65535 is none
    uint16_t size = 1;      // bytes, 1 to 255
};

std::optional<OrgVariable> ParseOrgLine(std::string_view line);
