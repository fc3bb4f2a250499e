#include "OrgLine.h"

#include <charconv>
#include <string>

#include "platform/PathCalls.h"

namespace {

constexpr std::string_view kNoNumber = " \t\r\n;";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsNamePart(char c) {
    return IsLetter(c) || IsDigit(c) || std::string_view("_.$@?").find(c) != std::string_view::npos;
}

void SkipBlanks(std::string_view &text) {
    while (!text.empty() && std::string_view(" \t\r\n").find(text.front()) != std::string_view::npos) {
        text.remove_prefix(1);
    }
}

std::string_view TakeWord(std::string_view &text, bool belongs(char)) {
    size_t size = 0;
    while (size < text.size() && belongs(text[size])) ++size;
    const std::string_view word = text.substr(0, size);
    text.remove_prefix(size);
    return word;
}

std::optional<uint32_t> ReadDigits(std::string_view digits, int base) {
    uint32_t value = 0;
    const char *last = digits.data() + digits.size();
    const auto [end, failure] = std::from_chars(digits.data(), last, value, base);
    if (failure != std::errc() || end != last) return std::nullopt;
    return value;
}

std::optional<uint32_t> ReadNumber(std::string_view word) {
    constexpr struct {
        std::string_view before, behind;
        int base;
    } kForms[] = {{"0x", "", 16},  {"$", "", 16}, {"h'", "'", 16}, {"b'", "'", 2}, {"o'", "'", 8},
                  {"d'", "'", 10}, {".", "", 10}, {"", "h", 16},   {"", "", 10}};
    const std::string lower = LowerCase(word);
    for (const auto &form : kForms) {
        const size_t around = form.before.size() + form.behind.size();
        if (lower.size() <= around || !lower.starts_with(form.before) || !lower.ends_with(form.behind)) continue;
        const auto digits = std::string_view(lower).substr(form.before.size(), lower.size() - around);
        if (const auto value = ReadDigits(digits, form.base)) return value;
    }
    return std::nullopt;
}

// Words and numbers of the remark alternate with whatever else stands there.
std::optional<uint32_t> ReadSize(std::string_view remark) {
    std::optional<uint32_t> before;
    bool named = false;
    while (!remark.empty()) {
        if (IsDigit(remark.front())) {
            before = ReadDigits(TakeWord(remark, IsDigit), 10).value_or(0);
            if (named) return before;
        } else if (IsLetter(remark.front())) {
            const std::string word = LowerCase(TakeWord(remark, IsNamePart));
            named = word == "bytes" || word == "byte" || word == "size";
            if (named && before) return before;
            before.reset();
        } else {
            remark.remove_prefix(1);
        }
    }
    return 1;
}

}  // namespace

std::optional<OrgVariable> ParseOrgLine(std::string_view line) {
    OrgVariable variable;
    SkipBlanks(line);
    if (line.empty() || IsDigit(line.front())) return std::nullopt;
    variable.name = TakeWord(line, IsNamePart);
    if (variable.name.empty() || variable.name.size() > 255) return std::nullopt;
    if (line.starts_with(':')) line.remove_prefix(1);
    SkipBlanks(line);
    if (line.starts_with('=')) {
        line.remove_prefix(1);
    } else {
        const std::string word = LowerCase(TakeWord(line, IsNamePart));
        if ((word != "equ" && word != "set") || line.empty() || kNoNumber.find(line.front()) == std::string_view::npos)
            return std::nullopt;
    }
    SkipBlanks(line);
    const auto address = ReadNumber(TakeWord(line, [](char c) { return kNoNumber.find(c) == std::string_view::npos; }));
    SkipBlanks(line);
    if (!address || *address >= 65535 || (!line.empty() && line.front() != ';')) return std::nullopt;
    const auto size = ReadSize(line);
    if (!size || *size < 1 || *size > 255) return std::nullopt;
    variable.address = static_cast<uint16_t>(*address);
    variable.size = static_cast<uint16_t>(*size);
    return variable;
}
