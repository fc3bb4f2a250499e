// Paints the rows of a property tree and edits their values.
#pragma once

#include "widgets/RowDelegate.h"

class CPropTreeDelegate : public CRowDelegate {
public:
    using CRowDelegate::CRowDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
};
