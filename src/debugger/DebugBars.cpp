#include "debugger/DebugBars.h"

#include <algorithm>
#include <initializer_list>

#include "app/IDEApp.h"
#include "debugger/DebugBar.h"

namespace {

void Refresh(std::initializer_list<CDebugBar *> bars) {
    for (CDebugBar *bar : bars)
        if (bar->IsShowing()) bar->Refresh();
}

}  // namespace

void DebugBars::BeginRun() {
    onView_ = false;
    for (CDebugBar *bar : {registers, ram, eeprom, watch, stack}) bar->BeginRun();
}

void DebugBars::BlankValues() {
    for (CDebugBar *bar : All()) bar->BlankValues();
}

void DebugBars::RefreshShown() {
    onView_ = true;
    Refresh({registers, stack, ram, eeprom, watch, profile});
}

void DebugBars::RefreshShownValues() {
    onView_ = true;
    Refresh({registers, stack, ram, eeprom, watch});
}

void DebugBars::RefreshBehindEdit(const CDebugBar &edited) {
    if (!CIDEApp::Get().session.IsAlive()) return;
    for (CDebugBar *bar : {registers, ram, watch})
        if (bar != &edited && bar->IsShowing()) bar->Refresh();
}

void DebugBars::EndRun() {
    onView_ = false;
    for (CDebugBar *bar : All()) bar->EndRun();
}

void DebugBars::Clear() {
    for (CDebugBar *bar : All()) bar->Clear();
}

bool DebugBars::OnCmdMsg(int id, CCmdUI *ui) const {
    return std::ranges::any_of(All(), [=](CDebugBar *bar) { return bar && bar->OnCmdMsg(id, ui); });
}

void DebugBars::MarkWatchpoint(const std::string &name, bool on) {
    for (CDebugBar *bar : All()) bar->MarkWatchpoint(name, on);
}

void DebugBars::ClearWatchpointMarks() {
    for (CDebugBar *bar : All()) bar->ClearWatchpointMarks();
}
