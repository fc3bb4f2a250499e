// What a component window of a code view is told once, and for each kind of file.
#pragma once

#include <cstdint>

#include "editor/FileKind.h"
#include "editor/ScintillaMessages.h"

class CSciWindow;

inline constexpr int kFoldMarginWidth = 14;  // pixels, where there is something to fold

// Marker numbers in every code view.
enum ViewMarker : int {
    kMarkerExecution = 0,
    kMarkerBookmark = 1,
    kMarkerBreakpoint = 3,
    kMarkerBreakpointSecond = 4,
    kMarkerFunction = 5,  // invisible; follows the line of a function
};
inline constexpr int kBreakpointMarks = 1 << kMarkerBreakpoint | 1 << kMarkerBreakpointSecond;  // as a mask

inline constexpr int kChangesOfText = SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT;  // all that a view is told of its text

void SetUpWindow(const CSciWindow &window);   // at its creation
void SetUpFolding(const CSciWindow &window);  // glyphs of the folding margin
void SetUpCaret(const CSciWindow &window);    // blinks as the desktop's carets do

// Lexer, keywords and folding margin for `kind`; unbinds the keys that would put control characters into the text.
void SetLexerOf(const CSciWindow &window, FileKind kind, bool fold);

// Whether a byte of the text is one of the eight that come in pairs.
bool IsBrace(intptr_t character);
