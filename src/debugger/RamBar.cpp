#include "debugger/RamBar.h"

#include <optional>

#include "app/BarIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "debugger/DebugBars.h"
#include "debugger/IndirectPointer.h"
#include "debugger/TypedValue.h"
#include "project/Workspace.h"

namespace {

constexpr int kSmallMemory = 512, kLargeMemory = 4096;  // bytes

std::string Target() {
    const CIDEApp &app = CIDEApp::Get();
    return app.workspace ? app.workspace->GetTarget() : std::string();
}

int MemorySize(const std::string &target) {
    for (const char *family : {"PIC18", "pic18", "Pic18"})
        if (target.find(family) != target.npos) return kLargeMemory;
    return kSmallMemory;
}

}  // namespace

CRamBar::CRamBar(QWidget *parent) : CMemoryBar(kBarRam, IDS_BAR_RAM, parent) {}

void CRamBar::BeginRun() {
    Empty();
    Rebuild(MemorySize(Target()));
    RefreshRam(true);
}

void CRamBar::RefreshRam(bool force) {
    RefreshCells(force);
    RefreshPointer();
}

void CRamBar::RefreshPointer() {
    const PointerParts parts = PointerPartsOf(Target());
    const std::optional<int64_t> high = ReadNumber(parts.high), low = ReadNumber(parts.low);
    if (high && low)
        SetPointer(PointerAddressOf(parts, *high, *low));
    else
        ClearPointer();
}

// Not the other bytes: what the chip makes of a value half typed must not change it under the user's hands.
void CRamBar::OnWritten() {
    RefreshPointer();
    CIDEApp::Get().GetMainFrame()->DebugBars().RefreshBehindEdit(*this);
}

bool CRamBar::ValidateMap(std::vector<uint8_t> &map) {
    return CIDEApp::Get().debugger.Call(&EngineCalls::DbgValidateRegisterMap, map.data(),
                                        static_cast<int>(map.size())) == kDbgOk;
}

bool CRamBar::ReadCell(int address, int &value) {
    return CIDEApp::Get().debugger.Call(&EngineCalls::DbgGetReg, address, &value) == kDbgOk;
}

bool CRamBar::WriteCell(int address, uint8_t value) {
    return CIDEApp::Get().debugger.Call(&EngineCalls::DbgSetReg, address, static_cast<int>(value)) == kDbgOk;
}
