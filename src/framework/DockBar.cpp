#include "framework/DockBar.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
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
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        const bool menu = qobject_cast<QMenuBar *>(now) || qobject_cast<QMenu *>(now);
        if (now && !menu) focused_ = now == this || isAncestorOf(now);
    });
}

// What the bar shows loses the focus as it goes.
CDockBar::~CDockBar() { disconnect(qApp, nullptr, this, nullptr); }

CMDIFrameWnd *CDockBar::Frame() const { return dynamic_cast<CMDIFrameWnd *>(parentWidget()); }

bool CDockBar::IsShowing() const {
    if (isHidden()) return false;
    // The bars behind the front one of a tab group are shown, but lie outside the window.
    return isFloating() || !isVisible() || (geometry().right() >= 0 && geometry().bottom() >= 0);
}

bool CDockBar::HoldsFocus() const { return focused_ && IsShowing(); }

bool CDockBar::CopyFocused(CCmdUI *ui) {
    QWidget *focus = focusWidget();
    if (!HoldsFocus() || !focus) return false;
    // A list, a grid or an edit claims the key of copying while it has something to copy.
    QKeyEvent claim(QEvent::ShortcutOverride, Qt::Key_C, Qt::ControlModifier);
    claim.ignore();
    QApplication::sendEvent(focus, &claim);
    if (!claim.isAccepted()) return false;
    if (ui) {
        ui->Enable(true);
        return true;
    }
    QKeyEvent press(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
    QApplication::sendEvent(focus, &press);
    return true;
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
            const bool takesFocus =
                (each->focusPolicy() & Qt::TabFocus) && each->isEnabled() && each->isVisibleTo(this);
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
