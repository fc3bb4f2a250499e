#include "widgets/PropTree.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>

#include "framework/Text.h"
#include "widgets/PropTreeDelegate.h"
#include "widgets/PropTreeModel.h"
#include "widgets/RowKeys.h"
#include "widgets/TitleTip.h"

namespace {

constexpr int kNameCharacters = 22;   // first width of the left column
constexpr int kValueCharacters = 10;  // least width of the right one
constexpr int kWidthDelay = 300;      // milliseconds without a move until the splitter counts as let go
constexpr auto kName = CPropTreeModel::kName, kValue = CPropTreeModel::kValue;

bool IsTreeKey(const QKeyEvent &event) {
    if (IsReturnKey(event) || event.matches(QKeySequence::Copy) || event.matches(QKeySequence::SelectAll)) return true;
    return !event.modifiers() &&
           (event.key() == Qt::Key_F2 || event.key() == Qt::Key_Insert || event.key() == Qt::Key_Delete);
}

}  // namespace

CPropTree::CPropTree(QWidget *parent) : QTreeView(parent), rows_(new CPropTreeModel(this)) {
    rows_->onChange = [this] { viewport()->update(); };
    setModel(rows_);
    setItemDelegate(new CPropTreeDelegate(this));
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(SelectedClicked | EditKeyPressed);
    setFrameShape(QFrame::NoFrame);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(true);
    header()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 4);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setIndentation(fontMetrics().height());
    SetNameWidth(fontMetrics().averageCharWidth() * kNameCharacters);

    auto *const settle = new QTimer(this);
    settle->setSingleShot(true);
    settle->setInterval(kWidthDelay);
    connect(header(), &QHeaderView::sectionResized, this, [this, settle](int section, int, int width) {
        if (section != kName || fitting_) return;
        nameWidth_ = width;
        settle->start();
    });
    connect(settle, &QTimer::timeout, this, [this] {
        FitName();
        if (onNameWidth) onNameWidth(nameWidth_);
    });
}

// Values stay in sight in a narrow tree, too; the left column gets its width back when there is room again.
void CPropTree::FitName() {
    const QScopedValueRollback fitting(fitting_, true);
    const int most = viewport()->width() - fontMetrics().averageCharWidth() * kValueCharacters;
    header()->resizeSection(kName, std::max(std::min(nameWidth_, most), header()->minimumSectionSize()));
}

void CPropTree::resizeEvent(QResizeEvent *event) {
    FitName();
    QTreeView::resizeEvent(event);
}

void CPropTree::SetTitles(const std::string &name, const std::string &value) {
    rows_->SetTitles(ToQString(name), ToQString(value));
}

void CPropTree::SetMark(const QIcon &mark) {
    setIconSize({fontMetrics().height(), fontMetrics().height()});
    rows_->SetMark(mark);
}

CPropTreeItem *CPropTree::InsertItem(std::unique_ptr<CPropTreeItem> item, CPropTreeItem *parent) {
    return rows_->Insert(parent, std::move(item));
}

void CPropTree::DeleteItem(CPropTreeItem *item) {
    rows_->Remove(*item);
}

void CPropTree::DeleteAllItems() {
    rows_->Clear();
}

void CPropTree::Fill(const std::function<void()> &insert) {
    rows_->BeginFill();
    insert();
    rows_->EndFill();
}

const std::vector<std::unique_ptr<CPropTreeItem>> &CPropTree::Items() const {
    return rows_->Root().Children();
}

CPropTreeItem *CPropTree::GetCurrentItem() const {
    return currentIndex().isValid() ? CPropTreeModel::ItemOf(currentIndex()) : nullptr;
}

