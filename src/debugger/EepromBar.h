// The bar of the chip's EEPROM.
#pragma once

#include "debugger/MemoryBar.h"

class CEepromBar : public CMemoryBar {
public:
    explicit CEepromBar(QWidget *parent);

    void BeginRun() override;

protected:
    bool ValidateMap(std::vector<uint8_t> &map) override;
    bool ReadCell(int address, int &value) override;
    bool WriteCell(int address, uint8_t value) override;
    bool SupportsMarks() const override { return false; }
};
