#include "editor/ChildFrame.h"

#include <QMdiArea>
#include <QResizeEvent>
#include <algorithm>

#include "app/IDEApp.h"
#include "editor/IDEDoc.h"

namespace {

bool IsSourceOpenBeside(const CDocument *document) {
    return std::ranges::any_of(CIDEApp::Get().GetDocuments(), [document](CDocument *each) {
        return each != document && dynamic_cast<CIDEDoc *>(each);
    });
}

}  // namespace

void CChildFrame::setVisible(bool visible) {
    const bool maximise = visible && !shown_ && mdiArea() && CIDEApp::Get().childMaximised && !isMaximized();
    CMDIChildWnd::setVisible(visible);
    if (visible) shown_ = true;
    if (maximise) showMaximized();
}

void CChildFrame::resizeEvent(QResizeEvent *event) {
    CMDIChildWnd::resizeEvent(event);
    if (shown_ && isVisible() && mdiArea()) CIDEApp::Get().childMaximised = isMaximized();
}

void CChildFrame::DestroyWithoutQuestion() {
    // On its way out of the area the window gets another size, which says nothing.
    const bool maximised = isMaximized(), last = !IsSourceOpenBeside(GetActiveDocument());
    CMDIChildWnd::DestroyWithoutQuestion();
    if (last) CIDEApp::Get().childMaximised = maximised;
}
