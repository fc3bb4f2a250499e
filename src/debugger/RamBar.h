// The bar of the chip's data memory.
#pragma once

#include "app/BarIds.h"
#include "app/StringIds.h"
#include "debugger/DebugBar.h"

class CRamBar : public CDebugBar {
public:
    explicit CRamBar(QWidget *parent) : CDebugBar(kBarRam, IDS_BAR_RAM, parent) {}
};
