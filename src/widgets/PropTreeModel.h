// The rows behind a CPropTree.
#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <array>
#include <functional>

#include "widgets/PropTreeItem.h"

class CPropTreeModel : public QAbstractItemModel {
public:
    static constexpr int kName = 0, kValue = 1;

    explicit CPropTreeModel(QObject *parent);

    CPropTreeItem *Insert(CPropTreeItem *parent, std::unique_ptr<CPropTreeItem> item);  // at the end
    void Remove(CPropTreeItem &item);
    void Clear();

    // Between the two, views learn nothing of what is inserted and removed.
    void BeginFill();
    void EndFill();

    void SetTitles(const QString &name, const QString &value) { titles_ = {name, value}; }
    void SetMark(const QIcon &mark);  // rows without it keep its room; none at first

    // Called for each change of a row's own. Views aren't told: hundreds of rows change at a stop, and an editor that
    // is open must keep what was typed.
    std::function<void()> onChange;
    void TellChange() const { onChange(); }

    QModelIndex IndexOf(const CPropTreeItem *item, int column = kName) const;
    static CPropTreeItem *ItemOf(const QModelIndex &index) {
        return static_cast<CPropTreeItem *>(index.internalPointer());
    }
    const CPropTreeItem &Root() const { return root_; }

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    CPropTreeItem &ItemOrRoot(CPropTreeItem *item) { return item ? *item : root_; }

    CPropTreeItem root_{""};
    std::array<QString, 2> titles_;
    QIcon mark_, noMark_;
    bool filling_ = false;
};
