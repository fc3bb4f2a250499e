// What the user can set about the look of source text, for all code views alike.
#pragma once

#include <array>
#include <string>

#include "editor/Style.h"

class CSciWindow;

// Main thread.
class CEditorProperties {
public:
    static constexpr size_t kStyles = 15;

    // What a window takes at most. Values beyond are kept as they were stored and cut when they are used.
    static constexpr int kMaxFontSize = 200, kMaxTabSize = 64;

    CEditorProperties();  // the defaults

    void ResetStyles();  // the table's defaults; the other fields stay
    void Load();         // from the user's settings; without any there, nothing changes
    bool Save() const;   // all of it; false when the settings can't be written

    // Gives all styles of the window the look of ordinary text, among them those that no row of the table sets; to be
    // followed by ApplyProperties, which then measures its margins in the right font.
    void ClearStyles(const CSciWindow &window) const;

    // Pushes everything into one component window. `lineCount` decides how wide the line numbers are.
    void ApplyProperties(const CSciWindow &window, int lineCount) const;
    void ApplyExecutionColour(const CSciWindow &window) const;
    void ApplyRunningColour(const CSciWindow &window) const;  // of the execution mark while the target runs

    // Pixels that the line numbers of a text of `lineCount` lines need.
    static int LineNumberWidth(const CSciWindow &window, int lineCount);

    // Whether text of the component's current lexer can be folded and folding is on.
    bool FoldsIn(const CSciWindow &window) const;

    std::string font = "Courier New";
    int fontSize = 10;  // points; as stored, so any value
    int tabSize = 4;    // columns, at least 1
    bool useTabs = true;
    bool fold = false;
    bool indentGuides = false;
    bool smartIndent = false;
    bool lineNumbers = false;
    std::array<CStyle, kStyles> styles;

private:
    const CStyle &Row(int id) const;
    void ApplyMargins(const CSciWindow &window, int lineCount) const;
    void ApplyFont(const CSciWindow &window) const;
    void ApplyFontTo(const CSciWindow &window, int style) const;
    static void ApplyRow(const CSciWindow &window, const CStyle &row);
    void ApplyPredefinedStyles(const CSciWindow &window) const;
};
