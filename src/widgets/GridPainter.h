// Draws the cells of a grid.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPixmap>
#include <vector>

#include "widgets/GridCtrl.h"

// One pass over the cells of a region of the grid.
class CGridPainter {
public:
    CGridPainter(const CGridCtrl &grid, QPainter &painter);

    void DrawCell(GridPlace place, const QRect &area);

private:
    struct Colours {
        QColor ground, text;
    };
    const Colours &ColoursOf(const CGridCell &cell, bool selected);
    Colours MakeColours(const CGridCell &cell) const;
    void DrawText(const CGridCell &cell, const QRect &area, const QColor &ink, int caret);
    void DrawMark(const QRect &room);
    void DrawBrackets(const QRect &area, const QColor &ink);
    void DrawFocus(const QRect &area);

    const CGridCtrl &grid_;
    QPainter &painter_;
    bool dark_;
    Colours selected_, fixed_;
    std::vector<std::pair<const GridLook *, Colours>> looks_;  // few; made as they are met
    QPixmap mark_;
    bool bold_ = false;  // the painter's font
};
