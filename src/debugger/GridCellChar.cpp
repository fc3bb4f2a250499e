#include "debugger/GridCellChar.h"

#include "debugger/MemoryBar.h"
#include "widgets/GridCtrl.h"

namespace {

constexpr char32_t kSoftHyphen = 0xAD;  // has no width

bool IsPrintable(char32_t c) {
    return (c >= 0x20 && c < 0x7F) || (c > 0xA0 && c <= 0xFF && c != kSoftHyphen);
}

}  // namespace

std::string CGridCellChar::Text() const {
    if (IsAbsent()) return "-";
    if (!IsPrintable(Value())) return ".";
    if (Value() < 0x80) return {static_cast<char>(Value())};
    return {static_cast<char>(0xC0 | Value() >> 6), static_cast<char>(0x80 | (Value() & 0x3F))};
}

bool CGridCellChar::OnTyped(CGridCtrl &grid, GridPlace place, char32_t typed) {
    if (!IsPrintable(typed) || IsAbsent()) return false;
    Enter(static_cast<uint8_t>(typed));
    grid.SetCurrent(CMemoryBar::NextCell(grid, place));
    return true;
}
