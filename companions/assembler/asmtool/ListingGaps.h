// What the linker's listing leaves out. It is made of source lines: code from a library whose source isn't at hand
// isn't in it, but the program counter gets there all the same.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "coff/LinkedImage.h"

// The addresses of the program's words that have no line in `listing`.
std::set<uint32_t> ListingGaps(std::string_view listing, const CLinkedImage &image);

// The listing with a remark on each line that has an address and a word alone.
std::string WithSecondWords(std::string_view listing);

// A line of the disassembler in the form that the listing's lines have; empty unless it is for one of `gaps`.
std::string ListingLineOf(std::string_view disassembled, const std::set<uint32_t> &gaps);
