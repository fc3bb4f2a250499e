// The texts in which the engine gives lists, for the readers of dbgpars.dll: their formats and their writers.
//
//   frames     "1F 20A": addresses in hexadecimal digits, a blank between two; the innermost last
//   profile    "main 1234" in lines: a name without blanks, a blank, the count in decimal digits; below 2^32
//   bits       "0:C 1:DC": number and name, a blank between two
//   registers  "[Ports]0PORTA=1F4B=0A0TRISA?": a group's name in brackets, then its registers. A register begins with
//              the number of characters, 0 to 9 and A to Z, that its name shares with the one before in the group;
//              then come the others, and "=" with two hexadecimal digits or "?" for a value that can't be read. So the
//              text of the largest chips stays below the 4,095 bytes that its reader has.
//
// An empty text is a list of nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

std::string FrameListText(const std::vector<uint32_t> &addresses);

struct ProfileRow {
    std::string name;
    uint64_t count = 0;
};

// The profiler asks with ever larger buffers and gives up behind this many bytes.
inline constexpr size_t kLongestProfile = 31743;

// Rows behind those that surely fit are summed up in one of the name "(other)". Which these are doesn't depend on the
// counts, so that each text of a run has the same rows. When the largest count has more than 32 bits, all are shifted
// right alike until it fits.
std::string ProfileListText(const std::vector<ProfileRow> &rows, size_t longest = kLongestProfile);

struct NamedBit {
    int bit = 0;  // from 0
    std::string name;
};

std::string BitNamesText(const std::vector<NamedBit> &bits);

struct RegisterRow {
    std::string name;              // letters, digits and "_"
    std::optional<uint8_t> value;  // none: can't be read
};

struct RegisterGroupRows {
    std::string name;  // no brackets
    std::vector<RegisterRow> registers;
};

// Shortest when registers stand in the order of their names.
std::string RegisterText(const std::vector<RegisterGroupRows> &groups);
