// Contracting and expanding blocks of a code view.
#pragma once

#include <cstdint>

class CSciWindow;

// A click into the folding margin at `line`, with SCMOD_ keys held down.
void FoldClick(const CSciWindow &window, intptr_t line, int modifiers);

// Contracts all top-level blocks, or expands them when the first one is contracted; `force`: expands in any case.
void FoldAll(const CSciWindow &window, bool force);
