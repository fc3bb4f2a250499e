// Keyboard, mouse and selection of the grid.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "framework/Text.h"
#include "widgets/GridCtrl.h"

// --- Selection ---

void CGridCtrl::SetCurrent(GridPlace place) {
    Select(place, place);
}

void CGridCtrl::Select(GridPlace current, GridPlace anchor) {
    if (!Contains(current) || !Contains(anchor)) return;
    const bool one = current_ == anchor_ && current == anchor;
    const GridPlace before = std::exchange(current_, current);
    anchor_ = anchor;
    editPosition_ = 0;
    if (one) {
        RedrawCell(before);
        RedrawCell(current);
    } else {
        viewport()->update();
    }
    Reveal(current);
}

void CGridCtrl::SelectRow(int row) {
    Select({row, columns_ - 1}, {row, 0});
}

QRect CGridCtrl::Selection() const {
    return QRect(QPoint(std::min(current_.column, anchor_.column), std::min(current_.row, anchor_.row)),
                 QPoint(std::max(current_.column, anchor_.column), std::max(current_.row, anchor_.row)));
}

bool CGridCtrl::IsSelected(GridPlace place) const {
    return current_.IsValid() && Selection().contains(place.column, place.row);
}

void CGridCtrl::SetEditPosition(int position) {
    editPosition_ = position;
    RedrawCell(current_);
}

std::string CGridCtrl::SelectedText() const {
    if (!current_.IsValid()) return {};
    const QRect area = Selection();
    std::string text;
    for (int row = area.top(); row <= area.bottom(); ++row) {
        const size_t begin = text.size();
        for (int column = area.left(); column <= area.right(); ++column) {
            const CGridCell &cell = Cell({row, column});
            const std::string each = cell.Text();
            if (cell.IsFixed() && each.find_first_not_of(' ') == each.npos) continue;
            if (text.size() > begin) text += '\t';
            text += each;
        }
        text += '\n';
    }
    return text;
}

// --- Keyboard ---

bool CGridCtrl::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = static_cast<QKeyEvent &>(*event);
        const bool ends = key.key() == Qt::Key_Escape && editPosition_ > 0;
        if (ends || (current_.IsValid() && (key.matches(QKeySequence::Copy) || key.matches(QKeySequence::SelectAll))))
            event->accept();
    }
    return QAbstractScrollArea::event(event);
}

