// Paints the rows of trees whose folders open.
#pragma once

#include <QIcon>
#include <QStyledItemDelegate>

// The role under which a model gives the drawing of an expanded row; without one the row keeps its own.
inline constexpr int kOpenIconRole = Qt::UserRole + 1;

class CFolderDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!(option->state & QStyle::State_Open)) return;
        const QVariant open = index.data(kOpenIconRole);
        if (open.isValid()) option->icon = open.value<QIcon>();
    }
};
