// The bar of the call stack.
#pragma once

#include "app/BarIds.h"
#include "app/StringIds.h"
#include "debugger/DebugBar.h"

class CStackBar : public CDebugBar {
public:
    explicit CStackBar(QWidget *parent) : CDebugBar(kBarStack, IDS_BAR_STACK, parent) {}
};
