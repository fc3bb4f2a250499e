#include "debugger/GridCellHex.h"

#include "debugger/MemoryBar.h"
#include "widgets/GridCtrl.h"

namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

int DigitOf(char32_t typed) {
    if (typed >= '0' && typed <= '9') return static_cast<int>(typed - '0');
    const char32_t letter = typed | 0x20;
    return typed < 0x80 && letter >= 'a' && letter <= 'f' ? static_cast<int>(letter - 'a') + 10 : -1;
}

}  // namespace

std::string CGridCellHex::Text() const {
    if (IsAbsent()) return "--";
    return {kDigits[Value() >> 4], kDigits[Value() & 0xF]};
}

bool CGridCellHex::OnTyped(CGridCtrl &grid, GridPlace place, char32_t typed) {
    const int digit = DigitOf(typed);
    if (digit < 0 || IsAbsent()) return false;
    const bool first = grid.EditPosition() == 0;
    if (first) high_ = digit;
    Enter(static_cast<uint8_t>(high_ << 4 | (first ? Value() & 0xF : digit)));
    if (first)
        grid.SetEditPosition(1);
    else
        grid.SetCurrent(CMemoryBar::NextCell(grid, place));
    return true;
}
