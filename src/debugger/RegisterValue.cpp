#include "debugger/RegisterValue.h"

#include <algorithm>
#include <cstdio>

#include "debugger/ValueFormat.h"

namespace {

std::string Printed(const char *format, unsigned value) {
    char text[16];
    snprintf(text, sizeof text, format, value);
    return text;
}

TypedNumber ReadBinary(std::string_view text) {
    TypedNumber typed;
    uint64_t number = 0;
    for (const char c : text) {
        typed.fits = typed.fits && !(number >> 63);
        number = number << 1 | (c == '1' ? 1 : 0);
    }
    typed.value = static_cast<int64_t>(number);
    typed.hasDigits = text.find_first_of("01") != text.npos;
    typed.isWhole = text.find_first_not_of("01") == text.npos;
    return typed;
}

}  // namespace

std::string RegisterText(uint16_t value, int format) {
    switch (format) {
        case kBinary: {
            std::string digits;
            for (unsigned rest = value; rest; rest >>= 1) digits.insert(digits.begin(), rest & 1 ? '1' : '0');
            return digits.empty() ? "0" : digits;
        }
        case kOctal:
            return Printed("0%o", value);
        case kHexadecimal:
            return Printed("0x%X", value);
        default:
            return Printed("%u", value);
    }
}

TypedNumber ReadTypedRegister(std::string_view text, int format) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const bool isDecimal = format != kOctal && format != kHexadecimal && format != kBinary;
    const bool negative = isDecimal && text.starts_with('-');
    if (negative || (isDecimal && text.starts_with('+'))) text.remove_prefix(1);
    TypedNumber typed = format == kBinary ? ReadBinary(text) : ReadTyped(text, format);
    typed.fits = typed.fits && typed.value >= 0;  // with the highest bit it would be another number
    if (negative) typed.value = -typed.value;
    return typed;
}
