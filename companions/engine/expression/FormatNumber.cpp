#include <bit>
#include <cstdio>

#include "Expression.h"
#include "debugger/EngineApi.h"

namespace {

std::string Print(const char *format, unsigned long long value) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string Binary(uint64_t value) {
    int digits = std::bit_width(value);
    if (digits > 32) digits = 32;
    digits = (digits + 7) / 8 * 8;
    std::string text;
    for (int bit = digits; bit-- > 0;) text += (value >> bit & 1) != 0 ? '1' : '0';
    return text.empty() ? "0" : text;
}

}  // namespace

std::string FormatNumber(int64_t value, int format) {
    const auto bits = static_cast<uint64_t>(value);
    switch (format) {
        case kDbgBinary:
            return Binary(bits);
        case kDbgOctal:
            return Print("0%llo", bits);
        case kDbgHex: {
            const std::string digits = Print("%llX", bits);
            return "0x" + (digits.size() > 8 ? digits.substr(digits.size() - 8) : digits);
        }
        default:
            return std::to_string(value);
    }
}
