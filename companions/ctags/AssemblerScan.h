// The names in a source for the PIC assembler.
#pragma once

#include <string_view>
#include <vector>

#include "LanguageKinds.h"

struct AssemblerTag {
    std::string_view name;  // in the text that was read
    int line;               // from 1
    char kind;
};

// Names in the order of the text, each once for a kind: an assigned name where it gets its first value. Labels and
// local names of a macro's body belong to the places where it is used and are left out, and so are the names of
// sections. Any bytes are accepted.
std::vector<AssemblerTag> ScanAssembler(std::string_view text, const AssemblerKinds &kinds);

// Whether an include file is for the assembler rather than for a compiler.
bool LooksLikeAssembler(std::string_view text);
