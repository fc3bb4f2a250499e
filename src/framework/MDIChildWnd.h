// The frame of one view inside the main window.
#pragma once

#include <QMdiSubWindow>

#include "framework/Wnd.h"

class CDocument;
class CView;

class CMDIChildWnd : public QMdiSubWindow, public CWnd {
public:
    CMDIChildWnd();
    ~CMDIChildWnd() override;

    QWidget *Widget() override { return this; }
    CView *GetActiveView() const { return view_; }
    CDocument *GetActiveDocument() const;

    virtual void SetActiveView(CView *view);   // takes the view in as content
    virtual void ActivateFrame();              // to the top, with the focus in its view
    void UpdateFrameTitle();                   // shows the document's title
    bool OnCmdMsg(int id, CCmdUI *ui) override;  // view, then its own map

    virtual void DestroyWithoutQuestion();     // the document is going

protected:
    void closeEvent(QCloseEvent *event) override;  // asks to save, then closes the document

private:
    CView *view_ = nullptr;
    bool leaving_ = false;
};
