// What is done with texts that are too large, or whose lines are too long, for the component to take them in its
// stride.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Bytes. From there on:
inline constexpr size_t kLargeText = 8'000'000;       // nothing may look at the whole text at every step of the caret
inline constexpr size_t kPlainText = 64'000'000;      // no colours and no folding
inline constexpr size_t kQuestionedFile = 512'000'000;  // the user is asked first
inline constexpr size_t kMostText = 2'000'000'000;    // not opened: positions in the component have 31 bits
inline constexpr size_t kPlainLine = 20'000;          // no colours: a line is measured anew at each change in it
inline constexpr size_t kBrokenLine = 250'000;        // a line is shown in pieces, and can't be changed
inline constexpr size_t kPiece = 4'000;               // length of such pieces

size_t LongestLine(std::string_view text);

// The text with lines above kBrokenLine broken into pieces of at most kPiece bytes, between characters.
std::string BreakLongLines(std::string_view text);

// The text with each of its line ends, of any of the three kinds, as CR LF.
std::string WithWindowsLineEnds(std::string_view text);
