// A docking bar: a window of the main frame that the user may move, float and hide.
#pragma once

#include <QDockWidget>

#include "framework/Wnd.h"

class CMDIFrameWnd;

// Esc in a bar gives the focus back to the document.
class CDockBar : public QDockWidget, public CWnd {
public:
    // `id`: the child window's number, which names the bar in saved layouts.
    CDockBar(int id, const std::string &title, QWidget *parent);
    ~CDockBar() override;

    QWidget *Widget() override { return this; }
    int Id() const { return id_; }

    bool IsShowing() const;   // shown, and the front one of its tab group
    bool HoldsFocus() const;  // showing, with the keyboard in it: a menu that is open doesn't take it away
    // Offers the command of copying to what has the keyboard in the bar; its state goes to `ui`. False: it has nothing.
    bool CopyFocused(CCmdUI *ui);
    void ShowBar();       // to the front of its tab group, with the focus in its content
    void FocusContent();  // where the focus was last in the bar, else the first place that takes it

protected:
    void hideEvent(QHideEvent *event) override;  // a bar that goes doesn't keep the focus

private:
    CMDIFrameWnd *Frame() const;  // null in a window of another kind

    int id_;
    bool focused_ = false;
};