void CPropTree::SelectItem(CPropTreeItem *item) {
    // Not by the view, which adds to the selection while Ctrl is held.
    selectionModel()->setCurrentIndex(rows_->IndexOf(item),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (item) scrollTo(currentIndex());
}

void CPropTree::Expand(CPropTreeItem *item, bool expand) {
    setExpanded(rows_->IndexOf(item), expand);
}

bool CPropTree::IsExpanded(const CPropTreeItem *item) const {
    return isExpanded(rows_->IndexOf(item));
}

bool CPropTree::BeginEdit(CPropTreeItem *item) {
    SelectItem(item);
    return item && edit(rows_->IndexOf(item, kValue), AllEditTriggers, nullptr);
}

std::vector<CPropTreeItem *> CPropTree::SelectedItems() const {
    std::vector<CPropTreeItem *> items;
    for (QModelIndex row = rows_->index(0, kName); row.isValid(); row = indexBelow(row))
        if (selectionModel()->isSelected(row)) items.push_back(CPropTreeModel::ItemOf(row));
    return items;
}

std::string CPropTree::SelectedText() const {
    std::string text;
    for (const CPropTreeItem *item : SelectedItems()) text += item->Label() + '\t' + item->Value() + '\n';
    return text;
}

void CPropTree::Copy() const {
    if (const std::string text = SelectedText(); !text.empty()) QApplication::clipboard()->setText(ToQString(text));
}

void CPropTree::SetNameWidth(int width) {
    nameWidth_ = width;
    FitName();
}

// Whatever column is current, it is the value that is edited; a click has to be on one that can be.
bool CPropTree::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) {
    const bool byClick = trigger == SelectedClicked;  // which waits for a second one first
    if (byClick && index.column() != kValue) return false;
    return QTreeView::edit(index.siblingAtColumn(kValue), trigger, event) && (byClick || state() == EditingState);
}

void CPropTree::CancelEdit() {
    if (state() != EditingState) return;
    if (QWidget *editor = indexWidget(currentIndex().siblingAtColumn(kValue)))
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

bool CPropTree::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride && IsTreeKey(static_cast<QKeyEvent &>(*event))) event->accept();
    return QTreeView::event(event);
}

bool CPropTree::viewportEvent(QEvent *event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    ShowTitleTip(*this, static_cast<QHelpEvent &>(*event));
    return true;
}

void CPropTree::mousePressEvent(QMouseEvent *event) {
    // The press that opens the menu selects and does nothing else; it leaves a selection that it lies in.
    if (event->button() != Qt::RightButton) return QTreeView::mousePressEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid()) return;
    const bool selected = selectionModel()->isSelected(index);
    selectionModel()->setCurrentIndex(index, selected
                                                 ? QItemSelectionModel::NoUpdate
                                                 : QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void CPropTree::mouseDoubleClickEvent(QMouseEvent *event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !index.isValid()) return QTreeView::mouseDoubleClickEvent(event);
    edit(index, DoubleClicked, event);  // which ends the wait of the first click for an edit, and begins none
    if (onActivate)
        onActivate(CPropTreeModel::ItemOf(index));
    else if (index.column() != kValue || !edit(index, AllEditTriggers, event))
        QTreeView::mouseDoubleClickEvent(event);
}

void CPropTree::keyPressEvent(QKeyEvent *event) {
    const bool plain = !event->modifiers();
    if (IsReturnKey(*event) || (plain && event->key() == Qt::Key_F2)) {
        if (!edit(currentIndex(), AllEditTriggers, event) && IsReturnKey(*event) && !currentIndex().parent().isValid())
            setExpanded(currentIndex().siblingAtColumn(kName), !isExpanded(currentIndex().siblingAtColumn(kName)));
    } else if (event->matches(QKeySequence::Copy)) {
        Copy();
    } else if (plain && event->key() == Qt::Key_Insert && onInsert) {
        onInsert();
    } else if (plain && event->key() == Qt::Key_Delete && onDelete) {
        onDelete();
    } else {
        QTreeView::keyPressEvent(event);
    }
}

void CPropTree::contextMenuEvent(QContextMenuEvent *event) {
    event->accept();
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    const QPoint at =
        byKey && index.isValid() ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
    if (onMenu) onMenu(index.isValid() ? CPropTreeModel::ItemOf(index) : nullptr, at);
}

// The line between the columns goes on below the header, so that long labels and values are told apart.
void CPropTree::drawRow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    QTreeView::drawRow(painter, option, index);
    const int x = header()->sectionViewportPosition(kValue) - 1;
    QColor line = palette().color(QPalette::Text);
    line.setAlpha(40);
    painter->setPen(line);
    painter->drawLine(x, option.rect.top(), x, option.rect.bottom());
}
