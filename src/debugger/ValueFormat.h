// How numbers of the target are shown.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The number formats by their codes, as settings store them.
enum NumberFormat : int { kDecimal = 0, kBinary = 1, kOctal = 2, kHexadecimal = 3 };

// Binary and hexadecimal texts of longer numbers show the digits of their lowest 32 bits; binary ones come in groups of
// eight. Any code that is no NumberFormat is shown as decimal.
std::string FormatValue(int64_t value, int format);

// The number that the engine answers with when asked in `format`: decimal, or in that format's own spelling ("0x1F",
// "037", whole groups of eight binary digits), with a sign or without. Empty for any other text.
std::optional<int64_t> NumberOfAnswer(std::string_view text, int format);
