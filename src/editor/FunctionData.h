// One function of a document.
#pragma once

#include <array>
#include <cstdint>
#include <string>

class CIDEView;

struct CFunctionData {
    // The marker that one view has put on the function's line and that moves with the text.
    struct Mark {
        const CIDEView *view = nullptr;  // null: free
        intptr_t handle = 0;
    };

    // Stores the marker of `view`, in place of its earlier one or in a free place. False when other views hold all
    // four.
    bool SetMark(const CIDEView *view, intptr_t handle);
    void DropMark(const CIDEView *view);
    const Mark *FindMark(const CIDEView *view) const;  // null when it has none

    std::array<Mark, 4> marks;
    std::string name;
    int line = 0;  // from 1, as the tag file gave it
};
