#include "debugger/ByteState.h"

#include "app/StringIds.h"

namespace {

struct Row {
    GridLook look;
    int words;
};

// In the order of ByteState.
constexpr Row kRows[] = {
    {{.lightGround = 0xE0E0E0, .darkGround = 0x3A3A3A, .pale = true}, 0},
    {{}, 0},
    {{.lightGround = 0xFFFF00, .darkGround = 0x6B5A00, .bold = true}, IDS_MEMORY_CHANGED},
    {{.lightGround = 0xA0A0FF, .darkGround = 0x404080, .struck = true}, IDS_MEMORY_UNREADABLE},
    {{.lightGround = 0x5CFF5C, .darkGround = 0x206020, .bold = true, .underlined = true}, IDS_MEMORY_WRITTEN},
    {{.lightGround = 0x0000FF, .darkGround = 0x1414A8, .bold = true, .struck = true}, IDS_MEMORY_NOT_WRITTEN},
};

const Row &RowOf(ByteState state) {
    return kRows[static_cast<size_t>(state)];
}

}  // namespace

const GridLook *LookOf(ByteState state) {
    return state == ByteState::same ? nullptr : &RowOf(state).look;
}

int WordsFor(ByteState state) {
    return RowOf(state).words;
}
