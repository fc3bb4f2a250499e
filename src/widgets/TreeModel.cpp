#include "widgets/TreeModel.h"

#include <algorithm>

#include "framework/Text.h"
#include "widgets/RowDelegate.h"

TreeRow *CTreeModel::Insert(TreeRow *parent, std::unique_ptr<TreeRow> row) {
    TreeRow &above = parent ? *parent : root_;
    TreeRow *added = row.get();
    added->parent = parent;
    added->place = static_cast<int>(above.children.size());
    added->depth = parent ? parent->depth + 1 : 0;
    deepest_ = std::max(deepest_, added->depth);
    if (!filling_) beginInsertRows(IndexOf(parent), added->place, added->place);
    above.children.push_back(std::move(row));
    if (!filling_) endInsertRows();
    return added;
}

void CTreeModel::Remove(TreeRow &row) {
    TreeRow &above = row.parent ? *row.parent : root_;
    const int place = row.place;
    if (!filling_) beginRemoveRows(IndexOf(row.parent), place, place);
    above.children.erase(above.children.begin() + place);
    for (size_t i = static_cast<size_t>(place); i < above.children.size(); ++i)
        above.children[i]->place = static_cast<int>(i);
    if (!filling_) endRemoveRows();
}

void CTreeModel::Clear() {
    if (!filling_) beginResetModel();
    root_.children.clear();
    deepest_ = -1;
    if (!filling_) endResetModel();
}

void CTreeModel::Changed(TreeRow &row) {
    if (filling_) return;
    const QModelIndex index = IndexOf(&row);
    emit dataChanged(index, index);
}

void CTreeModel::BeginFill() {
    beginResetModel();
    filling_ = true;
}

void CTreeModel::EndFill() {
    filling_ = false;
    endResetModel();
}

QModelIndex CTreeModel::IndexOf(const TreeRow *row) const {
    return row ? createIndex(row->place, 0, row) : QModelIndex();
}

QModelIndex CTreeModel::index(int row, int column, const QModelIndex &parent) const {
    const auto &children = RowOrRoot(parent).children;
    if (column != 0 || row < 0 || static_cast<size_t>(row) >= children.size()) return {};
    return createIndex(row, 0, children[static_cast<size_t>(row)].get());
}

QModelIndex CTreeModel::parent(const QModelIndex &index) const {
    return index.isValid() ? IndexOf(RowOf(index)->parent) : QModelIndex();
}

int CTreeModel::rowCount(const QModelIndex &parent) const {
    return static_cast<int>(RowOrRoot(parent).children.size());
}

int CTreeModel::columnCount(const QModelIndex &) const {
    return 1;
}

QVariant CTreeModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid()) return {};
    const TreeRow &row = *RowOf(index);
    switch (role) {
        case Qt::DisplayRole:
            return ToQString(row.text);
        case Qt::FontRole:
            return row.font ? QVariant(*row.font) : QVariant();
        case kRowColourRole:
            return row.colour;
        default:
            return {};
    }
}
