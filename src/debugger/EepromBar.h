// The bar of the chip's EEPROM.
#pragma once

#include "app/BarIds.h"
#include "app/StringIds.h"
#include "debugger/DebugBar.h"

class CEepromBar : public CDebugBar {
public:
    explicit CEepromBar(QWidget *parent) : CDebugBar(kBarEeprom, IDS_BAR_EEPROM, parent) {}
};
