#include "editor/ChildFrame.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QResizeEvent>

#include "editor/IDEDoc.h"
#include "framework/WinApp.h"

namespace {

bool IsAnySourceOpen() {
    for (CDocument *document : CWinApp::Get()->GetDocuments())
        if (dynamic_cast<CIDEDoc *>(document)) return true;
    return false;
}

}  // namespace

void CChildFrame::setVisible(bool visible) {
    const bool maximise = visible && !shown_ && mdiArea() && wasMaximised_ && !isMaximized();
    CMDIChildWnd::setVisible(visible);
    if (visible) shown_ = true;
    if (maximise) showMaximized();
}

void CChildFrame::resizeEvent(QResizeEvent *event) {
    CMDIChildWnd::resizeEvent(event);
    if (shown_ && isVisible() && mdiArea()) wasMaximised_ = isMaximized();
}

void CChildFrame::closeEvent(QCloseEvent *event) {
    const bool maximised = isMaximized();
    CMDIChildWnd::closeEvent(event);
    if (!GetActiveDocument() && !IsAnySourceOpen()) wasMaximised_ = maximised;
}
