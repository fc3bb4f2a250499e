#include "widgets/TreeCtrlEx.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include "widgets/RowDelegate.h"
#include "widgets/RowKeys.h"
#include "widgets/TitleTip.h"
#include "widgets/TreeModel.h"

namespace {

constexpr int kRoomForText = 16;  // average characters that the deepest row shows at least

}  // namespace

CTreeCtrlEx::CTreeCtrlEx(QWidget *parent) : QTreeView(parent), rows_(new CTreeModel(this)) {
    setModel(rows_);
    setItemDelegate(new CRowDelegate(this));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setFrameShape(QFrame::NoFrame);
    const auto keepRoom = [this] { KeepRoomForDeepRows(); };
    connect(rows_, &QAbstractItemModel::rowsInserted, this, keepRoom);
    connect(rows_, &QAbstractItemModel::modelReset, this, keepRoom);
}

void CTreeCtrlEx::KeepRoomForDeepRows() {
    const int room = (rows_->Deepest() + 1) * indentation() + kRoomForText * fontMetrics().averageCharWidth();
    if (header()->minimumSectionSize() != room) header()->setMinimumSectionSize(room);
}

TreeItem CTreeCtrlEx::InsertItem(const std::string &text, TreeItem parent, uint32_t colour, intptr_t data) {
    auto row = std::make_unique<TreeRow>();
    row->text = text;
    row->colour = colour;
    row->data = data;
    return rows_->Insert(parent, std::move(row));
}

void CTreeCtrlEx::DeleteItem(TreeItem item) {
    rows_->Remove(*item);
}

void CTreeCtrlEx::DeleteAllItems() {
    rows_->Clear();
}

void CTreeCtrlEx::Fill(const std::function<void()> &insert) {
    rows_->BeginFill();
    insert();
    rows_->EndFill();
}

const std::string &CTreeCtrlEx::GetItemText(TreeItem item) const {
    return item->text;
}

void CTreeCtrlEx::SetItemText(TreeItem item, std::string text) {
    if (item->text == text) return;
    item->text = std::move(text);
    rows_->Changed(*item);
}

void CTreeCtrlEx::SetItemColour(TreeItem item, uint32_t colour) {
    if (item->colour == colour) return;
    item->colour = colour;
    rows_->Changed(*item);
}

void CTreeCtrlEx::SetItemFont(TreeItem item, const QFont &font) {
    item->font = font;
    rows_->Changed(*item);
}

intptr_t CTreeCtrlEx::GetItemData(TreeItem item) const {
    return item->data;
}

TreeItem CTreeCtrlEx::GetParentItem(TreeItem item) const {
    return item->parent;
}

int CTreeCtrlEx::GetChildCount(TreeItem item) const {
    return rows_->rowCount(rows_->IndexOf(item));
}

TreeItem CTreeCtrlEx::GetChild(int place, TreeItem item) const {
    return CTreeModel::RowOf(rows_->index(place, 0, rows_->IndexOf(item)));
}

TreeItem CTreeCtrlEx::GetSelectedItem() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? nullptr : CTreeModel::RowOf(selected.first());
}

void CTreeCtrlEx::SelectItem(TreeItem item) {
    setCurrentIndex(rows_->IndexOf(item));
    if (item) scrollTo(currentIndex());
}

void CTreeCtrlEx::Expand(TreeItem item, bool expand) {
    setExpanded(rows_->IndexOf(item), expand);
}

bool CTreeCtrlEx::IsExpanded(TreeItem item) const {
    return isExpanded(rows_->IndexOf(item));
}

void CTreeCtrlEx::ExpandAll() {
    expandAll();
    if (const QModelIndex current = currentIndex(); current.isValid()) scrollTo(current);
}

void CTreeCtrlEx::CollapseAll() {
    QModelIndex top = currentIndex();
    while (top.parent().isValid()) top = top.parent();
    collapseAll();
    if (!top.isValid()) return;
    setCurrentIndex(top);
    scrollTo(top);
}

bool CTreeCtrlEx::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride && IsReturnKey(static_cast<QKeyEvent &>(*event))) event->accept();
    return QTreeView::event(event);
}

bool CTreeCtrlEx::viewportEvent(QEvent *event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    ShowTitleTip(*this, static_cast<QHelpEvent &>(*event));
    return true;
}

void CTreeCtrlEx::changeEvent(QEvent *event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) KeepRoomForDeepRows();
}

void CTreeCtrlEx::mousePressEvent(QMouseEvent *event) {
    // The press that opens the menu selects and does nothing else: the toolkit would start a drag or an edit.
    if (event->button() != Qt::RightButton) return QTreeView::mousePressEvent(event);
    if (const QModelIndex index = indexAt(event->position().toPoint()); index.isValid()) setCurrentIndex(index);
}

void CTreeCtrlEx::mouseDoubleClickEvent(QMouseEvent *event) {
    QTreeView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !visualRect(index).contains(event->position().toPoint())) return;
    if (onActivate) onActivate(CTreeModel::RowOf(index));
}

void CTreeCtrlEx::keyPressEvent(QKeyEvent *event) {
    if (!IsReturnKey(*event)) return QTreeView::keyPressEvent(event);
    if (TreeItem item = GetSelectedItem(); item && onActivate) onActivate(item);
}

void CTreeCtrlEx::contextMenuEvent(QContextMenuEvent *event) {
    event->accept();
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    const QPoint at =
        byKey && index.isValid() ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
    if (onMenu) onMenu(CTreeModel::RowOf(index), at);
}
