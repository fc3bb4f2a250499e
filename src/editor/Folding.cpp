#include "editor/Folding.h"

#include "editor/SciWindow.h"

namespace {

bool IsHeader(intptr_t level) {
    return (level & SC_FOLDLEVELHEADERFLAG) != 0;
}

bool IsTopLevelHeader(intptr_t level) {
    return IsHeader(level) && (level & SC_FOLDLEVELNUMBERMASK) == SC_FOLDLEVELBASE;
}

uintptr_t LastChild(const CSciWindow &window, uintptr_t header) {
    return static_cast<uintptr_t>(window.Send(SCI_GETLASTCHILD, header, -1));
}

// Expands `header` and all blocks inside it.
void ExpandBlock(const CSciWindow &window, uintptr_t header) {
    const uintptr_t last = LastChild(window, header);
    window.Send(SCI_SETFOLDEXPANDED, header, 1);
    if (last <= header) return;
    window.Send(SCI_SHOWLINES, header + 1, static_cast<intptr_t>(last));
    for (uintptr_t line = header + 1; line <= last; ++line)
        if (IsHeader(window.Send(SCI_GETFOLDLEVEL, line))) window.Send(SCI_SETFOLDEXPANDED, line, 1);
}

// Contracts `header` and, with `inside`, all blocks inside it.
void ContractBlock(const CSciWindow &window, uintptr_t header, bool inside) {
    const uintptr_t last = LastChild(window, header);
    window.Send(SCI_SETFOLDEXPANDED, header, 0);
    if (last <= header) return;
    window.Send(SCI_HIDELINES, header + 1, static_cast<intptr_t>(last));
    for (uintptr_t line = header + 1; inside && line <= last; ++line)
        if (IsHeader(window.Send(SCI_GETFOLDLEVEL, line))) window.Send(SCI_SETFOLDEXPANDED, line, 0);
}

bool ShouldExpandAll(const CSciWindow &window, uintptr_t lineCount) {
    for (uintptr_t line = 0; line < lineCount; ++line)
        if (IsHeader(window.Send(SCI_GETFOLDLEVEL, line))) return window.Send(SCI_GETFOLDEXPANDED, line) == 0;
    return true;
}

}  // namespace

void FoldClick(const CSciWindow &window, intptr_t line, int modifiers) {
    const bool shift = (modifiers & SCMOD_SHIFT) != 0, ctrl = (modifiers & SCMOD_CTRL) != 0;
    if (shift && ctrl) {
        FoldAll(window, false);
        return;
    }
    const auto header = static_cast<uintptr_t>(line);
    if (!IsHeader(window.Send(SCI_GETFOLDLEVEL, header))) return;
    if (!shift && !ctrl) {
        window.Send(SCI_TOGGLEFOLD, header);
    } else if (ctrl && window.Send(SCI_GETFOLDEXPANDED, header)) {
        ContractBlock(window, header, true);
    } else {
        ExpandBlock(window, header);
    }
}

void FoldAll(const CSciWindow &window, bool force) {
    window.Send(SCI_COLOURISE, 0, -1);  // fold levels come from the lexer
    const auto lineCount = static_cast<uintptr_t>(window.Send(SCI_GETLINECOUNT));
    const bool expand = force || ShouldExpandAll(window, lineCount);
    for (uintptr_t line = 0; line < lineCount; ++line) {
        if (!IsTopLevelHeader(window.Send(SCI_GETFOLDLEVEL, line))) continue;
        if (expand) {
            ExpandBlock(window, line);
        } else {
            ContractBlock(window, line, false);
        }
    }
}
