// The rows of the profile as the list's model.
#pragma once

#include <QAbstractListModel>

#include "debugger/ProfileRows.h"

class CProfileListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;  // the row's text, also as its tip

    template <typename Change>
    void Apply(Change change) {
        const size_t before = rows.List().size();
        change(rows);
        if (rows.List().size() != before) {
            beginResetModel();
            endResetModel();
        } else if (before > 0) {
            emit dataChanged(index(0), index(rowCount() - 1));
        }
    }

    CProfileRows rows;
};
