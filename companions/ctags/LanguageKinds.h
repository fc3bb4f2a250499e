// Which kinds of symbols each language is asked for, so that a kind letter means the same whatever language the symbol
// comes from.
#pragma once

#include <string>
#include <vector>

#include "TagRequest.h"

// The options for the languages that the tag generator reads by itself; it is to read no others.
std::vector<std::string> LanguageOptions(const TagRequest &request);

// The letters for what an assembler source has; '\0' for what isn't wanted.
struct AssemblerKinds {
    char label = '\0', variable = '\0', macro = '\0';  // macro: equates and definitions too

    bool Any() const { return label || variable || macro; }
};
AssemblerKinds AssemblerKindsFor(const TagRequest &request);
