#include "widgets/RowDelegate.h"

#include "framework/Colour.h"
#include "widgets/ReadableColour.h"

namespace {

constexpr int kMargin = 2;  // pixels above and below a row's text

}  // namespace

QSize CRowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return size.expandedTo({0, option.fontMetrics.height() + 2 * kMargin});
}

void CRowDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const uint32_t colour = index.data(kRowColourRole).toUInt();
    if (!colour) return;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QColor ground = option->palette.color(group, QPalette::Base);
        option->palette.setColor(group, QPalette::Text, ReadableColour(ToQColor(colour), ground));
    }
}
