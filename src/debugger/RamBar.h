// The bar of the chip's data memory.
#pragma once

#include "debugger/MemoryBar.h"

class CRamBar : public CMemoryBar {
public:
    explicit CRamBar(QWidget *parent);

    void BeginRun() override;
    void Refresh() override { RefreshRam(false); }

protected:
    bool ValidateMap(std::vector<uint8_t> &map) override;
    bool ReadCell(int address, int &value) override;
    bool WriteCell(int address, uint8_t value) override;
    bool SupportsMarks() const override { return true; }
    void OnWritten() override;

private:
    void RefreshRam(bool force);
    void RefreshPointer();
};