void CGridCtrl::keyPressEvent(QKeyEvent *event) {
    if (rows_ == 0 || columns_ == 0) {
        QAbstractScrollArea::keyPressEvent(event);
    } else if (event->matches(QKeySequence::Copy)) {
        if (current_.IsValid()) QApplication::clipboard()->setText(ToQString(SelectedText()));
    } else if (event->matches(QKeySequence::SelectAll)) {
        Select({rows_ - 1, columns_ - 1}, {0, 0});
    } else if (!MoveByKey(*event) && !EditByKey(*event)) {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

// The cell `rows` and `columns` on, over fixed ones; the current one where there is none.
GridPlace CGridCtrl::Step(int rows, int columns) const {
    GridPlace to = current_;
    if (rows != 0) to.row = std::clamp(to.row + rows, 0, rows_ - 1);
    if (columns == 0) return to;
    do to.column += columns;
    while (Contains(to) && Cell(to).IsFixed());
    return Contains(to) ? to : current_;
}

// The first cell from `column` on, in steps of `step`, that isn't fixed.
GridPlace CGridCtrl::EndOfRow(int row, int column, int step) const {
    GridPlace to{row, column};
    while (Contains(to) && Cell(to).IsFixed()) to.column += step;
    return Contains(to) ? to : current_;
}

bool CGridCtrl::MoveByKey(const QKeyEvent &event) {
    const bool ends = event.modifiers() & Qt::ControlModifier, extends = event.modifiers() & Qt::ShiftModifier;
    GridPlace to;
    switch (event.key()) {
        case Qt::Key_Up:
            to = Step(ends ? -rows_ : -1, 0);
            break;
        case Qt::Key_Down:
            to = Step(ends ? rows_ : 1, 0);
            break;
        case Qt::Key_Left:
            to = ends ? EndOfRow(current_.row, 0, 1) : Step(0, -1);
            break;
        case Qt::Key_Right:
            to = ends ? EndOfRow(current_.row, columns_ - 1, -1) : Step(0, 1);
            break;
        case Qt::Key_PageUp:
            to = Step(-RowsInView(), 0);
            break;
        case Qt::Key_PageDown:
            to = Step(RowsInView(), 0);
            break;
        case Qt::Key_Home:
            to = EndOfRow(ends ? 0 : current_.row, 0, 1);
            break;
        case Qt::Key_End:
            to = EndOfRow(ends ? rows_ - 1 : current_.row, columns_ - 1, -1);
            break;
        default:
            return false;
    }
    if (!current_.IsValid()) to = EndOfRow(verticalScrollBar()->value(), 0, 1);
    Select(to, extends && anchor_.IsValid() ? anchor_ : to);
    return true;
}

bool CGridCtrl::EditByKey(const QKeyEvent &event) {
    if (editPosition_ > 0 && (event.key() == Qt::Key_Escape || event.key() == Qt::Key_Backspace)) {
        SetEditPosition(event.key() == Qt::Key_Escape ? 0 : editPosition_ - 1);
        return true;
    }
    const bool command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const QList<uint> typed = event.text().toUcs4();
    if (command || typed.size() != 1 || !current_.IsValid()) return false;
    // Of a whole row it is the first cell.
    if (current_ != anchor_) SetCurrent(Cell(anchor_).IsFixed() ? EndOfRow(anchor_.row, anchor_.column, 1) : current_);
    return Cell(current_).OnTyped(*this, current_, typed.front());
}

// --- Mouse ---

void CGridCtrl::mousePressEvent(QMouseEvent *event) {
    const GridPlace place = CellAt(event->position().toPoint());
    if (!place.IsValid()) return;
    if (event->button() == Qt::RightButton) {
        if (!IsSelected(place) && !Cell(place).IsFixed()) SetCurrent(place);
    } else if (event->button() == Qt::LeftButton) {
        if (place.column == 0 && Cell(place).IsFixed())
            SelectRow(place.row);
        else if (!Cell(place).IsFixed())
            Select(place, event->modifiers() & Qt::ShiftModifier && anchor_.IsValid() ? anchor_ : place);
    }
}

void CGridCtrl::mouseMoveEvent(QMouseEvent *event) {
    if (!(event->buttons() & Qt::LeftButton) || !anchor_.IsValid()) return;
    const QPoint at = event->position().toPoint();
    const QRect inside = viewport()->rect().adjusted(0, -rowHeight_, 0, rowHeight_);  // a drag beyond it scrolls
    const GridPlace place{std::clamp((std::clamp(at.y(), inside.top(), inside.bottom()) + rowHeight_) / rowHeight_ - 1 +
                                         verticalScrollBar()->value(),
                                     0, rows_ - 1),
                          std::clamp(ColumnAt(std::max(0, at.x()) + horizontalScrollBar()->value()), 0, columns_ - 1)};
    if (anchor_.column == 0 && Cell(anchor_).IsFixed())
        Select({place.row, columns_ - 1}, anchor_);
    else if (!Cell(place).IsFixed() && place != current_)
        Select(place, anchor_);
}

void CGridCtrl::contextMenuEvent(QContextMenuEvent *event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const GridPlace place = byKey ? current_ : CellAt(event->pos());
    if (!place.IsValid() || !onMenu) return;
    onMenu(place, byKey ? viewport()->mapToGlobal(CellRect(place).center()) : event->globalPos());
}

void CGridCtrl::focusInEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusInEvent(event);
    if (!current_.IsValid() && rows_ > 0 && event->reason() != Qt::MouseFocusReason)
        SetCurrent(EndOfRow(verticalScrollBar()->value(), 0, 1));
    RedrawCell(current_);
}

void CGridCtrl::focusOutEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) editPosition_ = 0;
    RedrawCell(current_);
}
