// The child frame of source documents. A new one opens maximised when the last one was.
#pragma once

#include "framework/MDIChildWnd.h"

class CChildFrame : public CMDIChildWnd {
public:
    void setVisible(bool visible) override;
    void DestroyWithoutQuestion() override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    bool shown_ = false;
};
