#include "debugger/ProfileListModel.h"

#include <algorithm>

#include "framework/Text.h"

int CProfileListModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows.List().size());
}

QVariant CProfileListModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    const ProfileRow &row = rows.List()[static_cast<size_t>(index.row())];
    return ToQString(row.name + row.Figures());
}

void CProfileListModel::Take(CProfileRows changed) {
    const auto &before = rows.List(), &now = changed.List();
    if (before.size() != now.size()) {
        beginResetModel();
        rows = std::move(changed);
        endResetModel();
        return;
    }
    if (std::ranges::equal(before, now, {}, &ProfileRow::place, &ProfileRow::place)) {
        rows = std::move(changed);
        if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1));
        return;
    }
    emit layoutAboutToBeChanged();
    std::vector<int> rowOf(now.size());  // by place
    for (size_t i = 0; i < now.size(); ++i) rowOf[now[i].place] = static_cast<int>(i);
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    for (const QModelIndex &each : from) to.append(index(rowOf[before[static_cast<size_t>(each.row())].place]));
    rows = std::move(changed);
    changePersistentIndexList(from, to);
    emit layoutChanged();
}
