// The rows of the browse tree for its window.
#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <array>
#include <map>
#include <string>

#include "navigation/BrowseRows.h"

// A top-level row is a group, the rows under it are symbols. Nothing is kept for a row beyond what CBrowseRows has.
class CBrowseTreeModel : public QAbstractItemModel {
public:
    using QAbstractItemModel::QAbstractItemModel;

    void Rebuild(SymbolMaps &maps, int grouping, const ProjectFiles &files);
    void Clear();

    const CBrowseRows &Rows() const { return rows_; }
    bool IsSymbol(const QModelIndex &index) const { return index.isValid() && index.internalId() != 0; }
    std::string NameOf(const QModelIndex &index) const;  // of a group or symbol; empty for none
    const BrowseRecord *FindRecord(const SymbolMaps &maps, const QModelIndex &index) const;  // null for a group, too
    QModelIndex FindGroup(const std::string &name) const;
    QModelIndex FindSymbol(const QModelIndex &group, const std::string &name) const;  // the first of that name

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    static size_t GroupOf(const QModelIndex &index);  // of a group or of a symbol in it
    const CBrowseRows::Symbol &SymbolOf(const QModelIndex &index) const;
    QVariant IconOf(const QModelIndex &index) const;
    const QIcon &Icon(const char *name) const;

    CBrowseRows rows_;
    mutable std::map<std::string, QIcon> icons_;
};
