// Draws a row of the profile: the name, a bar in proportion, the figures.
#pragma once

#include <QStyledItemDelegate>

#include "debugger/ProfileRows.h"

class CProfileDelegate : public QStyledItemDelegate {
public:
    // `rows` outlives the delegate.
    CProfileDelegate(const CProfileRows &rows, QObject *parent) : QStyledItemDelegate(parent), rows_(rows) {}

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    const CProfileRows &rows_;
};
