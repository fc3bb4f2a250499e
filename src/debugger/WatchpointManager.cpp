#include "debugger/WatchpointManager.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "debugger/AddressText.h"
#include "debugger/DebugBars.h"
#include "debugger/MarkerSection.h"
#include "framework/Language.h"
#include "platform/PathCalls.h"

namespace {

constexpr const char *kSection = "Watchpoint";
constexpr const char *kNameKey = "Expr";
constexpr unsigned kLongestName = 2046;  // bytes read from a project
constexpr size_t kRegisterNameSize = 256;

CDbgInterface &Debugger() {
    return CIDEApp::Get().debugger;
}
DebugBars &Bars() {
    return CIDEApp::Get().GetMainFrame()->DebugBars();
}
bool IsDebugging() {
    return CIDEApp::Get().session.IsOpen();
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool HasAddressForm(const std::string &name) {
    return name.size() > 1 && name[0] == '$' && IsDigit(name[1]);
}

// The decimal number behind "$"; -1 when it is no address.
int AddressIn(const std::string &name) {
    int address = -1;
    std::from_chars(name.data() + 1, name.data() + name.size(), address);
    return address;
}

std::string RegisterAt(int address) {
    std::array<char, kRegisterNameSize> name{};
    const bool known = address >= 0 && Debugger().Call(&EngineCalls::DbgRegAddrToName, address, name.data()) == kDbgOk;
    return known ? name.data() : "";
}

// The other name of the same register; empty when there is none.
std::string OtherName(const std::string &name) {
    if (name.empty() || name[0] != '$') return "";
    if (HasAddressForm(name)) {
        const std::string reg = RegisterAt(AddressIn(name));
        return reg.empty() ? "" : "$" + reg;
    }
    uint16_t address = 0;
    return Debugger().RegNameToAddr(name.substr(1), address) ? "$" + std::to_string(address) : "";
}

auto IsNamed(const std::string &name) {
    return [&name](const CWatchpoint &each) { return EqualNoCase(each.name, name); };
}

// `why`: the engine's words; may be empty.
void TellRefusal(int text, const std::string &name, const std::string &why) {
    const std::string line = LoadText(text, {HasAddressForm(name) ? AddressText(AddressIn(name)) : name});
    CIDEApp::Get().AddOutputLine(why.empty() ? line : line + " " + why);
}

}  // namespace

std::vector<CWatchpoint>::iterator CWatchpointManager::At(const std::string &name) {
    return std::ranges::find_if(list_, IsNamed(name));
}

bool CWatchpointManager::Add(const std::string &name, bool needEngine) {
    if (At(name) != list_.end()) return true;
    int id = -1;
    const bool asks = needEngine || IsDebugging();
    if (asks && Debugger().Call(&EngineCalls::DbgSetWatchpoint, std::string(name).c_str(), &id) != kDbgOk) return false;
    list_.push_back({name, id});
    return true;
}

int CWatchpointManager::Find(const std::string &name, bool exactOnly) const {
    const auto found = std::ranges::find_if(list_, IsNamed(name));
    if (found != list_.end()) return found->id;
    const std::string other = exactOnly ? "" : OtherName(name);
    return other.empty() ? -1 : Find(other, true);
}

bool CWatchpointManager::Remove(const std::string &name, bool exactOnly) {
    const auto found = At(name);
    if (found == list_.end()) {
        const std::string other = exactOnly ? "" : OtherName(name);
        return !other.empty() && Remove(other, true);
    }
    if (IsDebugging() && !IsShared(*found) && Debugger().Call(&EngineCalls::DbgDeleteWatchpoint, found->id) != kDbgOk)
        return false;
    list_.erase(found);
    return true;
}

// A hand-edited project may name one byte in several ways: the engine has one watchpoint for all of them.
bool CWatchpointManager::IsShared(const CWatchpoint &watchpoint) const {
    return std::ranges::count(list_, watchpoint.id, &CWatchpoint::id) > 1;
}

void CWatchpointManager::DeleteAll() {
    if (IsDebugging())
        for (const CWatchpoint &each : list_) Debugger().Call(&EngineCalls::DbgDeleteWatchpoint, each.id);
    list_.clear();
}

// --- Commands ---

void CWatchpointManager::Toggle(const std::string &name) {
    const bool set = Find(name) == -1;
    if (set ? !Add(name, false) : !Remove(name)) {
        TellRefusal(set ? IDS_WATCHPOINT_NOT_SET : IDS_WATCHPOINT_NOT_REMOVED, name, set ? Debugger().ErrorText() : "");
        return;
    }
    Mark(name, set || Find(name) != -1);
}

void CWatchpointManager::RemoveAll() {
    DeleteAll();
    Bars().ClearWatchpointMarks();
}

void CWatchpointManager::Mark(const std::string &name, bool on) const {
    Bars().MarkWatchpoint(name, on);
}

// --- The project ---

void CWatchpointManager::Load() {
    DeleteAll();
    const std::string file = CIDEApp::Get().GetActiveProjectPath();
    if (file.empty()) return;
    const CMarkerSection section(kSection, file);
    const int count = section.ReadCount();
    for (int i = 0; i < count; ++i) {
        const std::string name = section.ReadText(kNameKey, i, kLongestName);
        if (!name.empty() && Add(name, true)) Mark(name, true);
    }
}

void CWatchpointManager::Store() {
    if (const std::string file = CIDEApp::Get().GetActiveProjectPath(); !file.empty()) {
        CMarkerSection section(kSection, file);
        section.SetCount(static_cast<int>(list_.size()));
        for (size_t i = 0; i < list_.size(); ++i) section.SetText(kNameKey, static_cast<int>(i), list_[i].name);
        section.Write();
    }
    RemoveAll();
}

std::string WatchedRegister(const std::string &name) {
    if (HasAddressForm(name)) return RegisterAt(AddressIn(name));
    return name.empty() || name[0] != '$' ? "" : name.substr(1);
}

int WatchedAddress(const std::string &name) {
    if (HasAddressForm(name)) return AddressIn(name);
    uint16_t address = 0;
    const bool known = !name.empty() && name[0] == '$' && Debugger().RegNameToAddr(name.substr(1), address);
    return known ? address : -1;
}
