#include "framework/View.h"

#include "framework/Document.h"
#include "framework/MDIChildWnd.h"

CView::CView(QWidget *parent) : QWidget(parent) {}

CView::~CView() {
    if (document_) document_->RemoveView(this);
}

CMDIChildWnd *CView::GetParentFrame() const {
    for (QWidget *widget = parentWidget(); widget; widget = widget->parentWidget())
        if (auto *frame = dynamic_cast<CMDIChildWnd *>(widget)) return frame;
    return nullptr;
}

void CView::OnInitialUpdate() { OnUpdate(nullptr, 0); }

bool CView::OnCmdMsg(int id, CCmdUI *ui) {
    if (CWnd::OnCmdMsg(id, ui)) return true;
    return document_ && document_->OnCmdMsg(id, ui);
}
