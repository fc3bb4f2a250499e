// The rows of the call stack as addresses.
#pragma once

#include <string_view>

// The address in program memory that a row names: hexadecimal behind "0x", up to the first character that is no digit
// of it, else the decimal number that the row begins with. 0 for other texts, and for a hexadecimal one beyond 32 bits.
int FrameAddress(std::string_view row);
