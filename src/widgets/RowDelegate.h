// Paints the rows of trees and lists in colours of their own.
#pragma once

#include <QStyledItemDelegate>

// The role under which a model gives a row's text colour, a word 0x00BBGGRR; 0 is the colour of normal text.
inline constexpr int kRowColourRole = Qt::UserRole;

// A colour is changed as far as it needs to be read on the ground of the rows, in light and dark. Selected rows have
// the desktop's colours.
class CRowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
