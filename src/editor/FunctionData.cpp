#include "editor/FunctionData.h"

#include <algorithm>

bool CFunctionData::SetMark(const CIDEView *view, intptr_t handle) {
    auto place = std::ranges::find(marks, view, &Mark::view);
    if (place == marks.end()) place = std::ranges::find(marks, nullptr, &Mark::view);
    if (place == marks.end()) return false;
    *place = {view, handle};
    return true;
}

void CFunctionData::DropMark(const CIDEView *view) {
    for (Mark &mark : marks)
        if (mark.view == view) mark = {};
}

const CFunctionData::Mark *CFunctionData::FindMark(const CIDEView *view) const {
    const auto place = std::ranges::find(marks, view, &Mark::view);
    return place == marks.end() ? nullptr : &*place;
}
