#include "navigation/BrowseTreeModel.h"

#include <algorithm>

#include "framework/Icons.h"
#include "framework/Text.h"
#include "navigation/FolderDelegate.h"
#include "navigation/ProjectEntries.h"
#include "platform/NativePath.h"

namespace {

constexpr qsizetype kLongestText = 1000;  // characters of a row; painting takes long for a line that nobody reads

QString ShownName(std::string_view name) {
    return ToQString(std::string(name.substr(0, 4 * kLongestText))).left(kLongestText);
}

}  // namespace

void CBrowseTreeModel::Rebuild(SymbolMaps &maps, int grouping, const ProjectFiles &files) {
    beginResetModel();
    rows_.Build(maps, grouping, files);
    endResetModel();
}

void CBrowseTreeModel::Clear() {
    beginResetModel();
    rows_.Clear();
    endResetModel();
}

// A symbol's internal id is its group's row plus one, a group's is 0.
size_t CBrowseTreeModel::GroupOf(const QModelIndex &index) {
    return index.internalId() == 0 ? static_cast<size_t>(index.row()) : index.internalId() - 1;
}

const CBrowseRows::Symbol &CBrowseTreeModel::SymbolOf(const QModelIndex &index) const {
    return rows_.Groups()[GroupOf(index)].symbols[static_cast<size_t>(index.row())];
}

std::string CBrowseTreeModel::NameOf(const QModelIndex &index) const {
    if (!index.isValid()) return {};
    return IsSymbol(index) ? std::string(rows_.TextOf(SymbolOf(index))) : rows_.Groups()[GroupOf(index)].name;
}

const BrowseRecord *CBrowseTreeModel::FindRecord(const SymbolMaps &maps, const QModelIndex &index) const {
    if (!IsSymbol(index)) return nullptr;
    return rows_.FindRecord(maps, GroupOf(index), static_cast<size_t>(index.row()));
}

QModelIndex CBrowseTreeModel::FindGroup(const std::string &name) const {
    const auto &groups = rows_.Groups();
    const auto found = std::ranges::find(groups, name, &CBrowseRows::Group::name);
    return found == groups.end() ? QModelIndex() : index(static_cast<int>(found - groups.begin()), 0);
}

QModelIndex CBrowseTreeModel::FindSymbol(const QModelIndex &group, const std::string &name) const {
    if (!group.isValid()) return {};
    const auto &symbols = rows_.Groups()[GroupOf(group)].symbols;
    const auto found = std::ranges::find_if(symbols, [&](const auto &symbol) { return rows_.TextOf(symbol) == name; });
    return found == symbols.end() ? QModelIndex() : index(static_cast<int>(found - symbols.begin()), 0, group);
}

QModelIndex CBrowseTreeModel::index(int row, int column, const QModelIndex &parent) const {
    if (row < 0 || column != 0 || row >= rowCount(parent)) return {};
    return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : 0);
}

QModelIndex CBrowseTreeModel::parent(const QModelIndex &index) const {
    return IsSymbol(index) ? createIndex(static_cast<int>(GroupOf(index)), 0, static_cast<quintptr>(0)) : QModelIndex();
}

int CBrowseTreeModel::rowCount(const QModelIndex &parent) const {
    if (!parent.isValid()) return static_cast<int>(rows_.Groups().size());
    return IsSymbol(parent) ? 0 : static_cast<int>(rows_.Groups()[GroupOf(parent)].symbols.size());
}

QVariant CBrowseTreeModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid()) return {};
    const bool isFile = !IsSymbol(index) && rows_.Grouping() == kGroupByFile;
    switch (role) {
        case Qt::DisplayRole:
            if (IsSymbol(index)) return ShownName(rows_.TextOf(SymbolOf(index)));
            return ShownName(isFile ? NativePathAsSpelled(NameOf(index)) : NameOf(index));
        case Qt::DecorationRole:
            return IconOf(index);
        case kOpenIconRole:
            return IsSymbol(index) || isFile ? QVariant() : QVariant(Icon("folder-open"));
        default:
            return {};
    }
}

QVariant CBrowseTreeModel::IconOf(const QModelIndex &index) const {
    if (IsSymbol(index)) return Icon(kSymbolCategories[SymbolOf(index).category].icon);
    return Icon(rows_.Grouping() == kGroupByFile ? FileIconName(NameOf(index)) : "folder");
}

const QIcon &CBrowseTreeModel::Icon(const char *name) const {
    auto [found, isNew] = icons_.try_emplace(name);
    if (isNew) found->second = LoadIcon(name);
    return found->second;
}

Qt::ItemFlags CBrowseTreeModel::flags(const QModelIndex &index) const {
    if (!index.isValid()) return {};
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return IsSymbol(index) ? flags | Qt::ItemNeverHasChildren : flags;
}
