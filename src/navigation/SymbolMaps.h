// What is known of the names in the active project: six categories of symbols, and the prototypes of functions.
#pragma once

#include <array>
#include <map>
#include <string>

#include "navigation/BrowseRecord.h"

// In byte order of the names. A name is one entry: a later symbol of the same name and category replaces the earlier.
using SymbolMap = std::map<std::string, BrowseRecord>;

struct SymbolMaps {
    SymbolMap Containers;  // classes, structures, unions
    SymbolMap Functions;
    SymbolMap Variables;
    SymbolMap Macros;
    SymbolMap Enums;  // types and their values
    SymbolMap Typedefs;
    std::map<std::string, std::string> Prototypes;  // name to text
};

// A category as the browse tree shows it.
struct SymbolCategory {
    SymbolMap SymbolMaps::*map;
    const char *label;  // in every language
    const char *icon;   // of its symbols
};

// In the order in which the browse tree shows them.
inline constexpr std::array<SymbolCategory, 6> kSymbolCategories = {{
    {&SymbolMaps::Containers, "Containers", "symbol-container"},
    {&SymbolMaps::Functions, "Functions", "symbol-function"},
    {&SymbolMaps::Variables, "Variables", "symbol-variable"},
    {&SymbolMaps::Enums, "Enums", "symbol-enum"},
    {&SymbolMaps::Macros, "Macros", "symbol-macro"},
    {&SymbolMaps::Typedefs, "Typedefs", "symbol-typedef"},
}};
