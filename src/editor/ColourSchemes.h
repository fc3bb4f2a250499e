// The built-in colour schemes. Choosing one fills the table of styles; none is remembered by its name.
#pragma once

#include <array>
#include <cstddef>

class CEditorProperties;

inline constexpr std::array<const char *, 4> kColourSchemes = {"Default", "Borland", "Visual C++", "Midnight"};

// Sets all rows, with their flags, and the line numbers. `scheme`: index into kColourSchemes; nothing happens beyond
// it.
void ApplyColourScheme(CEditorProperties &properties, size_t scheme);
