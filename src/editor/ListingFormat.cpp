#include "editor/ListingFormat.h"

#include <algorithm>

#include "platform/PathCalls.h"

namespace {

constexpr std::string_view kNumberedHeader = "HI-TECH SOFTWARE";
constexpr size_t kNoHeader = 128;  // a first line as long as this is no header
constexpr size_t kBlankLine = 2;   // its line end alone
constexpr uint64_t kBeyond = 1ull << 40;

// Listings are ASCII. What compilers put into the first column of other lines isn't, in any of their code pages.
bool IsGap(char c) {
    return static_cast<signed char>(c) <= ' ';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsLetter(char c, char last) {
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= last;
}

bool IsHexDigit(char c) {
    return IsDigit(c) || IsLetter(c, 'f') || c == '?';
}

uint64_t HexValue(char c) {
    if (c == '?') return 0;
    return static_cast<uint64_t>(IsDigit(c) ? c - '0' : (c | 0x20) - 'a' + 10);
}

void SkipGap(std::string_view &rest) {
    rest.remove_prefix(static_cast<size_t>(std::ranges::find_if_not(rest, IsGap) - rest.begin()));
}

bool SkipLineNumber(std::string_view &rest) {
    while (!rest.empty() && (rest.front() == ' ' || rest.front() == '\t')) rest.remove_prefix(1);
    if (rest.empty() || IsGap(rest.front())) return false;
    rest.remove_prefix(static_cast<size_t>(std::ranges::find_if_not(rest, IsDigit) - rest.begin()));
    if (rest.empty() || !IsGap(rest.front())) return false;
    SkipGap(rest);
    return true;
}

bool BeginsSource(std::string_view rest, ListingFormat format) {
    if (rest.empty()) return false;
    const char c = rest.front();
    if (c == '_' || c == ';') return true;
    return format == ListingFormat::numbered ? IsLetter(c, 'f') : IsDigit(c) || IsLetter(c, 'z');
}

}  // namespace

std::optional<uint64_t> ParseHex(std::string_view &rest) {
    uint64_t value = 0;
    while (!rest.empty() && IsHexDigit(rest.front())) {
        value = std::min(value * 16 + HexValue(rest.front()), kBeyond);
        rest.remove_prefix(1);
    }
    if (rest.empty() || !IsGap(rest.front())) return {};
    return value;
}

std::optional<ListingLine> ParseListingLine(std::string_view line, ListingFormat format) {
    std::string_view rest = line.substr(0, line.find('\0'));
    if (format == ListingFormat::numbered ? !SkipLineNumber(rest) : rest.empty() || IsGap(rest.front())) return {};
    const std::optional<uint64_t> address = ParseHex(rest);
    if (!address) return {};
    SkipGap(rest);
    std::optional<uint64_t> code = ParseHex(rest);
    if (!code) return {};
    if (format == ListingFormat::standard && rest.size() > 1 && rest[0] == ' ' && IsHexDigit(rest[1])) {
        rest.remove_prefix(1);
        const std::optional<uint64_t> second = ParseHex(rest);
        if (!second) return {};
        code = *code << 16 | *second;
    }
    SkipGap(rest);
    if (!BeginsSource(rest, format)) return {};
    return ListingLine{*address, static_cast<uint32_t>(*code)};
}

std::optional<ListingFormat> FormatByHeader(std::string_view line) {
    if (line.size() <= kBlankLine) return {};
    const bool numbered = line.size() < kNoHeader && StartsWithNoCase(line, kNumberedHeader);
    return numbered ? ListingFormat::numbered : ListingFormat::standard;
}
