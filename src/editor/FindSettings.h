// How to search in a view: the user's choice, kept in section "Find" of his settings.
#pragma once

#include <cstdint>
#include <string>

struct CFindSettings {
    bool matchCase = false;
    bool wholeWord = false;
    bool regExpr = false;  // the text is a regular expression of the editing component
    bool wordStart = false;
    bool forward = true;

    static CFindSettings Load();
    void Store() const;

    // The component's SCFIND_ flags for a search for `text`.
    intptr_t FlagsFor(const std::string &text) const;
};

// Whether `text` can be looked for as a whole word: the dialogs for files ask for whole words, and it begins and ends
// with a letter, a digit or "_".
bool IsWordSearchable(const std::string &text);
