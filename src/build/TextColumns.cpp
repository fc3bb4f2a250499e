#include "build/TextColumns.h"

#include <cstdint>

namespace {

constexpr size_t kTabColumns = 8;
constexpr size_t kShortLine = 512;  // bytes; drawn whole, so that ligatures and wide characters keep their places

bool Follows(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }
size_t NextTabStop(size_t column) { return (column / kTabColumns + 1) * kTabColumns; }

}  // namespace

size_t CountColumns(std::string_view text) {
    size_t columns = 0;
    for (const char c : text)
        if (c == '\t')
            columns = NextTabStop(columns);
        else if (!Follows(c))
            ++columns;
    return columns;
}

ColumnSlice SliceColumns(std::string_view text, size_t first, size_t count) {
    const bool isShort = text.size() <= kShortLine;
    if (isShort && text.find('\t') == std::string_view::npos) return {std::string(text), 0};
    const size_t begin = isShort ? 0 : first;
    const size_t end = isShort ? SIZE_MAX : first + count;
    ColumnSlice slice;
    size_t column = 0;
    bool taking = false;
    for (const char c : text) {
        if (Follows(c)) {
            if (taking) slice.text += c;
            continue;
        }
        if (column >= end) break;
        const size_t next = c == '\t' ? NextTabStop(column) : column + 1;
        if (!taking && next > begin) {
            taking = true;
            slice.column = column;
        }
        if (taking && c == '\t')
            slice.text.append(next - column, ' ');
        else if (taking)
            slice.text += c;
        column = next;
    }
    return slice;
}
