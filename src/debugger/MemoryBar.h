// A bar of the target's memory as a grid of bytes: eight to a row, in hexadecimal and as characters.
#pragma once

#include <cstdint>
#include <vector>

#include "debugger/DebugBar.h"
#include "debugger/GridCellByte.h"

class CGridCtrl;

// What has changed since the last stop stands out; bytes can be typed over. Addresses count from 0 here.
class CMemoryBar : public CDebugBar {
public:
    static constexpr int kBytesInRow = 8;
    static constexpr int kFirstHex = 2, kFirstChar = 11;  // columns; 0 is the address, 1 and 10 are gaps
    static constexpr int kColumns = kFirstChar + kBytesInRow;

    CMemoryBar(int id, int title, QWidget *parent);

    void BeginRun() override = 0;
    void Refresh() override { RefreshCells(false); }
    void Clear() override;
    void MarkWatchpoint(const std::string &name, bool on) override;
    void ClearWatchpointMarks() override;

    // Reads all bytes and shows them. `force`: each counts as changed.
    void RefreshCells(bool force);

    // The user has typed `value`. What is there already isn't written, and nothing without a debug run.
    void WriteByte(int address, uint8_t value);

    // The byte that the chip's indirect pointer addresses.
    void SetPointer(int address);
    void ClearPointer() { SetPointer(kNoAddress); }
    int PointerAddress() const { return pointerAddress_; }

    CGridCtrl &Grid() const { return *grid_; }
    std::string TipFor(const CGridCellByte &cell) const;
    static GridPlace HexPlace(int address) { return {address / kBytesInRow, address % kBytesInRow + kFirstHex}; }
    static GridPlace CharPlace(int address) { return {address / kBytesInRow, address % kBytesInRow + kFirstChar}; }
    static GridPlace NextCell(const CGridCtrl &grid, GridPlace place);  // of the same kind; the last one stays

protected:
    static constexpr int kNoAddress = 65535;

    // The engine's side; addresses with the base. `map` gets a non-zero byte for each address that there is.
    virtual bool ValidateMap(std::vector<uint8_t> &map) = 0;
    virtual bool ReadCell(int address, int &value) = 0;
    virtual bool WriteCell(int address, uint8_t value) = 0;
    virtual bool SupportsMarks() const = 0;
    virtual void OnWritten() {}  // the user has changed a byte

    void Empty();            // for another chip
    void Rebuild(int size);  // the grid for that many addresses; 0 leaves it empty

    int base_ = 0;  // added to each address for the engine

private:
    CGridCellByte &ByteAt(GridPlace place) const;
    CGridCellByte &HexAt(int address) const { return ByteAt(HexPlace(address)); }
    CGridCellByte &CharAt(int address) const { return ByteAt(CharPlace(address)); }
    int AddressCount() const;  // of those on show
    bool Show(int address, uint8_t value, ByteState state);
    void FillRow(int row, const std::vector<uint8_t> &map);
    void Tighten();
    void ShowMenu(GridPlace place, const QPoint &at);
    void MarkAddress(int address, bool on);

    CGridCtrl *grid_;
    std::vector<uint8_t> shadow_;  // the values last shown, one for each address
    int pointerAddress_ = kNoAddress;
    int contextAddress_ = 0;  // of the menu
    GridPlace lastPlace_;     // where the user was in the last run
    int lastTop_ = 0;
};
