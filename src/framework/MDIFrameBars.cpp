// The bars of the main window: their layouts, their menu, the state of their buttons.
#include <QCryptographicHash>
#include <QDataStream>
#include <QDockWidget>
#include <QIODevice>
#include <QMenu>
#include <QScreen>
#include <QStatusBar>
#include <algorithm>

#include "framework/MDIFrameWnd.h"
#include "framework/ToolBar.h"
#include "platform/UserStore.h"

namespace {

constexpr const char *kBarStateKey = "State";  // key of a layout in its section
constexpr quint32 kBarStateVersion = 2;        // of the set of bars and of the form below
constexpr QSize kGrip(48, 16);                 // what must be on a screen of a window's title to move it

QByteArray Fingerprint(const QByteArray &state) { return QCryptographicHash::hash(state, QCryptographicHash::Sha1); }

}  // namespace

bool CMDIFrameWnd::CanBeGrabbed(const QWidget &window) {
    const QRect frame = window.frameGeometry();
    const QRect title(frame.topLeft(), QSize(frame.width(), kGrip.height()));
    return std::ranges::any_of(window.screen()->virtualSiblings(), [&title](const QScreen *screen) {
        const QRect seen = screen->availableGeometry() & title;
        return seen.width() >= std::min(kGrip.width(), title.width()) && seen.height() >= kGrip.height();
    });
}

// A saved layout is the version, whether the status bar shows, what Qt knows of bars, and a fingerprint of all that: Qt
// takes some damaged layouts half way.
void CMDIFrameWnd::SaveBarState(const std::string &name) {
    const QStatusBar *status = findChild<QStatusBar *>(QString(), Qt::FindDirectChildrenOnly);
    const QByteArray bars = saveState(kBarStateVersion);
    QByteArray state;
    QDataStream stream(&state, QIODevice::WriteOnly);
    stream << kBarStateVersion << (status && !status->isHidden()) << bars << Fingerprint(bars);
    UserStore().WriteBinary(name, kBarStateKey, {state.begin(), state.end()});
}

// What Qt knows of the bars; empty when the state can't be used.
QByteArray CMDIFrameWnd::ReadBarState(const std::string &name, bool &statusBar) {
    const auto stored = UserStore().ReadBinary(name, kBarStateKey);
    if (!stored) return {};
    QDataStream stream(
        QByteArray(reinterpret_cast<const char *>(stored->data()), static_cast<qsizetype>(stored->size())));
    quint32 version = 0;
    stream >> version;
    if (version != kBarStateVersion) return {};
    QByteArray bars, fingerprint;
    stream >> statusBar >> bars >> fingerprint;
    return stream.status() == QDataStream::Ok && fingerprint == Fingerprint(bars) ? bars : QByteArray();
}

bool CMDIFrameWnd::HasBarState(const std::string &name) {
    bool statusBar = true;
    return !ReadBarState(name, statusBar).isEmpty();
}

bool CMDIFrameWnd::LoadBarState(const std::string &name) {
    bool statusBar = true;
    const QByteArray bars = ReadBarState(name, statusBar);
    if (bars.isEmpty() || !restoreState(bars, kBarStateVersion)) return false;
    if (auto *status = findChild<QStatusBar *>(QString(), Qt::FindDirectChildrenOnly)) status->setVisible(statusBar);
    BringBarsOnScreen();
    return true;
}

// A bar that floated on a screen which is gone floats in the middle of the main window.
void CMDIFrameWnd::BringBarsOnScreen() {
    for (QWidget *bar : findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        const bool isBar = qobject_cast<QDockWidget *>(bar) || qobject_cast<QToolBar *>(bar);
        if (!isBar || !bar->isWindow() || CanBeGrabbed(*bar)) continue;
        bar->move(frameGeometry().center() - bar->rect().center());
    }
}

QMenu *CMDIFrameWnd::createPopupMenu() { return BarMenu() ? MakeMenu(BarMenu()) : nullptr; }

void CMDIFrameWnd::UpdateCommandUI() {
    updatedByIdle_.start();
    for (CXTToolBar *bar : findChildren<CXTToolBar *>(Qt::FindDirectChildrenOnly))
        if (bar->isVisible()) bar->UpdateCommandUI();
}
