// Columns of a line of UTF-8 text in a font of fixed width: a character takes one, a tab reaches to the next multiple
// of eight.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

size_t CountColumns(std::string_view text);

struct ColumnSlice {
    std::string text;   // with blanks for tabs
    size_t column = 0;  // where it begins
};

// The part of `text` that shows in `count` columns from `first` on. A short line comes whole.
ColumnSlice SliceColumns(std::string_view text, size_t first, size_t count);
