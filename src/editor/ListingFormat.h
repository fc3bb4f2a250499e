// The lines of a listing file: which program address each gives.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

enum class ListingFormat {
    standard,  // address, code word, source
    numbered,  // line number, address, code word, mnemonic; begins with the header of its compiler
};

struct ListingLine {
    uint64_t address = 0;
    uint32_t code = 0;  // of two words, the first is the upper half
};

// A hexadecimal number at the start of `rest`, which then begins behind its digits; "?" is a digit of value 0. Empty
// unless a control character or a blank ends it. Numbers of any length are read; what doesn't fit 40 bits stays beyond.
std::optional<uint64_t> ParseHex(std::string_view &rest);

// Address and code of one line, which may have its line end; empty for a line that gives none. Bytes above 127 count as
// control characters.
std::optional<ListingLine> ParseListingLine(std::string_view line, ListingFormat format);

// What the line says of the format of its whole file: nothing when it has two characters or fewer, the line end
// counted. The first line that says something decides.
std::optional<ListingFormat> FormatByHeader(std::string_view line);
