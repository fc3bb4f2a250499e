#include "debugger/ProfileBar.h"

#include "app/BarIds.h"
#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "debugger/ProfileListBox.h"
#include "framework/Language.h"
#include "navigation/OpenSource.h"

namespace {

void ShowFunction(const std::string &name) {
    const CDbgInterface &debugger = CIDEApp::Get().debugger;
    int address = 0, line = 0;
    std::string file;
    if (debugger.Call(&EngineCalls::DbgSymbolToAddr, name.c_str(), &address) == kDbgOk &&
        debugger.AddrToPosText(address, file, line))
        OpenSourceAtLine(file, line);
}

}  // namespace

CProfileBar::CProfileBar(QWidget *parent)
    : CDebugBar(kBarProfile, IDS_BAR_PROFILE, parent), list_(new CProfileListBox(this)) {
    list_->onActivate = ShowFunction;
    SetContent(list_);
}

void CProfileBar::BeginRun() {
    list_->Change([](CProfileRows &rows) { rows.Clear(); });
    ShowContent();
}

void CProfileBar::Clear() {
    list_->Change([](CProfileRows &rows) { rows.Clear(); });
    CDebugBar::Clear();
}

void CProfileBar::Refresh() {
    const CIDEApp &app = CIDEApp::Get();
    const bool profiling = app.session.IsProfiling();
    list_->SetEmptyText(profiling ? "" : LoadText(IDS_PROFILE_OFF));
    if (!profiling) return;
    std::vector<ProfileEntry> entries;
    const bool good = app.debugger.GetProfileList([&](const std::string &name, uint32_t count) {
        entries.push_back({name, count});
    });
    list_->Change([&](CProfileRows &rows) { good ? rows.Update(entries) : rows.ShowError(); });
}
