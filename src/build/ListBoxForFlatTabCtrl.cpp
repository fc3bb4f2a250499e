#include "build/ListBoxForFlatTabCtrl.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <climits>
#include <cmath>

#include "build/TextColumns.h"
#include "framework/MDIFrameWnd.h"
#include "framework/Text.h"
#include "framework/WinApp.h"
#include "widgets/ReadableColour.h"

namespace {

constexpr int kLeftMargin = 3;       // pixels before the text
constexpr int kRefreshMilliseconds = 15;  // least time between two refreshes while lines pour in
constexpr int kIdealRows = 8;
constexpr int kIdealColumns = 80;

}  // namespace

CListBoxForFlatTabCtrl::CListBoxForFlatTabCtrl(int id, QWidget *parent) : QAbstractScrollArea(parent), id_(id) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    verticalScrollBar()->setSingleStep(1);
    refresh_.setSingleShot(true);
    connect(&refresh_, &QTimer::timeout, this, [this] { Refresh(); });
    TakeFont();
}

std::string_view CListBoxForFlatTabCtrl::GetText(int index) const {
    return index >= 0 && index < GetCount() ? store_.Line(static_cast<size_t>(index)) : std::string_view();
}

void CListBoxForFlatTabCtrl::AddLine(std::string_view text) {
    if (GetCount() == INT_MAX) return;
    store_.Append(text);
    longestColumns_ = std::max(longestColumns_, CountColumns(text));
    SetCurSel(GetCount() - 1);
}

void CListBoxForFlatTabCtrl::ResetContent() {
    store_.Clear();
    selected_ = -1;
    longestColumns_ = 0;
    OnReset();
    ScheduleRefresh();
}

void CListBoxForFlatTabCtrl::SetCurSel(int index) {
    selected_ = index >= 0 && index < GetCount() ? index : -1;
    revealSelected_ = true;
    ScheduleRefresh();
}

bool CListBoxForFlatTabCtrl::CopyAll() {
    std::string text;
    text.reserve(store_.TextBytes() + 2 * store_.Count());
    for (size_t i = 0; i < store_.Count(); ++i) text.append(store_.Line(i)).append("\r\n");
    const QString copy = ToQString(text);
    QClipboard *clipboard = QApplication::clipboard();
    clipboard->setText(copy);
    return clipboard->text().size() == copy.size();
}

bool CListBoxForFlatTabCtrl::IsDark() const {
    return HasDarkGround(palette());
}

// Scroll bars and picture follow the content once in a while, not at each line.
void CListBoxForFlatTabCtrl::ScheduleRefresh() {
    if (refresh_.isActive()) return;
    const qint64 waited = sinceRefresh_.isValid() ? sinceRefresh_.elapsed() : kRefreshMilliseconds;
    refresh_.start(static_cast<int>(std::clamp<qint64>(kRefreshMilliseconds - waited, 0, kRefreshMilliseconds)));
}

void CListBoxForFlatTabCtrl::Refresh() {
    refresh_.stop();
    sinceRefresh_.start();
    SetRanges();
    if (revealSelected_ && selected_ >= 0) Reveal(selected_);
    revealSelected_ = false;
    viewport()->update();
}

void CListBoxForFlatTabCtrl::SetRanges() {
    const int rows = RowsInView();
    verticalScrollBar()->setPageStep(rows);
    verticalScrollBar()->setRange(0, std::max(0, GetCount() - rows));
    const qreal width = static_cast<qreal>(longestColumns_) * columnWidth_ + 2 * kLeftMargin;
    const int shown = viewport()->width();
    horizontalScrollBar()->setSingleStep(static_cast<int>(std::ceil(columnWidth_)));
    horizontalScrollBar()->setPageStep(shown);
    horizontalScrollBar()->setRange(0, static_cast<int>(std::clamp<qreal>(std::ceil(width) - shown, 0, INT_MAX)));
}

int CListBoxForFlatTabCtrl::RowsInView() const { return std::max(1, viewport()->height() / rowHeight_); }

int CListBoxForFlatTabCtrl::RowAt(const QPoint &at) const {
    if (at.y() < 0) return -1;
    const int index = verticalScrollBar()->value() + at.y() / rowHeight_;
    return index < GetCount() ? index : -1;
}

QRect CListBoxForFlatTabCtrl::RowRect(int index) const {
    const int row = index - verticalScrollBar()->value();
    if (index < 0 || index >= GetCount() || row < 0 || row > RowsInView()) return {};
    return {0, row * rowHeight_, viewport()->width(), rowHeight_};
}

void CListBoxForFlatTabCtrl::Reveal(int index) {
    const int top = verticalScrollBar()->value(), rows = RowsInView();
    if (index < top)
        verticalScrollBar()->setValue(index);
    else if (index >= top + rows)
        verticalScrollBar()->setValue(index - rows + 1);
}

void CListBoxForFlatTabCtrl::TakeFont() {
    const QFontMetricsF metrics(font());
    rowHeight_ = std::max(1, static_cast<int>(std::ceil(metrics.height())));
    columnWidth_ = metrics.horizontalAdvance('x');
    ScheduleRefresh();
}

