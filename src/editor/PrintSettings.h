// How documents are printed: what the user set for pages, and the font that follows from his editor settings.
#pragma once

#include <string>

enum class PrintAlignment { left = 0, centre = 1, right = 2 };

// Section "Margins" of the user's settings.
struct CPrintSettings {
    std::string unit = kInches;  // of the four margins; in any case, and another text may stand there
    double top = 1, bottom = 1, left = 1, right = 1;
    std::string header = "&F";  // empty: none; with the codes of ExpandHeaderText
    std::string footer = "&P";
    PrintAlignment headerAlignment = PrintAlignment::centre;
    PrintAlignment footerAlignment = PrintAlignment::centre;

    static CPrintSettings Load();
    bool Store() const;  // false when the settings can't be written

    static constexpr const char *kInches = "inches", *kMillimetres = "mm", *kPixels = "pixels";
};

// The character set that settings may hold as well means nothing to text in UTF-8.
struct CPrintFont {
    std::string face = "Courier";
    int size = 10;    // cell height in pixels of the screen, from 1
    int tabSize = 4;  // blanks, from 1
    bool bold = false, italic = false;

    static CPrintFont Load();
};

// The number at the beginning of `text`, with a point whatever the user's language; 0 when there is none.
double ParseMargin(const std::string &text);
