#include "widgets/PropTreeModel.h"

#include <QFont>
#include <QPixmap>

#include "framework/Text.h"
#include "widgets/RowDelegate.h"

namespace {

constexpr uint32_t kChanged = 0xFF0000, kError = 0x0000FF;  // words 0x00BBGGRR
constexpr int kEmptyMark = 64;                              // pixels; shown smaller

uint32_t ColourOf(PropLook look) {
    return look == PropLook::changed ? kChanged : look == PropLook::error ? kError : 0;
}

QVariant FontOf(PropLook look) {
    if (look == PropLook::normal) return {};
    QFont font;  // what isn't set here is the tree's
    if (look == PropLook::changed) font.setBold(true);
    if (look == PropLook::error) font.setItalic(true);
    return font;
}

}  // namespace

CPropTreeModel::CPropTreeModel(QObject *parent) : QAbstractItemModel(parent) {}

CPropTreeItem *CPropTreeModel::Insert(CPropTreeItem *parent, std::unique_ptr<CPropTreeItem> item) {
    CPropTreeItem &above = ItemOrRoot(parent);
    CPropTreeItem *const added = item.get();
    added->model_ = this;
    added->parent_ = parent;
    added->place_ = static_cast<int>(above.children_.size());
    if (!filling_) beginInsertRows(IndexOf(parent), added->place_, added->place_);
    above.children_.push_back(std::move(item));
    if (!filling_) endInsertRows();
    return added;
}

void CPropTreeModel::Remove(CPropTreeItem &item) {
    CPropTreeItem &above = ItemOrRoot(item.parent_);
    const int place = item.place_;
    if (!filling_) beginRemoveRows(IndexOf(item.parent_), place, place);
    above.children_.erase(above.children_.begin() + place);
    for (size_t i = static_cast<size_t>(place); i < above.children_.size(); ++i)
        above.children_[i]->place_ = static_cast<int>(i);
    if (!filling_) endRemoveRows();
}

void CPropTreeModel::Clear() {
    if (!filling_) beginResetModel();
    root_.children_.clear();
    if (!filling_) endResetModel();
}

void CPropTreeModel::BeginFill() {
    beginResetModel();
    filling_ = true;
}

void CPropTreeModel::EndFill() {
    filling_ = false;
    endResetModel();
}

void CPropTreeModel::SetMark(const QIcon &mark) {
    QPixmap empty(kEmptyMark, kEmptyMark);
    empty.fill(Qt::transparent);
    mark_ = mark;
    noMark_ = QIcon(empty);
}

QModelIndex CPropTreeModel::IndexOf(const CPropTreeItem *item, int column) const {
    return item ? createIndex(item->place_, column, item) : QModelIndex();
}

QModelIndex CPropTreeModel::index(int row, int column, const QModelIndex &parent) const {
    const auto &children = parent.isValid() ? ItemOf(parent)->Children() : root_.Children();
    if (column < kName || column > kValue || row < 0 || static_cast<size_t>(row) >= children.size()) return {};
    return createIndex(row, column, children[static_cast<size_t>(row)].get());
}

QModelIndex CPropTreeModel::parent(const QModelIndex &index) const {
    return index.isValid() ? IndexOf(ItemOf(index)->parent_) : QModelIndex();
}

int CPropTreeModel::rowCount(const QModelIndex &parent) const {
    if (parent.column() > kName) return 0;
    return static_cast<int>((parent.isValid() ? ItemOf(parent)->Children() : root_.Children()).size());
}

int CPropTreeModel::columnCount(const QModelIndex &) const {
    return kValue + 1;
}

QVariant CPropTreeModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid()) return {};
    const CPropTreeItem &item = *ItemOf(index);
    const bool isValue = index.column() == kValue;
    switch (role) {
        case Qt::DisplayRole:
            return ToQString(isValue ? item.Value() : item.Label());
        case Qt::DecorationRole:
            // Groups have no place that could be marked.
            return isValue || !item.Parent() || mark_.isNull() ? QVariant() : item.IsMarked() ? mark_ : noMark_;
        case Qt::FontRole:
            return isValue ? FontOf(item.Look()) : QVariant();
        case kRowColourRole:
            return isValue ? ColourOf(item.Look()) : 0u;
        default:
            return {};
    }
}

QVariant CPropTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < kName || section > kValue) return {};
    if (role == Qt::DisplayRole) return titles_[static_cast<size_t>(section)];
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags CPropTreeModel::flags(const QModelIndex &index) const {
    const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    const bool edits = index.column() == kValue && dynamic_cast<CPropTreeItemEdit *>(ItemOf(index));
    return edits ? flags | Qt::ItemIsEditable : flags;
}
