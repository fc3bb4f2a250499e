// The bar of the chip's registers.
#pragma once

#include "app/BarIds.h"
#include "app/StringIds.h"
#include "debugger/DebugBar.h"

class CRegisterBar : public CDebugBar {
public:
    explicit CRegisterBar(QWidget *parent) : CDebugBar(kBarRegisters, IDS_BAR_REGISTERS, parent) {}
};
