#include "widgets/RowDelegate.h"

#include "framework/Colour.h"
#include "widgets/ReadableColour.h"

void CRowDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const uint32_t colour = index.data(kRowColourRole).toUInt();
    if (!colour) return;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QColor ground = option->palette.color(group, QPalette::Base);
        option->palette.setColor(group, QPalette::Text, ReadableColour(ToQColor(colour), ground));
    }
}