CListBoxForFlatTabCtrl::Row CListBoxForFlatTabCtrl::LayOutRow(int index) const {
    const int scrolled = horizontalScrollBar()->value();
    const auto firstColumn = static_cast<size_t>(std::max<qreal>(0, scrolled / columnWidth_ - 1));
    const auto columns = static_cast<size_t>(viewport()->width() / columnWidth_) + 4;
    const ColumnSlice slice = SliceColumns(GetText(index), firstColumn, columns);
    return {ToQString(slice.text), kLeftMargin - scrolled + static_cast<qreal>(slice.column) * columnWidth_,
            RowRect(index), index == selected_};
}

void CListBoxForFlatTabCtrl::paintEvent(QPaintEvent *) {
    QPainter painter(viewport());
    painter.setFont(font());
    const int first = verticalScrollBar()->value();
    const int last = std::min(GetCount() - 1, first + RowsInView());
    for (int index = first; index <= last; ++index) {
        const Row row = LayOutRow(index);
        const auto group = hasFocus() ? QPalette::Active : QPalette::Inactive;
        if (row.selected) painter.fillRect(row.area, palette().color(group, QPalette::Highlight));
        painter.setPen(row.selected ? palette().color(group, QPalette::HighlightedText) : TextColor(GetText(index)));
        DrawText(painter, row);
    }
}

QColor CListBoxForFlatTabCtrl::TextColor(std::string_view) const { return palette().color(QPalette::Text); }

void CListBoxForFlatTabCtrl::DrawText(QPainter &painter, const Row &row) const {
    painter.drawText(QPointF(row.left, row.area.top() + QFontMetricsF(font()).ascent()), row.text);
}

bool CListBoxForFlatTabCtrl::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride && selected_ >= 0 &&
        static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy))
        event->accept();
    return QAbstractScrollArea::event(event);
}

void CListBoxForFlatTabCtrl::keyPressEvent(QKeyEvent *event) {
    if (event->matches(QKeySequence::Copy) && selected_ >= 0) {
        QApplication::clipboard()->setText(ToQString(GetText(selected_)));
        return;
    }
    const int last = GetCount() - 1, page = std::max(1, RowsInView() - 1);
    int index = selected_;
    switch (event->key()) {
        case Qt::Key_Up: index -= 1; break;
        case Qt::Key_Down: index += 1; break;
        case Qt::Key_PageUp: index -= page; break;
        case Qt::Key_PageDown: index += page; break;
        case Qt::Key_Home: index = 0; break;
        case Qt::Key_End: index = last; break;
        case Qt::Key_Left:
        case Qt::Key_Right:
            horizontalScrollBar()->triggerAction(event->key() == Qt::Key_Left ? QAbstractSlider::SliderSingleStepSub
                                                                              : QAbstractSlider::SliderSingleStepAdd);
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (selected_ >= 0) OnActivate(selected_);
            return;
        default: QAbstractScrollArea::keyPressEvent(event); return;
    }
    if (last >= 0) SetCurSel(std::clamp(index, 0, last));
}

void CListBoxForFlatTabCtrl::mousePressEvent(QMouseEvent *event) {
    const int index = RowAt(event->position().toPoint());
    if (index < 0) return;
    if (event->button() == Qt::LeftButton) OnClick(index);
    if (index < GetCount()) SetCurSel(index);
}

void CListBoxForFlatTabCtrl::mouseMoveEvent(QMouseEvent *event) {
    if (!(event->buttons() & Qt::LeftButton) || GetCount() == 0) return;
    const int y = event->position().toPoint().y();
    const int row = y < 0 ? -1 : y / rowHeight_;
    SetCurSel(std::clamp(verticalScrollBar()->value() + row, 0, GetCount() - 1));
}

void CListBoxForFlatTabCtrl::mouseDoubleClickEvent(QMouseEvent *event) {
    const int index = RowAt(event->position().toPoint());
    if (index >= 0 && event->button() == Qt::LeftButton) OnActivate(index);
}

void CListBoxForFlatTabCtrl::contextMenuEvent(QContextMenuEvent *event) {
    CWinApp *app = CWinApp::Get();
    CMDIFrameWnd *frame = app ? app->GetMainWnd() : nullptr;
    if (frame && MenuResource() != 0) frame->TrackPopupMenu(MenuResource(), event->globalPos(), this);
}

void CListBoxForFlatTabCtrl::resizeEvent(QResizeEvent *event) {
    QAbstractScrollArea::resizeEvent(event);
    revealSelected_ = revealSelected_ || selected_ == GetCount() - 1;
    Refresh();
}

void CListBoxForFlatTabCtrl::changeEvent(QEvent *event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) TakeFont();
    if (event->type() == QEvent::PaletteChange) viewport()->update();
}

void CListBoxForFlatTabCtrl::focusInEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void CListBoxForFlatTabCtrl::focusOutEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

QSize CListBoxForFlatTabCtrl::sizeHint() const {
    return {static_cast<int>(kIdealColumns * columnWidth_), kIdealRows * rowHeight_};
}
