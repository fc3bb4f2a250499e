#include "debugger/ProfileDelegate.h"

#include <QPainter>

#include "framework/Text.h"
#include "widgets/ReadableColour.h"

namespace {

constexpr int kMargin = 2;     // pixels above and below a row's text
constexpr int kNameShare = 8;  // width of the names, in heights of a row
constexpr int kBarInset = 2;

struct Colours {
    QColor side, fill, light, shade;
};
const Colours kLight{QColor(208, 208, 208), QColor(153, 153, 255), QColor(102, 102, 255), QColor(0, 0, 153)};
const Colours kDark{QColor(64, 64, 64), QColor(84, 84, 190), QColor(128, 128, 230), QColor(40, 40, 110)};

void DrawBar(QPainter &painter, const QRect &bar, const Colours &colours) {
    painter.fillRect(bar, colours.fill);
    painter.setPen(colours.light);
    painter.drawLine(bar.topLeft(), bar.topRight());
    painter.drawLine(bar.topLeft(), bar.bottomLeft());
    painter.setPen(colours.shade);
    painter.drawLine(bar.bottomLeft(), bar.bottomRight());
    painter.drawLine(bar.topRight(), bar.bottomRight());
}

}  // namespace

QSize CProfileDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const {
    return {0, option.fontMetrics.height() + 2 * kMargin};
}

void CProfileDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const ProfileRow &row = rows_.List()[static_cast<size_t>(index.row())];
    const QPalette &palette = option.palette;
    const bool selected = option.state & QStyle::State_Selected;
    const Colours &colours = HasDarkGround(palette) ? kDark : kLight;
    const QRect area = option.rect;
    const int figuresWidth = option.fontMetrics.horizontalAdvance(kWidestFigures);
    const QRect name(area.left(), area.top(), kNameShare * area.height(), area.height());
    const QRect figures(area.right() + 1 - figuresWidth, area.top(), figuresWidth, area.height());

    painter->save();
    painter->setFont(option.font);
    painter->fillRect(area, palette.base());
    const int barLeft = name.right() + 1 + kBarInset;
    const int room = figures.left() - barLeft;
    DrawBar(*painter, QRect(barLeft, area.top() + kBarInset, row.BarWidth(room), area.height() - 2 * kBarInset),
            colours);
    for (const QRect &side : {name, figures})
        painter->fillRect(side, selected ? palette.highlight() : QBrush(colours.side));
    painter->setPen(selected ? palette.highlightedText().color() : palette.text().color());
    const QString text =
        option.fontMetrics.elidedText(" " + ToQString(row.name), Qt::ElideMiddle, name.width() - kMargin);
    painter->drawText(name, Qt::AlignLeft | Qt::AlignVCenter, text);
    painter->drawText(figures, Qt::AlignLeft | Qt::AlignVCenter, ToQString(row.Figures()));
    painter->restore();
}
