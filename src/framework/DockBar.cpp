#include "framework/DockBar.h"

#include <QApplication>
#include <QShortcut>
#include <QTabBar>

#include "framework/MDIFrameWnd.h"
#include "framework/Text.h"

CDockBar::CDockBar(int id, const std::string &title, QWidget *parent)
    : QDockWidget(ToQString(title), parent), id_(id) {
    setObjectName(QString("bar%1").arg(id, 4, 16, QChar('0')));
    // An editor within the bar that is open takes the key for itself.
    auto *back = new QShortcut(Qt::Key_Escape, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(back, &QShortcut::activated, this, [this] {
        if (Frame()) Frame()->FocusActiveView();
    });
}

CMDIFrameWnd *CDockBar::Frame() const { return dynamic_cast<CMDIFrameWnd *>(parentWidget()); }

bool CDockBar::IsShowing() const {
    if (isHidden()) return false;
    // The bars behind the front one of a tab group are shown, but lie outside the window.
    return isFloating() || !isVisible() || (geometry().right() >= 0 && geometry().bottom() >= 0);
}

void CDockBar::ShowBar() {
    show();
    raise();
    if (isFloating()) activateWindow();
    FocusContent();
}

void CDockBar::FocusContent() {
    QWidget *place = focusWidget();
    if (!place) {
        for (QWidget *each = nextInFocusChain(); each != this; each = each->nextInFocusChain()) {
            const bool takesFocus = (each->focusPolicy() & Qt::TabFocus) && each->isEnabled() && each->isVisibleTo(this);
            if (!takesFocus || !widget() || !widget()->isAncestorOf(each) || qobject_cast<QTabBar *>(each)) continue;
            place = each;
            break;
        }
    }
    (place ? place : this)->setFocus(Qt::ShortcutFocusReason);
}

void CDockBar::hideEvent(QHideEvent *event) {
    QWidget *focus = QApplication::focusWidget();
    if (isHidden() && focus && (focus == this || isAncestorOf(focus)) && Frame()) Frame()->FocusActiveView();
    QDockWidget::hideEvent(event);
}
