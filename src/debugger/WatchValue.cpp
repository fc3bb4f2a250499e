#include "debugger/WatchValue.h"

#include <array>
#include <charconv>
#include <utility>

#include "debugger/ValueFormat.h"

namespace {

constexpr char kTextMark = '#';
constexpr int64_t kLastNamed = 32, kDelete = 127;
constexpr std::array<const char *, kLastNamed + 1> kCharacterNames = {
    "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS", "TAB", "LF",  "VT", "FF", "CR", "SO", "SI",   "DLE",
    "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB", "CAN", "EM", "SUB", "ESC", "FS", "GS", "RS", "US", "Space"};

std::string CharacterOf(int64_t value) {
    if (value < 0 || value > kDelete) return "";
    const std::string name = value <= kLastNamed ? kCharacterNames[static_cast<size_t>(value)]
                             : value == kDelete  ? "DEL"
                                                 : std::string(1, static_cast<char>(value));
    return " '" + name + "'";
}

std::optional<double> DoubleOf(std::string_view text) {
    double number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    return failure == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// False for a text that is no value; the value then stays.
bool TakeText(WatchValue &value, const std::string &text) {
    if (text.starts_with(kTextMark)) {
        value.curText = text;
        value.isText = true;
        value.isDouble = false;
        return true;
    }
    const bool isDouble = text.find('.') != text.npos;
    if (isDouble) {
        const std::optional<double> number = DoubleOf(text);
        if (!number) return false;
        value.curDouble = *number;
    } else {
        const std::optional<int64_t> number = NumberOfAnswer(text, value.format);
        if (!number) return false;
        value.curInt = *number;
    }
    value.isDouble = isDouble;
    value.isText = false;
    return true;
}

void KeepAsPrevious(WatchValue &value) {
    value.prevInt = value.curInt;
    value.prevDouble = value.curDouble;
    value.prevText = value.curText;
}

bool HasChanged(const WatchValue &value) {
    if (value.isText) return value.curText != value.prevText;
    return value.isDouble ? value.curDouble != value.prevDouble : value.curInt != value.prevInt;
}

int DigitOf(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : 16;
}

}  // namespace

WatchShown RefreshWatch(WatchValue &value, const WatchAnswer &answer, const WatchShown &before,
                        const std::string &error) {
    const bool keep = std::exchange(value.keepPrevious, false);
    if (!answer.text) return {answer.error.empty() ? error : answer.error, PropLook::error, before.readOnly};
    if (!keep) KeepAsPrevious(value);
    if (!TakeText(value, *answer.text)) return {error, PropLook::error, false};
    const bool first = before.text.empty();
    if (first) KeepAsPrevious(value);
    PropLook look = HasChanged(value) ? PropLook::changed : PropLook::normal;
    return {WatchText(value), look, value.isText};
}

WatchShown ReformatWatch(WatchValue &value, const WatchAnswer &answer, const WatchShown &before,
                         const std::string &error) {
    value.keepPrevious = true;
    WatchShown shown = RefreshWatch(value, answer, before, error);
    if (shown.look == PropLook::error || before.look == PropLook::error) return shown;
    // Formats differ in the bits that they show of a negative number, which isn't a change of it.
    if (before.look == PropLook::normal) KeepAsPrevious(value);
    shown.look = before.look;
    return shown;
}

std::string WatchText(const WatchValue &value) {
    if (value.isText) return value.curText.substr(1);
    if (!value.isDouble) return FormatValue(value.curInt, value.format) + CharacterOf(value.curInt);
    constexpr int kDigits = 6;
    std::array<char, 32> text{};
    char *const end =
        std::to_chars(text.data(), text.data() + text.size(), value.curDouble, std::chars_format::general, kDigits).ptr;
    return std::string(text.data(), end);
}

TypedNumber ReadTyped(std::string_view text, int format) {
    const int base = format == kBinary ? 2 : format == kOctal ? 8 : format == kHexadecimal ? 16 : 10;
    if (base == 16 && (text.starts_with("0x") || text.starts_with("0X"))) text.remove_prefix(2);
    TypedNumber typed;
    uint64_t number = 0;
    for (const char c : text) {
        const int digit = DigitOf(c);
        if (digit >= base) {
            typed.isWhole = static_cast<unsigned char>(c) <= ' ';
            break;
        }
        typed.hasDigits = true;
        typed.fits = typed.fits && number <= (UINT64_MAX - static_cast<unsigned>(digit)) / static_cast<unsigned>(base);
        number = number * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
    }
    typed.value = static_cast<int64_t>(number);
    return typed;
}
