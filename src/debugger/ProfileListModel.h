// The rows of the profile as the list's model.
#pragma once

#include <QAbstractListModel>

#include "debugger/ProfileRows.h"

class CProfileListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;  // the row's text, also as its tip

    void Take(CProfileRows changed);  // selection and current row stay the same functions'

    CProfileRows rows;
};
