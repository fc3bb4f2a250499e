#include "widgets/RowDelegate.h"

#include "framework/Colour.h"
#include "widgets/ReadableColour.h"

void CRowDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const uint32_t colour = index.data(kRowColourRole).toUInt();
    if (!colour) return;
    QPalette &palette = option->palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Text, ReadableColour(ToQColor(colour), palette.color(group, QPalette::Base)));
        palette.setColor(group, QPalette::HighlightedText,
                         ReadableColour(ToQColor(colour), palette.color(group, QPalette::Highlight)));
    }
}
