#include "debugger/MemoryBar.h"

#include <QScrollBar>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "debugger/AddressText.h"
#include "debugger/GridCellChar.h"
#include "debugger/GridCellHex.h"
#include "debugger/ValueFormat.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "widgets/GridCtrl.h"

namespace {

std::string NameOf(int address) {
    return "$" + std::to_string(address);
}

CWatchpointManager &Watchpoints() {
    return CIDEApp::Get().watchpoints;
}

}  // namespace

CMemoryBar::CMemoryBar(int id, int title, QWidget *parent) : CDebugBar(id, title, parent), grid_(new CGridCtrl(this)) {
    grid_->SetMarkIcon(LoadIcon("watchpoint"));
    grid_->onMenu = [this](GridPlace place, const QPoint &at) { ShowMenu(place, at); };
    SetContent(grid_);
    OnCommand(
        ID_MEMORY_WATCHPOINT, [this] { Watchpoints().Toggle(NameOf(contextAddress_)); },
        [this](CCmdUI &ui) {
            const bool watched = Watchpoints().Find(NameOf(contextAddress_)) != -1;
            ui.SetText(LoadText(watched ? IDS_MENU_CLEAR_WATCHPOINT : IDS_MENU_SET_WATCHPOINT,
                                {AddressText(contextAddress_)}));
            ui.Enable(SupportsMarks() && AddressCount() > 0);
        });
    OnCommand(
        ID_MEMORY_WATCHPOINTS_CLEAR, [] { Watchpoints().RemoveAll(); },
        [](CCmdUI &ui) { ui.Enable(!Watchpoints().List().empty()); });
}

// --- The grid ---

CGridCellByte &CMemoryBar::ByteAt(GridPlace place) const {
    return static_cast<CGridCellByte &>(grid_->Cell(place));
}

int CMemoryBar::AddressCount() const {
    return grid_->RowCount() * kBytesInRow;
}

GridPlace CMemoryBar::NextCell(const CGridCtrl &grid, GridPlace place) {
    const int first = place.column < kFirstChar ? kFirstHex : kFirstChar;
    GridPlace next{place.row, place.column + 1};
    if (next.column == first + kBytesInRow) next = {place.row + 1, first};
    return grid.Contains(next) ? next : place;
}

void CMemoryBar::Empty() {
    if (grid_->RowCount() > 0) {
        lastPlace_ = grid_->Current();
        lastTop_ = grid_->verticalScrollBar()->value();
    }
    shadow_.clear();
    pointerAddress_ = kNoAddress;
    grid_->SetSize(0, 0);
    ShowContent();
}

void CMemoryBar::Clear() {
    Empty();
    CDebugBar::Clear();
}

void CMemoryBar::Rebuild(int size) {
    shadow_.assign(static_cast<size_t>(size), 0);
    if (size == 0) {
        grid_->SetSize(0, 0);
        return;
    }
    std::vector<uint8_t> map(static_cast<size_t>(size), 0);
    if (!ValidateMap(map)) return;
    grid_->SetSize(size / kBytesInRow, kColumns);
    for (int row = 0; row < grid_->RowCount(); ++row) FillRow(row, map);
    grid_->AutoSize();
    Tighten();
    grid_->SetCurrent(lastPlace_);
    grid_->verticalScrollBar()->setValue(lastTop_);
}

void CMemoryBar::FillRow(int row, const std::vector<uint8_t> &map) {
    const int first = row * kBytesInRow;
    grid_->SetCell({row, 0}, std::make_unique<CGridCell>(AddressText(first), true));
    for (const int gap : {kFirstHex, kFirstChar})
        grid_->SetCell({row, gap - 1}, std::make_unique<CGridCell>("  ", true));
    for (int address = first; address < first + kBytesInRow; ++address) {
        grid_->SetCell(HexPlace(address), std::make_unique<CGridCellHex>(*this, address));
        grid_->SetCell(CharPlace(address), std::make_unique<CGridCellChar>(*this, address));
        if (!map[static_cast<size_t>(address)]) Show(address, 0, ByteState::absent);
    }
}

void CMemoryBar::Tighten() {
    const int hex = grid_->ColumnWidth(kFirstHex) / 2, character = grid_->ColumnWidth(kFirstChar) / 2;
    for (int column = 0; column < kColumns; ++column)
        grid_->SetColumnWidth(column, grid_->ColumnWidth(column) - (column < kFirstChar ? hex : character));
}

