#include "widgets/GridCtrl.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

#include "framework/Text.h"
#include "widgets/GridPainter.h"

namespace {

constexpr const char *kFont = "Courier New";
constexpr int kRowGap = 2;        // pixels between the letters of two rows
constexpr int kBlanksBeside = 2;  // of a column's longest text, on either side
constexpr int kIdealRows = 8;

}  // namespace

CGridCtrl::CGridCtrl(QWidget *parent) : QAbstractScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    verticalScrollBar()->setSingleStep(1);
    TakeFont();
}

void CGridCtrl::TakeFont() {
    font_ = QFont(kFont);
    font_.setStyleHint(QFont::TypeWriter);
    font_.setFixedPitch(true);
    font_.setPointSizeF(font().pointSizeF());
    boldFont_ = font_;
    boldFont_.setBold(true);
    const QFontMetrics metrics(font_);
    charWidth_ = std::max(metrics.horizontalAdvance('0'), QFontMetrics(boldFont_).horizontalAdvance('0'));
    rowHeight_ = metrics.height() + kRowGap;
    ascent_ = metrics.ascent() + kRowGap / 2;
}

// --- Cells ---

void CGridCtrl::SetSize(int rows, int columns) {
    rows_ = rows;
    columns_ = columns;
    cells_.clear();
    cells_.resize(static_cast<size_t>(rows) * static_cast<size_t>(columns));
    lefts_.assign(static_cast<size_t>(columns) + 1, 0);
    current_ = anchor_ = {};
    editPosition_ = 0;
    SetRanges();
    viewport()->update();
}

void CGridCtrl::SetCell(GridPlace place, std::unique_ptr<CGridCell> cell) {
    cells_[IndexOf(place)] = std::move(cell);
    RedrawCell(place);
}

CGridCell &CGridCtrl::Cell(GridPlace place) {
    std::unique_ptr<CGridCell> &cell = cells_[IndexOf(place)];
    if (!cell) cell = std::make_unique<CGridCell>();
    return *cell;
}

const CGridCell &CGridCtrl::Cell(GridPlace place) const {
    static const CGridCell kEmpty;
    const CGridCell *const cell = cells_[IndexOf(place)].get();
    return cell ? *cell : kEmpty;
}

bool CGridCtrl::Contains(GridPlace place) const {
    return place.IsValid() && place.row < rows_ && place.column < columns_;
}

void CGridCtrl::RedrawCell(GridPlace place) {
    viewport()->update(CellRect(place));
}

void CGridCtrl::RedrawRow(int row) {
    const int y = (row - verticalScrollBar()->value()) * rowHeight_;
    if (y > -rowHeight_ && y < viewport()->height()) viewport()->update(0, y, viewport()->width(), rowHeight_);
}

void CGridCtrl::SetEmptyText(const std::string &text) {
    emptyText_ = ToQString(text);
    if (rows_ == 0) viewport()->update();
}

// --- Geometry ---

