// The child frame of source documents. A new one opens maximised when the last one was.
#pragma once

#include "framework/MDIChildWnd.h"

class CChildFrame : public CMDIChildWnd {
public:
    CChildFrame() = default;

    // Whether the frame that was sized or closed last was maximised; false at the start of the program.
    static bool WasMaximised() { return wasMaximised_; }

    void setVisible(bool visible) override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    static inline bool wasMaximised_ = false;
    bool shown_ = false;
};
