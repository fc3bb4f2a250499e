// The rows behind a CTreeCtrlEx.
#pragma once

#include <QAbstractItemModel>
#include <QFont>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct TreeRow {
    std::string text;
    uint32_t colour = 0;  // word 0x00BBGGRR; 0: as normal text
    std::optional<QFont> font;
    intptr_t data = 0;

    TreeRow *parent = nullptr;
    int place = 0;  // among its parent's children
    int depth = 0;  // 0: at the top level
    std::vector<std::unique_ptr<TreeRow>> children;
};

class CTreeModel : public QAbstractItemModel {
public:
    using QAbstractItemModel::QAbstractItemModel;

    TreeRow *Insert(TreeRow *parent, std::unique_ptr<TreeRow> row);  // at the end
    void Remove(TreeRow &row);
    void Clear();
    void Changed(TreeRow &row);

    // Between the two, views learn nothing of what is inserted.
    void BeginFill();
    void EndFill();

    QModelIndex IndexOf(const TreeRow *row) const;
    static TreeRow *RowOf(const QModelIndex &index) { return static_cast<TreeRow *>(index.internalPointer()); }
    const TreeRow &Root() const { return root_; }
    int Deepest() const { return deepest_; }  // depth that a row has or had since the last Clear; -1 without rows

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    const TreeRow &RowOrRoot(const QModelIndex &index) const { return index.isValid() ? *RowOf(index) : root_; }

    TreeRow root_;
    int deepest_ = -1;
    bool filling_ = false;
};
