#include "debugger/RegisterValue.h"

#include <cinttypes>
#include <cstdio>

#include "debugger/ValueFormat.h"

namespace {

constexpr int kLongestNumber = 18;  // digits that fit into 64 bits in every format but binary

std::string Printed(const char *format, unsigned value) {
    char text[16];
    snprintf(text, sizeof text, format, value);
    return text;
}

int64_t BinaryValue(const std::string &text) {
    uint64_t value = 0;
    for (const char c : text) value = value << 1 | (c == '1' ? 1 : 0);
    return static_cast<int64_t>(value);
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

std::optional<int64_t> ReadTypedRegister(const std::string &text, int format) {
    if (text.empty()) return {};
    if (format == kBinary) return BinaryValue(text);
    int64_t value = 0;
    const char *const scan = format == kOctal ? "%18" SCNo64 : format == kHexadecimal ? "%18" SCNx64 : "%18" SCNd64;
    static_assert(kLongestNumber == 18);
    if (sscanf(text.c_str(), scan, &value) != 1) return {};
    return value;
}
