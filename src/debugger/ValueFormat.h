// How numbers of the target are shown.
#pragma once

#include <cstdint>
#include <string>

// The number formats by their codes, as settings store them.
enum NumberFormat : int { kDecimal = 0, kBinary = 1, kOctal = 2, kHexadecimal = 3 };

// Binary and hexadecimal texts of longer numbers show the digits of their lowest 32 bits; binary ones come in groups of
// eight. Any code that is no NumberFormat is shown as decimal.
std::string FormatValue(int64_t value, int format);
