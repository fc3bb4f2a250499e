// The searches of the Edit menu in one view. They look for the program's current find text with the user's settings,
// and tell in the build list or the status bar what they didn't find. Main thread.
#pragma once

#include <cstdint>
#include <string>

#include "editor/FindSettings.h"

class CIDEView;

// Values of a view's findPos that are no position of a hit.
inline constexpr intptr_t kFindFromSelection = -1;
inline constexpr intptr_t kFindFromStart = -2;

// Selects the next hit, round the end of the text if need be. Its position; -1, and the selection as it was, when there
// is none or no text to look for.
intptr_t FindNext(CIDEView &view, bool reverse);

// Makes `text` the current find text and selects its next hit. `position`: where the last hit was, or one of the values
// above; it becomes that of the new one. Whether there is one.
bool FindInView(const std::string &text, CIDEView &view, intptr_t *position = nullptr);

// Replaces the selection and selects the next hit.
void ReplaceSelection(CIDEView &view, const std::string &text);

// Replaces every hit in the whole text as one undo step and puts the caret behind the last one. The count.
intptr_t ReplaceAll(CIDEView &view, const std::string &text);

// What the user asks for in the Replace dialog.
struct ReplaceRequest {
    std::string text;
    std::string replacement;
    CFindSettings settings;
};

// Replace, for `one`, or Replace All: Replace moves on to the next hit when the selection isn't the text.
void ReplaceCommand(CIDEView &view, const ReplaceRequest &request, bool one);

// What the dialogs begin with: the selection, else the word at the caret.
std::string TextToFind(const CIDEView &view);
