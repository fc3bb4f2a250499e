#include "debugger/ValueFormat.h"

#include <charconv>
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

std::optional<int64_t> NumberOfAnswer(std::string_view text, int format) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    int base = 10;
    if (format == kHexadecimal && (text.starts_with("0x") || text.starts_with("0X"))) {
        base = 16;
        text.remove_prefix(2);
    } else if (format == kOctal && text.starts_with('0')) {
        base = 8;
    } else if (format == kBinary && text.size() % 8 == 0 && text.find_first_not_of("01") == text.npos) {
        base = 2;
    }
    uint64_t number = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    if (error != std::errc() || stop != end) return {};
    return static_cast<int64_t>(negative ? 0 - number : number);
}
