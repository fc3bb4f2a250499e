// The files that the views "call tree" and "function information" read, as text. Any thread; pure string work.
//
// Names and files are in the characters that the readers take: others become "_". Files are in the Windows form; one of
// the project's directory or below it begins with ".\".
#pragma once

#include <string>
#include <string_view>

#include "LinkStatistics.h"

// name:"file",line=N{ the functions that it calls }. First the functions that nobody calls, then one of each cycle that
// nobody calls into; data that nobody calls is left out. A function that is on the way down to it already has empty
// braces, and so has one at the last level. Where the whole would get larger than `mostItems`, the upper levels come
// first; what is left out is noted in a comment.
std::string CallTreeText(const LinkStatistics &statistics, size_t mostItems = 20000);

// One line for each function: name:"file",line=N,ram=BYTES.BITS,rom=SIZE; and one for "#GLOBAL", the data memory that
// no single function has for itself. The sums are what the link has allocated.
std::string FunctionInfoText(const LinkStatistics &statistics);

std::string StatisticsName(std::string_view label);       // "_loop" of ".loop"
std::string StatisticsFileName(std::string_view native);  // ".\sub\a.asm", "c:\home\a.asm"

// Writes both files, native paths. On failure there is none of them.
bool WriteStatistics(const LinkStatistics &statistics, const std::string &tree, const std::string &stat);
