#include "widgets/ColourPalette.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <iterator>

#include "framework/Colour.h"

namespace {

// 0x00BBGGRR: greys, then each hue dark, full, medium and pale.
constexpr uint32_t kColours[] = {
    0x000000, 0x404040, 0x808080, 0xA0A0A0, 0xC0C0C0, 0xE0E0E0, 0xF0F0F0, 0xFFFFFF,  //
    0x000080, 0x004080, 0x008080, 0x008000, 0x808000, 0x800000, 0x800040, 0x800080,  //
    0x0000FF, 0x0080FF, 0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF0000, 0xFF0080, 0xFF00FF,  //
    0x4040C0, 0x4080C0, 0x40C0C0, 0x40C040, 0xC0C040, 0xC04040, 0xC04080, 0xC040C0,  //
    0xC0C0FF, 0xC0E0FF, 0xC0FFFF, 0xC0FFC0, 0xFFFFC0, 0xFFC0C0, 0xFFC0E0, 0xFFC0FF,
};
constexpr int kCells = static_cast<int>(std::size(kColours)), kColumns = 8, kRows = kCells / kColumns;
constexpr int kCellSize = 24, kMargin = 6, kInset = 3;  // pixels

}  // namespace

CColourPalette::CColourPalette(QWidget *parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CColourPalette::sizeHint() const {
    return {kColumns * kCellSize + 2 * kMargin, kRows * kCellSize + 2 * kMargin};
}

void CColourPalette::SetCurrent(uint32_t colour) {
    const auto *found = std::ranges::find(kColours, colour);
    MoveTo(found == std::end(kColours) ? 0 : static_cast<int>(found - kColours));
}

QRect CColourPalette::CellRect(int cell) const {
    return {kMargin + cell % kColumns * kCellSize, kMargin + cell / kColumns * kCellSize, kCellSize, kCellSize};
}

int CColourPalette::CellAt(const QPoint &at) const {
    for (int cell = 0; cell < kCells; ++cell)
        if (CellRect(cell).contains(at)) return cell;
    return -1;
}

void CColourPalette::MoveTo(int cell) {
    current_ = cell;
    update();
}

void CColourPalette::Pick() {
    if (onPick) onPick(kColours[current_]);
}

void CColourPalette::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    for (int cell = 0; cell < kCells; ++cell) {
        painter.setBrush(ToQColor(kColours[cell]));
        painter.drawRect(CellRect(cell).adjusted(kInset, kInset, -kInset - 1, -kInset - 1));
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(CellRect(current_).adjusted(1, 1, -1, -1));
}

void CColourPalette::keyPressEvent(QKeyEvent *event) {
    const auto step = [&](int columns, int rows) {
        const int column = current_ % kColumns + columns, row = current_ / kColumns + rows;
        const bool inside = column >= 0 && column < kColumns && row >= 0 && row < kRows;
        if (inside) MoveTo(row * kColumns + column);
        return inside;
    };
    switch (event->key()) {
        case Qt::Key_Left:
            step(-1, 0);
            return;
        case Qt::Key_Right:
            step(1, 0);
            return;
        case Qt::Key_Up:
            if (step(0, -1)) return;
            break;  // to what stands above the grid
        case Qt::Key_Down:
            if (step(0, 1)) return;
            break;  // to what stands below it
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Pick();
            return;
    }
    QWidget::keyPressEvent(event);
}

void CColourPalette::mouseMoveEvent(QMouseEvent *event) {
    if (const int cell = CellAt(event->position().toPoint()); cell >= 0) MoveTo(cell);
    QWidget::mouseMoveEvent(event);
}

void CColourPalette::mouseReleaseEvent(QMouseEvent *event) {
    const int cell = CellAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || cell < 0) return;
    MoveTo(cell);
    Pick();
}
