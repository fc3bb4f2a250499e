// Tips with the whole text of a row that is cut off.
#pragma once

#include <QString>

class QAbstractItemView;
class QHelpEvent;

// What a tip shows for `text`: the characters themselves, whatever marks they hold, and very long texts in lines.
QString TitleTipText(const QString &text);

// Answers the tool tip event of a view's viewport: over the row under the mouse when its text doesn't show whole, else
// no tip.
void ShowTitleTip(QAbstractItemView &view, const QHelpEvent &event);
