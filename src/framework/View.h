// A view: the window through which one document is seen and edited.
#pragma once

#include <QWidget>

#include "framework/Wnd.h"

class CDocument;
class CMDIChildWnd;
struct CPrintDC;
struct CPrintInfo;

class CView : public QWidget, public CWnd {
public:
    explicit CView(QWidget *parent = nullptr);
    ~CView() override;

    QWidget *Widget() override { return this; }
    CDocument *GetDocument() const { return document_; }
    CMDIChildWnd *GetParentFrame() const;

    virtual void OnInitialUpdate();                          // once, when frame, view and document stand
    virtual void OnUpdate(CView *sender, intptr_t hint) {}   // the document changed, or asks for a refresh
    virtual void OnActivateView(bool active) {}

    // Printing, in this order; see framework/Printing.h. OnPrint comes once for each page.
    virtual bool OnPreparePrinting(CPrintInfo &info);  // false: the user changed his mind
    virtual void OnBeginPrinting(CPrintDC &dc, CPrintInfo &info) {}
    virtual void OnPrint(CPrintDC &dc, CPrintInfo &info) {}
    virtual void OnEndPrinting(CPrintDC &dc, CPrintInfo &info) {}

    // The view's own map, then its document's.
    bool OnCmdMsg(int id, CCmdUI *ui) override;

protected:
    bool DoPreparePrinting(CPrintInfo &info);  // asks for the printer where there is a question at all

private:
    friend class CDocument;
    CDocument *document_ = nullptr;
};
