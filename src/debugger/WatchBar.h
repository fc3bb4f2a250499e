// The bar of watched expressions.
#pragma once

#include "app/BarIds.h"
#include "app/StringIds.h"
#include "debugger/DebugBar.h"

class CWatchBar : public CDebugBar {
public:
    explicit CWatchBar(QWidget *parent) : CDebugBar(kBarWatch, IDS_BAR_WATCH, parent) {}
};
