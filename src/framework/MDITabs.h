// The tabs of the open child frames, at the top or the bottom of the client area.
#pragma once

#include <QTabBar>

class CMDIChildWnd;
class CMDIFrameWnd;

class CMDITabs : public QTabBar {
public:
    explicit CMDITabs(CMDIFrameWnd *frame);

    void SetAtTop(bool top);
    void Refresh();  // one tab for each child frame, in the order of their making; the active one is current

private:
    CMDIChildWnd *ChildAt(int tab) const;

    CMDIFrameWnd *frame_;
};
