#include "debugger/WatchDropTarget.h"

#include <QAbstractScrollArea>
#include <QDropEvent>
#include <QMimeData>
#include <algorithm>

#include "framework/Text.h"

namespace {

QString FirstLine(const QString &text) {
    const auto end = std::find_if(text.begin(), text.end(), [](QChar c) { return c == '\n' || c == '\r'; });
    return text.left(end - text.begin()).trimmed();
}

}  // namespace

CWatchDropTarget::CWatchDropTarget(QAbstractScrollArea &view, Take take) : QObject(&view), take_(std::move(take)) {
    view.viewport()->setAcceptDrops(true);
    view.viewport()->installEventFilter(this);
}

bool CWatchDropTarget::eventFilter(QObject *object, QEvent *event) {
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QObject::eventFilter(object, event);
    auto &drop = static_cast<QDropEvent &>(*event);
    // The text stays where it comes from, whatever its owner offers. Files go on to the frame.
    if (!drop.mimeData()->hasText() || drop.mimeData()->hasUrls()) {
        drop.ignore();
        return true;
    }
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    if (type != QEvent::Drop) return true;
    if (const QString line = FirstLine(drop.mimeData()->text()); !line.isEmpty()) take_(FromQString(line));
    return true;
}
