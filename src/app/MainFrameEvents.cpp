// What reaches the frame from other programs: activation and dropped files.
#include <QDropEvent>
#include <QMdiArea>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "framework/Document.h"
#include "framework/Text.h"
#include "framework/View.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

// What other programs do to open sources while this one is inactive is not reported. The active view hears that it is
// not any more, so that it takes away what it shows for the moment; the keyboard finds back to where it was by itself.
void CMainFrame::OnApplicationActivated(bool active) {
    CIDEApp &app = CIDEApp::Get();
    if (destroyed_ || app.GetTemplates().empty()) return;
    for (const auto &document : app.GetTemplates().front()->GetDocuments()) {
        if (active)
            app.fileTracker.ArmFile(document->GetPathName());
        else
            app.fileTracker.DisarmFile(document->GetPathName());
    }
    if (active)
        SetActiveView(GetActiveView());
    else if (!closing_)
        SetActiveView(nullptr);
}

bool CMainFrame::AcceptsDrop(const QDropEvent &event) const {
    return !CIDEApp::Get().session.IsOpen() &&
           std::ranges::any_of(event.mimeData()->urls(), [](const QUrl &url) { return url.isLocalFile(); });
}

// A document's window would take dropped files as text.
bool CMainFrame::eventFilter(QObject *object, QEvent *event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
    const auto *widget = qobject_cast<QWidget *>(object);
    auto *drop = static_cast<QDropEvent *>(event);
    if (!widget || !Client()->isAncestorOf(widget) || !drop->mimeData()->hasUrls()) return false;
    if (!AcceptsDrop(*drop)) {
        drop->ignore();
        return true;
    }
    drop->acceptProposedAction();
    if (type == QEvent::Drop) OpenDropped(*drop->mimeData());
    return true;
}

void CMainFrame::dragEnterEvent(QDragEnterEvent *event) {
    if (AcceptsDrop(*event)) event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent *event) {
    if (!AcceptsDrop(*event)) return;
    event->acceptProposedAction();
    OpenDropped(*event->mimeData());
}

// The files open after the drop, so that a question doesn't hold up the program they come from.
void CMainFrame::OpenDropped(const QMimeData &data) {
    std::vector<std::string> files;
    for (const QUrl &url : data.urls())
        if (url.isLocalFile()) files.push_back(FromNativePath(FromQString(url.toLocalFile())));
    const auto open = [files = std::move(files)] {
        CIDEApp &app = CIDEApp::Get();
        for (const std::string &file : files) {
            const std::string extension = CPath(file).GetExtension();
            if (EqualNoCase(extension, "__c") || EqualNoCase(extension, "__w"))
                app.workspaces.SwitchWorkspace(file);
            else
                app.OpenDocumentFile(file);
        }
    };
    QMetaObject::invokeMethod(this, open, Qt::QueuedConnection);
}
