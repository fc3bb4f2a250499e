#include "debugger/ValueFormat.h"

#include <cinttypes>
#include <cstdio>

namespace {

constexpr size_t kByte = 8, kMostBits = 32, kMostHexDigits = 8;

std::string Printed(const char *format, uint64_t value) {
    char text[32];
    snprintf(text, sizeof text, format, value);
    return text;
}

std::string LastDigits(const std::string &digits, size_t most) {
    return digits.size() > most ? digits.substr(digits.size() - most) : digits;
}

std::string BinaryText(uint64_t value) {
    std::string digits;
    for (; value; value >>= 1) digits.insert(digits.begin(), value & 1 ? '1' : '0');
    digits = LastDigits(digits, kMostBits);
    return digits.empty() ? "0" : std::string((kByte - digits.size() % kByte) % kByte, '0') + digits;
}

}  // namespace

std::string FormatValue(int64_t value, int format) {
    const auto bits = static_cast<uint64_t>(value);
    switch (format) {
        case kBinary:
            return BinaryText(bits);
        case kOctal:
            return "0" + Printed("%" PRIo64, bits);
        case kHexadecimal:
            return "0x" + LastDigits(Printed("%" PRIX64, bits), kMostHexDigits);
        default:
            return std::to_string(value);
    }
}
