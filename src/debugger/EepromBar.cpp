#include "debugger/EepromBar.h"

#include <algorithm>

#include "app/BarIds.h"
#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "platform/PathCalls.h"
#include "project/Workspace.h"
#include "widgets/GridCtrl.h"

namespace {

constexpr int kLowPowerBase = 0x1BF00;  // where these chips see their EEPROM
constexpr int kLargestSize = 65536;     // bytes; no chip has as much

}  // namespace

CEepromBar::CEepromBar(QWidget *parent) : CMemoryBar(kBarEeprom, IDS_BAR_EEPROM, parent) {
    Grid().SetEmptyText(LoadText(IDS_NO_EEPROM));
}

void CEepromBar::BeginRun() {
    Empty();
    const CIDEApp &app = CIDEApp::Get();
    base_ = app.workspace && StartsWithNoCase(app.workspace->GetTarget(), "pic16lf1") ? kLowPowerBase : 0;
    int size = 0;
    if (app.debugger.Call(&EngineCalls::DbgGetEepromSize, &size) != kDbgOk) size = 0;
    Rebuild(std::clamp(size, 0, kLargestSize));
    RefreshCells(true);
}

bool CEepromBar::ValidateMap(std::vector<uint8_t> &map) {
    std::ranges::fill(map, 1);
    return true;
}

bool CEepromBar::ReadCell(int address, int &value) {
    uint8_t byte = 0;
    if (CIDEApp::Get().debugger.Call(&EngineCalls::DbgGetEepromVal, address, 1, &byte) != kDbgOk) return false;
    value = byte;
    return true;
}

bool CEepromBar::WriteCell(int address, uint8_t value) {
    return CIDEApp::Get().debugger.Call(&EngineCalls::DbgSetEepromVal, address, 1, &value) == kDbgOk;
}
