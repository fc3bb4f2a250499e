#include "widgets/GridPainter.h"

#include <algorithm>

#include "framework/Colour.h"
#include "framework/Text.h"
#include "widgets/ReadableColour.h"

namespace {

constexpr int kFocusWidth = 2;  // pixels
constexpr int kBracketWidth = 2;
constexpr int kBracketArm = 4;
constexpr int kMarkShare = 60;   // of the row's height, in percent
constexpr int kMarkOverlap = 2;  // pixels of a digit that are empty

}  // namespace

CGridPainter::CGridPainter(const CGridCtrl &grid, QPainter &painter) : grid_(grid), painter_(painter) {
    const QPalette &palette = grid.palette();
    dark_ = HasDarkGround(palette);
    selected_ = {palette.highlight().color(), palette.highlightedText().color()};
    fixed_ = {palette.base().color(), ReadableColour(palette.placeholderText().color(), palette.base().color())};
    painter_.setFont(grid.font_);
}

CGridPainter::Colours CGridPainter::MakeColours(const CGridCell &cell) const {
    const QPalette &palette = grid_.palette();
    const GridLook *const look = cell.Look();
    if (!look) return {palette.base().color(), palette.text().color()};
    const QColor ground = ToQColor(dark_ ? look->darkGround : look->lightGround);
    const QColor text = look->pale ? palette.placeholderText().color() : palette.text().color();
    return {ground, ReadableColour(QColor(text.rgb()), ground)};
}

const CGridPainter::Colours &CGridPainter::ColoursOf(const CGridCell &cell, bool selected) {
    if (selected) return selected_;
    if (cell.IsFixed()) return fixed_;
    const auto known = std::ranges::find(looks_, cell.Look(), &std::pair<const GridLook *, Colours>::first);
    if (known != looks_.end()) return known->second;
    return looks_.emplace_back(cell.Look(), MakeColours(cell)).second;
}

void CGridPainter::DrawCell(GridPlace place, const QRect &area) {
    const CGridCell &cell = grid_.Cell(place);
    const bool current = place == grid_.Current();
    const bool many = grid_.current_ != grid_.anchor_;  // one cell keeps its own colours
    const Colours &colours = ColoursOf(cell, many && grid_.IsSelected(place));
    painter_.fillRect(area, colours.ground);
    DrawText(cell, area, colours.text, current ? grid_.EditPosition() : -1);
    if (cell.IsPointed()) DrawBrackets(area, colours.text);
    if (current) DrawFocus(area);
}

void CGridPainter::DrawText(const CGridCell &cell, const QRect &area, const QColor &ink, int caret) {
    const QString text = ToQString(cell.Text());
    const GridLook *const look = cell.Look();
    if (const bool bold = look && look->bold; bold != bold_) {
        bold_ = bold;
        painter_.setFont(bold ? grid_.boldFont_ : grid_.font_);
    }
    const int width = static_cast<int>(text.size()) * grid_.charWidth_;
    int left = area.left() + (area.width() - width) / 2;
    if (cell.IsMarked()) {
        left = area.right() - width;
        DrawMark(QRect(area.left(), area.top(), left - area.left() + kMarkOverlap, area.height()));
    }
    painter_.setPen(ink);
    const int base = area.top() + grid_.ascent_;
    painter_.drawText(left, base, text);
    const auto line = [&](int from, int y) { painter_.fillRect(from, y, width - (from - left), 1, ink); };
    if (look && look->underlined) line(left, base + 1);
    if (look && look->struck) line(left, area.center().y());
    if (caret > 0) painter_.fillRect(left + caret * grid_.charWidth_, base + 1, grid_.charWidth_, 2, ink);
}

// As large as the room beside the text allows.
void CGridPainter::DrawMark(const QRect &room) {
    const int size = std::min(room.width(), room.height() * kMarkShare / 100);
    if (mark_.isNull() || static_cast<int>(mark_.deviceIndependentSize().width()) != size)
        mark_ = grid_.mark_.pixmap(QSize(size, size), grid_.devicePixelRatioF());
    painter_.drawPixmap(room.left(), room.top() + (room.height() - size) / 2, mark_);
}

void CGridPainter::DrawBrackets(const QRect &area, const QColor &ink) {
    const QRect box = area.adjusted(0, 0, -1, -1);
    for (const int x : {box.left(), box.right() - kBracketWidth + 1}) {
        painter_.fillRect(x, box.top(), kBracketWidth, box.height(), ink);
        const int arm = x == box.left() ? x : box.right() - kBracketArm + 1;
        painter_.fillRect(arm, box.top(), kBracketArm, 1, ink);
        painter_.fillRect(arm, box.bottom(), kBracketArm, 1, ink);
    }
}

void CGridPainter::DrawFocus(const QRect &area) {
    QPen pen(selected_.ground, grid_.hasFocus() ? kFocusWidth : 1);
    pen.setJoinStyle(Qt::MiterJoin);
    painter_.setPen(pen);
    painter_.drawRect(grid_.hasFocus() ? area.adjusted(1, 1, -1, -1) : area.adjusted(0, 0, -1, -1));
}
