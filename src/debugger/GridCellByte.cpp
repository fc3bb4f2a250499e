#include "debugger/GridCellByte.h"

#include "debugger/MemoryBar.h"

bool CGridCellByte::Show(uint8_t value, ByteState state) {
    if (IsAbsent()) return false;
    const bool changed = value != value_ || state != state_;
    value_ = value;
    state_ = state;
    SetLook(LookOf(state));
    return changed;
}

std::string CGridCellByte::Tip() const {
    return IsAbsent() ? std::string() : bar_.TipFor(*this);
}

void CGridCellByte::Enter(uint8_t value) const {
    bar_.WriteByte(address_, value);
}
