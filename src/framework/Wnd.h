// What every window of the program is beside its Qt widget: a target of commands and of posted messages.
#pragma once

#include "framework/CmdTarget.h"
#include "framework/MessageTarget.h"

class QWidget;

class CWnd : public CCmdTarget, public CMessageTarget {
public:
    virtual QWidget *Widget() = 0;  // the window itself; never null
};
