// Jumps to definitions and the way back.
#pragma once

#include <vector>

#include "navigation/BrowseRecord.h"

class CIDEDoc;

// The text may have changed since the tags were made: each view of the document goes to the line nearest to the
// record's that holds its name. Main thread.
void LocateSymbolInViews(CIDEDoc &document, const BrowseRecord &record);

// Shows where a symbol is defined; a line of the build list says when that can't be. Main thread.
void ShowDefinition(const BrowseRecord &record);

// Where the user jumped from, the last place on top. It outlives workspaces, and isn't stored. Main thread.
class CBrowseHistory {
public:
    bool IsEmpty() const { return places_.empty(); }
    void OnBrowseGotoDefinition();  // of the word at the caret of the active source view; nothing for an unknown one
    void OnBrowseGoBack();

private:
    std::vector<BrowseRecord> places_;
};

bool IsSourceViewActive();