// True when the row has to be redrawn.
bool CMemoryBar::Show(int address, uint8_t value, ByteState state) {
    const bool hex = HexAt(address).Show(value, state);
    return CharAt(address).Show(value, state) || hex;
}

void CMemoryBar::RefreshCells(bool force) {
    const bool sameStop = ReadsStopAgain();
    for (int row = 0; row < grid_->RowCount(); ++row) {
        bool redraw = false;
        for (int address = row * kBytesInRow; address < (row + 1) * kBytesInRow; ++address) {
            uint8_t &shadow = shadow_[static_cast<size_t>(address)];
            int value = 0;
            const bool good = ReadCell(base_ + address, value);
            const uint8_t byte = good ? static_cast<uint8_t>(value) : shadow;
            const ByteState was = HexAt(address).State();
            const bool stays = sameStop && (was == ByteState::changed || was == ByteState::written);
            const ByteState state = !good                     ? ByteState::unreadable
                                    : force || byte != shadow ? ByteState::changed
                                    : stays                   ? was
                                                              : ByteState::same;
            shadow = byte;
            redraw |= Show(address, byte, state);
        }
        if (redraw) grid_->RedrawRow(row);
    }
}

void CMemoryBar::WriteByte(int address, uint8_t value) {
    if (address >= AddressCount() || !CIDEApp::Get().session.IsAlive()) return;
    uint8_t &shadow = shadow_[static_cast<size_t>(address)];
    if (value == shadow) {
        // Behind a refusal the cell has had what isn't there.
        if (HexAt(address).State() == ByteState::notWritten && Show(address, value, ByteState::same))
            grid_->RedrawRow(address / kBytesInRow);
        return;
    }
    const bool good = WriteCell(base_ + address, value);
    if (good) shadow = value;
    Show(address, value, good ? ByteState::written : ByteState::notWritten);
    grid_->RedrawRow(address / kBytesInRow);
    if (good) OnWritten();
}

std::string CMemoryBar::TipFor(const CGridCellByte &cell) const {
    const std::string reg = SupportsMarks() ? WatchedRegister(NameOf(cell.Address())) : std::string();
    std::string tip = AddressText(cell.Address()) + (reg.empty() ? "" : "  " + reg) + "\n" +
                      FormatValue(cell.Value(), kHexadecimal) + "  " + FormatValue(cell.Value(), kDecimal) + "  " +
                      FormatValue(cell.Value(), kBinary);
    if (const int words = WordsFor(cell.State())) tip += "\n" + LoadText(words);
    if (cell.IsPointed()) tip += "\n" + LoadText(IDS_MEMORY_POINTER);
    if (cell.IsMarked()) tip += "\n" + LoadText(IDS_MEMORY_WATCHED);
    return tip;
}

// --- Marks ---

void CMemoryBar::SetPointer(int address) {
    if (address == pointerAddress_) return;
    for (const int each : {pointerAddress_, address}) {
        if (each >= AddressCount()) continue;
        HexAt(each).SetPointed(each == address);
        CharAt(each).SetPointed(each == address);
        grid_->RedrawRow(each / kBytesInRow);
    }
    pointerAddress_ = address;
}

void CMemoryBar::MarkAddress(int address, bool on) {
    HexAt(address).SetMarked(on);
    CharAt(address).SetMarked(on);
    grid_->RedrawRow(address / kBytesInRow);
}

void CMemoryBar::MarkWatchpoint(const std::string &name, bool on) {
    const int address = SupportsMarks() ? WatchedAddress(name) : -1;
    if (address >= 0 && address < AddressCount()) MarkAddress(address, on);
}

void CMemoryBar::ClearWatchpointMarks() {
    for (int address = 0; address < AddressCount(); ++address)
        if (HexAt(address).IsMarked()) MarkAddress(address, false);
}

void CMemoryBar::ShowMenu(GridPlace place, const QPoint &at) {
    if (!SupportsMarks() || grid_->Cell(place).IsFixed()) return;
    contextAddress_ = ByteAt(place).Address();
    CIDEApp::Get().GetMainFrame()->TrackPopupMenu(IDR_MEMORY_MENU, at, this);
}
