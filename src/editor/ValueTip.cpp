#include "editor/ValueTip.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

#include "app/Path.h"
#include "debugger/ValueFormat.h"
#include "platform/PathCalls.h"

namespace {

enum class Family { none, c, assembler };

constexpr std::string_view kCFamily[] = {"c", "cpp", "cxx", "pas", "h", "hpp", "bas"};
constexpr std::string_view kAssemblerFamily[] = {"asm", "lst", "s", "casm"};

Family FamilyOf(const std::string &path) {
    const std::string extension = CPath(path).GetExtension();
    const auto isIt = [&](std::string_view each) { return EqualNoCase(each, extension); };
    if (std::ranges::any_of(kCFamily, isIt)) return Family::c;
    return std::ranges::any_of(kAssemblerFamily, isIt) ? Family::assembler : Family::none;
}

bool IsName(const std::string &word) {
    return !word.empty() && !(word[0] >= '0' && word[0] <= '9');
}

// A value that comes out of a table instead of the target has a mark in front.
std::string WithoutMark(std::string value) {
    if (value.starts_with('#')) value.erase(0, 1);
    return value;
}

std::optional<int64_t> NumberIn(std::string_view text, int base) {
    if (text.starts_with('+')) text.remove_prefix(1);
    int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc{} || end != text.data() + text.size()) return {};
    return number;
}

std::optional<int64_t> NumberIn(std::string_view text) {
    if (text.starts_with("0x") || text.starts_with("0X")) return NumberIn(text.substr(2), 16);
    return NumberIn(text, 10);
}

}  // namespace

std::string ValueTip(const std::string &path, const std::string &word, int format, const EvaluateFn &evaluate) {
    const Family family = FamilyOf(path);
    if (family == Family::none || !IsName(word)) return {};
    std::string name = word, value;
    bool known = evaluate(name, kDecimal, value);
    if (!known && family == Family::c) {
        name.insert(name.begin(), '_');
        known = evaluate(name, kDecimal, value);
    }
    if (!known) return {};
    value = WithoutMark(std::move(value));
    const std::optional<int64_t> number = NumberIn(value);
    return name + " = " + (number ? FormatValue(*number, format) : value);
}

std::string ValueTipAtStop(const std::string &path, const std::string &word, const EvaluateFn &evaluate) {
    const Family family = FamilyOf(path);
    if (family == Family::none || !IsName(word)) return {};
    const std::string name = family == Family::c ? "_" + word : word;
    std::string value;
    if (!evaluate(name, kHexadecimal, value)) return {};
    value = WithoutMark(std::move(value));
    const bool isHex = value.starts_with('0') || (value.size() > 1 && (value[1] == 'x' || value[1] == 'X'));
    if (value.size() > 2 && !isHex)
        if (const std::optional<int64_t> number = NumberIn(value)) value = FormatValue(*number, kHexadecimal);
    return name + " = " + value;
}
