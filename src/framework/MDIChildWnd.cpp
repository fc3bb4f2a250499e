#include "framework/MDIChildWnd.h"

#include <QCloseEvent>
#include <QMdiArea>

#include "framework/Document.h"
#include "framework/MDIFrameWnd.h"
#include "framework/Text.h"
#include "framework/View.h"

CMDIChildWnd::CMDIChildWnd() { setAttribute(Qt::WA_DeleteOnClose); }

CMDIChildWnd::~CMDIChildWnd() = default;

CDocument *CMDIChildWnd::GetActiveDocument() const { return view_ ? view_->GetDocument() : nullptr; }

void CMDIChildWnd::SetActiveView(CView *view) {
    view_ = view;
    setWidget(view);
    setFocusProxy(view);
}

void CMDIChildWnd::ActivateFrame() {
    if (mdiArea()) mdiArea()->setActiveSubWindow(this);
    if (view_) view_->setFocus();
}

void CMDIChildWnd::UpdateFrameTitle() {
    const CDocument *document = GetActiveDocument();
    if (!document) return;
    setWindowTitle(ToQString(document->GetTitle()));
    if (auto *frame = dynamic_cast<CMDIFrameWnd *>(window())) frame->RefreshTabs();
}

bool CMDIChildWnd::OnCmdMsg(int id, CCmdUI *ui) {
    return (view_ && view_->OnCmdMsg(id, ui)) || CWnd::OnCmdMsg(id, ui);
}

void CMDIChildWnd::DestroyWithoutQuestion() {
    leaving_ = true;
    auto *frame = dynamic_cast<CMDIFrameWnd *>(window());
    const bool maximised = isMaximized();
    if (mdiArea()) mdiArea()->removeSubWindow(this);
    // The window that comes to light takes the room of this one.
    CMDIChildWnd *next = frame ? frame->MDIGetActive() : nullptr;
    if (maximised && next && !next->isMaximized() && !next->isMinimized()) next->showMaximized();
    hide();
    delete std::exchange(view_, nullptr);  // while its document still stands
    deleteLater();
    if (frame) frame->RefreshTabs();
}

void CMDIChildWnd::closeEvent(QCloseEvent *event) {
    CDocument *document = GetActiveDocument();
    if (leaving_ || !document) {
        event->accept();
        return;
    }
    event->ignore();  // the document's end takes this window with it
    if (document->SaveModified()) document->OnCloseDocument();
}
