// The end of the frame, and the place of its window across runs.
#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

#include "app/FrameLayouts.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Settings.h"
#include "project/Workspace.h"

namespace {

constexpr const char *kSection = "Settings";
constexpr const char *kPosition = "Window Position";

}  // namespace

void CMainFrame::RestoreWindow() {
    const std::vector<uint8_t> place = GetUserBinary(kSection, kPosition);
    const QByteArray bytes(reinterpret_cast<const char *>(place.data()), static_cast<qsizetype>(place.size()));
    if (place.empty() || !restoreGeometry(bytes) || !CanBeGrabbed(*this)) {
        const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
        resize(std::min(1200, room.width() * 9 / 10), std::min(800, room.height() * 9 / 10));
        move(room.center() - rect().center());
    }
    // Once more, and for good, when the plug-ins' bars stand; by then the user has seen the window for a while.
    if (HasBarState(kResetBars)) CMDIFrameWnd::LoadBarState(kEditBars);
    show();
}

void CMainFrame::SaveWindow() {
    const QByteArray place = saveGeometry();
    WriteUserBinary(kSection, kPosition, {place.begin(), place.end()});
}

void CMainFrame::closeEvent(QCloseEvent *event) {
    if (!CloseFrame()) {
        event->ignore();
        return;
    }
    event->accept();
    Destroy();
}

void CMainFrame::OnRunEnded() {
    UpdateCommandUI();
    if (std::exchange(closesBehindRun_, false)) QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

bool CMainFrame::CloseFrame() {
    CIDEApp &app = CIDEApp::Get();
    closing_ = true;
    const std::string project = app.GetActiveProjectPath();
    closesBehindRun_ = app.session.End() && app.session.IsOpen();
    if (app.session.IsOpen()) {  // it ends, and the frame closes, when its target has stopped
        closing_ = closesBehindRun_;
        return false;
    }
    if (app.workspace) app.workspace->Save();
    if (!app.CloseWorkspace()) closing_ = false;
    if (!closing_) return false;
    macroToolBar_->hide();
    LeaveDebugLayout();
    SaveBarState(kEditBars);
    SaveWindow();
    if (!project.empty()) {
        app.bookmarks.Save(project);
        app.breakpoints.Save(project);
    }
    app.macro.Store();
    app.debugger.DLLCleanup();
    return true;
}

void CMainFrame::Destroy() {
    if (!created_ || std::exchange(destroyed_, true)) return;
    for (const int timer : {kTimerStartup, kTimerTracker}) KillTimer(timer);
    discovery_.Stop();
    qGuiApp->removeEventFilter(this);
    WriteTabSettings();
}
