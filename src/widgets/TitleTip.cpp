#include "widgets/TitleTip.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QStringList>
#include <QToolTip>
#include <algorithm>

namespace {

constexpr int kLineLength = 120, kMostLines = 20;

bool IsCutOff(const QAbstractItemView &view, const QModelIndex &index) {
    const QRect place = view.visualRect(index);
    const int needed = view.sizeHintForIndex(index).width();
    return needed > place.width() || place.left() < 0 || place.left() + needed > view.viewport()->width();
}

}  // namespace

QString TitleTipText(const QString &text) {
    QStringList lines;
    for (qsizetype at = 0; at < text.size() && lines.size() < kMostLines; at += kLineLength)
        lines << text.mid(at, kLineLength).toHtmlEscaped();
    if (text.size() > kLineLength * kMostLines) lines << QStringLiteral("...");
    return "<span style='white-space:pre'>" + lines.join("<br>") + "</span>";
}

void ShowTitleTip(QAbstractItemView &view, const QHelpEvent &event) {
    const QModelIndex index = view.indexAt(event.pos());
    const QString text = index.data().toString();
    if (text.isEmpty() || !IsCutOff(view, index)) {
        QToolTip::hideText();
        return;
    }
    const QRect place = view.visualRect(index);
    // The platform moves a tip away from the mouse by itself, so it is given the mouse's place and stays for the row.
    QToolTip::showText(event.globalPos(), TitleTipText(text), view.viewport(), place);
}