namespace {

size_t CharacterCount(const std::string &text) {
    return static_cast<size_t>(std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

void CGridCtrl::AutoSize() {
    std::vector<size_t> longest(static_cast<size_t>(columns_), 0);
    for (size_t i = 0; i < cells_.size(); ++i) {
        size_t &length = longest[i % longest.size()];
        if (cells_[i]) length = std::max(length, CharacterCount(cells_[i]->Text()));
    }
    for (size_t column = 0; column < longest.size(); ++column)
        lefts_[column + 1] = lefts_[column] + (static_cast<int>(longest[column]) + 2 * kBlanksBeside) * charWidth_;
    SetRanges();
    viewport()->update();
}

int CGridCtrl::ColumnWidth(int column) const {
    const auto i = static_cast<size_t>(column);
    return lefts_[i + 1] - lefts_[i];
}

void CGridCtrl::SetColumnWidth(int column, int width) {
    const int wider = std::max(0, width) - ColumnWidth(column);
    for (auto i = static_cast<size_t>(column) + 1; i < lefts_.size(); ++i) lefts_[i] += wider;
    SetRanges();
    viewport()->update();
}

int CGridCtrl::RowsInView() const {
    return std::max(1, viewport()->height() / rowHeight_);
}

void CGridCtrl::SetRanges() {
    verticalScrollBar()->setRange(0, std::max(0, rows_ - RowsInView()));
    verticalScrollBar()->setPageStep(RowsInView());
    horizontalScrollBar()->setRange(0, std::max(0, lefts_.back() - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(charWidth_);
}

QRect CGridCtrl::CellRect(GridPlace place) const {
    if (!Contains(place)) return {};
    const int x = lefts_[static_cast<size_t>(place.column)] - horizontalScrollBar()->value();
    return {x, (place.row - verticalScrollBar()->value()) * rowHeight_, ColumnWidth(place.column), rowHeight_};
}

int CGridCtrl::ColumnAt(int x) const {
    const auto right = std::upper_bound(lefts_.begin() + 1, lefts_.end(), x);
    return static_cast<int>(right - lefts_.begin()) - 1;
}

GridPlace CGridCtrl::CellAt(const QPoint &at) const {
    const GridPlace place{at.y() / rowHeight_ + verticalScrollBar()->value(),
                          ColumnAt(at.x() + horizontalScrollBar()->value())};
    return at.y() >= 0 && at.x() >= 0 && Contains(place) ? place : GridPlace();
}

void CGridCtrl::Reveal(GridPlace place) {
    QScrollBar &down = *verticalScrollBar(), &across = *horizontalScrollBar();
    down.setValue(std::clamp(down.value(), place.row - RowsInView() + 1, place.row));
    const int left = lefts_[static_cast<size_t>(place.column)], right = left + ColumnWidth(place.column);
    if (left < across.value()) across.setValue(left);
    if (right > across.value() + viewport()->width()) across.setValue(right - viewport()->width());
}

QSize CGridCtrl::sizeHint() const {
    return {lefts_.back() + verticalScrollBar()->sizeHint().width(), kIdealRows * rowHeight_};
}

void CGridCtrl::resizeEvent(QResizeEvent *event) {
    QAbstractScrollArea::resizeEvent(event);
    SetRanges();
}

void CGridCtrl::changeEvent(QEvent *event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() != QEvent::FontChange) return;
    const int before = charWidth_;
    TakeFont();
    for (int &left : lefts_) left = left * charWidth_ / before;
    SetRanges();
    viewport()->update();
}

// --- Drawing ---

void CGridCtrl::paintEvent(QPaintEvent *event) {
    QPainter painter(viewport());
    if (rows_ == 0) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
        return;
    }
    CGridPainter cells(*this, painter);
    const int top = verticalScrollBar()->value(), left = horizontalScrollBar()->value();
    const int firstRow = top + event->rect().top() / rowHeight_;
    const int lastRow = std::min(rows_ - 1, top + event->rect().bottom() / rowHeight_);
    const int firstColumn = ColumnAt(left + event->rect().left());
    const int lastColumn = std::min(columns_ - 1, ColumnAt(left + event->rect().right()));
    for (int row = firstRow; row <= lastRow; ++row) {
        const QRect line(event->rect().left(), (row - top) * rowHeight_, event->rect().width(), rowHeight_);
        if (!event->region().intersects(line)) continue;
        for (int column = firstColumn; column <= lastColumn; ++column)
            cells.DrawCell({row, column}, CellRect({row, column}));
    }
}

bool CGridCtrl::viewportEvent(QEvent *event) {
    if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
    const auto &help = static_cast<QHelpEvent &>(*event);
    const GridPlace place = CellAt(help.pos());
    const std::string tip = place.IsValid() ? Cell(place).Tip() : std::string();
    QToolTip::showText(help.globalPos(), ToQString(tip), viewport(), CellRect(place));
    return true;
}
