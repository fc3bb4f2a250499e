#include "navigation/TabBrowseView.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <unordered_set>

#include "navigation/BarTree.h"
#include "navigation/BrowseTreeModel.h"
#include "navigation/WorkspaceBarHost.h"
#include "widgets/RowKeys.h"
#include "widgets/TitleTip.h"

CTabBrowseView::CTabBrowseView(CWorkspaceBarHost &host, QWidget *parent)
    : QTreeView(parent), host_(host), model_(new CBrowseTreeModel(this)) {
    setModel(model_);
    SetUpBarTree(*this);
}

std::vector<CTabBrowseView::SItemState> CTabBrowseView::SaveState() const {
    std::vector<SItemState> states;
    for (int row = 0; row < model_->rowCount(); ++row) {
        const QModelIndex group = model_->index(row, 0);
        states.push_back({model_->NameOf(group), isExpanded(group)});
    }
    return states;
}

CTabBrowseView::Spot CTabBrowseView::SpotOf(const QModelIndex &index) const {
    if (!model_->IsSymbol(index)) return {model_->NameOf(index), {}, false};
    return {model_->NameOf(index.parent()), model_->NameOf(index), true};
}

void CTabBrowseView::Rebuild(int grouping) {
    const std::vector<SItemState> states = SaveState();
    const Spot first = SpotOf(indexAt(QPoint(0, 0)));
    const Spot current = SpotOf(currentIndex());

    model_->Rebuild(host_.Symbols(), grouping, ReadProjectFiles(host_.ActiveProject()));

    std::unordered_set<std::string_view> folded;
    for (const SItemState &state : states)
        if (!state.expanded) folded.insert(state.name);
    for (int row = 0; row < model_->rowCount(); ++row) {
        const QModelIndex group = model_->index(row, 0);
        if (!folded.contains(model_->NameOf(group))) expand(group);
    }
    RestoreCurrent(current);
    RestoreScrolling(first);
}

void CTabBrowseView::RestoreScrolling(const Spot &first) {
    const QModelIndex group = model_->FindGroup(first.group);
    if (!group.isValid()) {
        scrollToTop();
        return;
    }
    const bool toSymbol = first.isSymbol && isExpanded(group);
    const QModelIndex symbol = toSymbol ? model_->FindSymbol(group, first.symbol) : QModelIndex();
    scrollTo(symbol.isValid() ? symbol : group, PositionAtTop);
}

void CTabBrowseView::RestoreCurrent(const Spot &current) {
    const QModelIndex group = model_->FindGroup(current.group);
    if (!group.isValid()) return;
    const QModelIndex symbol = current.isSymbol ? model_->FindSymbol(group, current.symbol) : QModelIndex();
    setAutoScroll(false);  // the row need not have been on show
    setCurrentIndex(symbol.isValid() ? symbol : group);
    setAutoScroll(true);
}

void CTabBrowseView::Clear() {
    model_->Clear();
}

void CTabBrowseView::OpenRow(const QModelIndex &index) {
    // What opens the source can build the index anew.
    if (const BrowseRecord *record = model_->FindRecord(host_.Symbols(), index))
        host_.OpenSymbol(BrowseRecord(*record));
}

bool CTabBrowseView::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride && IsReturnKey(*static_cast<QKeyEvent *>(event))) event->accept();
    return QTreeView::event(event);
}

bool CTabBrowseView::viewportEvent(QEvent *event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    ShowTitleTip(*this, *static_cast<QHelpEvent *>(event));
    return true;
}

void CTabBrowseView::mouseDoubleClickEvent(QMouseEvent *event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !model_->IsSymbol(index)) {
        QTreeView::mouseDoubleClickEvent(event);
        return;
    }
    setCurrentIndex(index);
    event->accept();
    OpenRow(index);
}

void CTabBrowseView::keyPressEvent(QKeyEvent *event) {
    if (!IsReturnKey(*event)) {
        QTreeView::keyPressEvent(event);
        return;
    }
    const QModelIndex index = currentIndex();
    if (model_->IsSymbol(index))
        OpenRow(index);
    else if (index.isValid())
        setExpanded(index, !isExpanded(index));
}

void CTabBrowseView::contextMenuEvent(QContextMenuEvent *event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!byKey) setCurrentIndex(index);
    event->accept();
    if (onMenu)
        onMenu(byKey && index.isValid() ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}
