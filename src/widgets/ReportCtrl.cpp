#include "widgets/ReportCtrl.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "framework/Text.h"
#include "widgets/ReportModel.h"
#include "widgets/RowDelegate.h"
#include "widgets/RowKeys.h"
#include "widgets/TitleTip.h"

CReportCtrl::CReportCtrl(QWidget *parent) : QTreeView(parent), rows_(new CReportModel(this)) {
    setModel(rows_);
    setItemDelegate(new CRowDelegate(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setFrameShape(QFrame::NoFrame);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
}

void CReportCtrl::SetColumns(std::vector<ReportColumn> columns) {
    const std::vector<ReportColumn> set = columns;
    rows_->SetColumns(std::move(columns));
    for (size_t i = 0; i < set.size(); ++i) {
        const int section = static_cast<int>(i);
        header()->setSectionResizeMode(section, set[i].stretch ? QHeaderView::Stretch : QHeaderView::Interactive);
        const int wanted = set[i].width * fontMetrics().averageCharWidth();
        header()->resizeSection(section, std::max(wanted, header()->sectionSizeHint(section)));
    }
}

void CReportCtrl::SetRows(std::vector<ReportRow> rows) {
    const int current = CurrentRow();
    const std::vector<std::string> cells = current < 0 ? std::vector<std::string>() : Row(current).cells;
    const int scrolled = verticalScrollBar()->value();
    rows_->SetRows(std::move(rows));
    if (const int place = current < 0 ? -1 : rows_->FindRow(cells); place >= 0) setCurrentIndex(rows_->index(place, 0));
    if (scrolled == 0) return;
    executeDelayedItemsLayout();
    updateGeometries();
    verticalScrollBar()->setValue(scrolled);
}

void CReportCtrl::Clear() {
    rows_->SetRows({});
    verticalScrollBar()->setValue(0);
}

int CReportCtrl::RowCount() const {
    return rows_->rowCount();
}

const ReportRow &CReportCtrl::Row(int place) const {
    return rows_->Row(place);
}

int CReportCtrl::CurrentRow() const {
    return currentIndex().row();
}

void CReportCtrl::SelectRow(int place) {
    const QModelIndex index = rows_->index(place, 0);
    setCurrentIndex(index);
    scrollTo(index);
}

void CReportCtrl::SortBy(int column, Qt::SortOrder order) {
    sortByColumn(column, order);
}

std::string CReportCtrl::SelectedText() const {
    QModelIndexList selected = selectionModel()->selectedRows();
    std::sort(selected.begin(), selected.end());
    std::string text;
    for (const QModelIndex &index : selected) {
        const ReportRow &row = Row(index.row());
        for (size_t i = 0; i < row.cells.size(); ++i) text += (i ? "\t" : "") + row.cells[i];
        text += '\n';
    }
    return text;
}

bool CReportCtrl::HasSelection() const {
    return selectionModel()->hasSelection();
}

void CReportCtrl::Copy() const {
    if (HasSelection()) QApplication::clipboard()->setText(ToQString(SelectedText()));
}

int CReportCtrl::SortColumnOf(const QKeyEvent &event) const {
    const int column = event.key() - Qt::Key_1;
    const bool known = column >= 0 && column < 9 && column < rows_->columnCount();
    return known && event.modifiers() == Qt::ControlModifier ? column : -1;
}

void CReportCtrl::Activate(const QModelIndex &index) {
    if (!index.isValid() || !onActivate) return;
    if (const std::optional<intptr_t> data = Row(index.row()).data) onActivate(*data);
}

bool CReportCtrl::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = static_cast<QKeyEvent &>(*event);
        if (IsReturnKey(key) || key.matches(QKeySequence::Copy) || key.matches(QKeySequence::SelectAll) ||
            SortColumnOf(key) >= 0)
            event->accept();
    }
    return QTreeView::event(event);
}

bool CReportCtrl::viewportEvent(QEvent *event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    ShowTitleTip(*this, static_cast<QHelpEvent &>(*event));
    return true;
}

void CReportCtrl::mouseDoubleClickEvent(QMouseEvent *event) {
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) Activate(indexAt(event->position().toPoint()));
}

void CReportCtrl::keyPressEvent(QKeyEvent *event) {
    if (IsReturnKey(*event)) {
        Activate(currentIndex());
    } else if (event->matches(QKeySequence::Copy)) {
        Copy();
    } else if (const int column = SortColumnOf(*event); column >= 0) {
        const bool again =
            header()->sortIndicatorSection() == column && header()->sortIndicatorOrder() == Qt::AscendingOrder;
        SortBy(column, again ? Qt::DescendingOrder : Qt::AscendingOrder);
    } else {
        QTreeView::keyPressEvent(event);
    }
}
