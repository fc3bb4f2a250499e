// Where the lines of a printed page stand. Lengths are pixels of the printer; conversions cut off fractions.
#pragma once

#include <QRect>
#include <cstdint>

#include "editor/PrintSettings.h"
#include "framework/PrintFigures.h"

struct PrintMargins {
    int left = 0, top = 0, right = 0, bottom = 0;

    // The margins of the settings. An unknown unit leaves everything as it was.
    void Take(const CPrintSettings &settings, const PrintFigures &figures);
};

// Margins that leave no room for a line of text between header and footer don't count.
class CPrintLayout {
public:
    // `fontSize`: cell height in pixels of the screen, which has `screenPixels` to the inch.
    CPrintLayout(const CPrintSettings &settings, const PrintMargins &margins, const PrintFigures &figures, int fontSize,
                 int screenPixels);

    float Scale() const { return scale_; }
    int FontHeight() const { return fontHeight_; }  // of the cell
    int LineHeight() const { return lineHeight_; }
    int LinesPerPage() const { return linesPerPage_; }  // with header and footer
    int BodyLines() const { return linesPerPage_ - header_ - footer_; }

    int PageCount(intptr_t lineCount) const;  // so many that each line has its place; at least 1
    intptr_t FirstLine(int page) const { return static_cast<intptr_t>(BodyLines()) * (page - 1); }

    QRect HeaderRow() const { return Row(0); }
    QRect BodyRow(int line) const { return Row(line + header_); }  // from 0 on each page
    QRect FooterRow() const;

private:
    void DropMarginsWithoutRoom();
    QRect Row(int row) const;

    PrintMargins margins_;
    int pageWidth_, pageHeight_;
    bool header_, footer_;
    float scale_;
    int fontHeight_, lineHeight_, linesPerPage_;
};
