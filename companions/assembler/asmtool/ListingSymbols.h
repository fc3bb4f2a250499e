// The symbol table behind a program's listing: its variables, one a line, name and hexadecimal address.
//
// The linker's listing has none, and the image knows only what the linker has placed. Variables that the sources place
// themselves, by "cblock" or by an equate that instructions use as a register, stand in the assembler's listings only.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "coff/LinkedImage.h"

struct ListedVariable {
    std::string name;
    uint32_t address = 0;  // in data memory
};

// Those that the source of an assembler's listing places itself, in their order there: first the blocks, then equates.
std::vector<ListedVariable> AbsoluteVariables(std::string_view assemblerListing);

// The table's text; each name stands once. Empty without any variable.
std::string SymbolTable(const CLinkedImage &image, const std::vector<std::string> &assemblerListings);
