#include "debugger/RegisterBar.h"

#include <QMenu>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "app/BarIds.h"
#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "debugger/RegisterItem.h"
#include "debugger/ValueTree.h"
#include "debugger/WatchList.h"
#include "debugger/WatchpointManager.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "project/ProjectSettings.h"

namespace {

constexpr const char *kSection = "Register";
constexpr int kRegisterTextSize = 4095;
constexpr int kBitTextSize = 256;

CDbgInterface &Debugger() {
    return CIDEApp::Get().debugger;
}

bool WriteKeys(const std::vector<std::pair<std::string, std::string>> &values) {
    const std::string project = CIDEApp::Get().GetActiveProjectPath();
    return project.empty() || values.empty() || WritePrivateProfileKeys(kSection, values, project.c_str());
}

}  // namespace

// The tree that is being built: the engine's reader names rows by their number, from 1.
struct CRegisterBar::Loading {
    CRegisterBar &bar;
    std::vector<CPropTreeItem *> rows;
    std::vector<CPropTreeItem *> open;  // those that are shown with what is below them
};

CRegisterBar::CRegisterBar(QWidget *parent)
    : CDebugBar(kBarRegisters, IDS_BAR_REGISTERS, parent), tree_(new CValueTree("RegisterNameWidth", this)) {
    tree_->SetMark(LoadIcon("watchpoint"));
    SetContent(tree_);
    MapCommands();
    tree_->onMenu = [this](CPropTreeItem *row, const QPoint &at) { ShowMenu(row, at); };
}

CRegisterBar::~CRegisterBar() {
    StoreExpanded();
}

// --- A run ---

void CRegisterBar::LoadRegisters() {
    StoreExpanded();
    Loading loading{*this, {}, {}};
    tree_->Fill([&] {
        registers_.clear();
        tree_->DeleteAllItems();
        BuildTree(loading);
    });
    for (CPropTreeItem *row : loading.open) tree_->Expand(row, true);
    ShowContent();
}

void CRegisterBar::BuildTree(Loading &loading) {
    std::array<char, kRegisterTextSize> text{};
    if (Debugger().Call(&EngineCalls::DbgEvaluate, "_registers", text.data(), kRegisterTextSize, 0, nullptr) !=
        kDbgOk) {
        AddMessageRow(IDS_REGISTERS_FAILED);
        return;
    }
    if (!Debugger().Read(&EngineReaders::dbgSymbolValue, text.data(), 0, &CRegisterBar::OpenRow,
                         &CRegisterBar::CloseRow, static_cast<void *>(&loading))) {
        AddMessageRow(IDS_REGISTERS_UNREADABLE);
        return;
    }
    for (CPropTreeItem *row : loading.rows)
        if (!row->Parent() && row->Children().empty()) {
            std::erase(registers_, row);
            std::erase(loading.open, row);
            tree_->DeleteItem(row);
        }
}

void CRegisterBar::AddMessageRow(int text) {
    CPropTreeItem *const row = tree_->InsertItem(std::make_unique<CPropTreeItem>(LoadText(text)));
    row->SetValue(LoadText(IDS_WATCH_ERROR));
    row->SetLook(PropLook::error);
}

int CRegisterBar::OpenRow(int parent, const char *name, const char *value, void *user) {
    auto &loading = *static_cast<Loading *>(user);
    CRegisterBar &bar = loading.bar;
    const auto index = static_cast<size_t>(parent);
    CPropTreeItem *const above = parent > 0 && index <= loading.rows.size() ? loading.rows[index - 1] : nullptr;
    const std::string text = value ? value : "";
    const bool isGroup = !above && text.empty();
    loading.rows.push_back(isGroup ? bar.tree_->InsertItem(std::make_unique<CPropTreeItem>(name))
                                   : bar.AddRegister(name, text, above));
    return static_cast<int>(loading.rows.size());
}

CPropTreeItem *CRegisterBar::AddRegister(const std::string &name, const std::string &value, CPropTreeItem *above) {
    const auto onWritten = [this] { CIDEApp::Get().GetMainFrame()->DebugBars().RefreshBehindEdit(*this); };
    const int format = GetProjectInt(kSection, FormatKeyOf(name), 0);
    auto item = std::make_unique<CRegisterItem>(name, format, onWritten);
    CRegisterItem &row = *item;
    tree_->InsertItem(std::move(item), above);
    registers_.push_back(&row);
    if (value.starts_with('?')) {
        row.ShowError();
        return &row;
    }
    row.SetValue(value);
    if (!value.empty()) AddBits(row, std::atoi(value.c_str()));
    return &row;
}

void CRegisterBar::AddBits(CRegisterItem &row, int value) {
    struct Adding {
        CPropTree &tree;
        CRegisterItem &row;
        uint16_t value;
    } adding{*tree_, row, static_cast<uint16_t>(value)};
    std::array<char, kBitTextSize> text{};
    if (Debugger().Call(&EngineCalls::DbgGetRegBits, row.Name().c_str(), text.data(), kBitTextSize) != kDbgOk) return;
    const auto add = [](const char *name, int bit, void *user) {
        auto &[tree, reg, value] = *static_cast<Adding *>(user);
        auto item = std::make_unique<CRegisterBitItem>(name, bit, reg);
        item->Show(value);
        reg.AddBit(*item);
        tree.InsertItem(std::move(item), &reg);
    };
    if (!Debugger().Read(&EngineReaders::dbgBitNames, text.data(), +add, static_cast<void *>(&adding)))
        CIDEApp::Get().AddOutputLine(LoadText(IDS_REGISTER_BITS_UNREADABLE, {row.Name()}));
}

// Groups are open at first; the bits of a register show where the user has wanted them.
void CRegisterBar::CloseRow(int row, void *user) {
    auto &loading = *static_cast<Loading *>(user);
    const auto index = static_cast<size_t>(row);
    if (row <= 0 || index > loading.rows.size()) return;
    CPropTreeItem *const closed = loading.rows[index - 1];
    const int fallback = closed->Parent() ? 0 : 1;
    if (GetProjectInt(kSection, RowKeyOf(closed->Label()), fallback) != 0) loading.open.push_back(closed);
}

void CRegisterBar::RefreshRegisters() {
    if (!CIDEApp::Get().session.IsAlive()) return;
    const bool sameStop = ReadsStopAgain();
    for (CRegisterItem *row : registers_) row->Refresh(sameStop);
}

void CRegisterBar::BlankValues() {
    for (CRegisterItem *row : registers_) row->Blank();
}

void CRegisterBar::EndRun() {
    tree_->CancelEdit();
    StoreFormats();
    StoreExpanded();
}

void CRegisterBar::Clear() {
    registers_.clear();
    watchedName_.clear();
    tree_->DeleteAllItems();
    ShowQuietText();
}

void CRegisterBar::StoreFormats() const {
    std::vector<std::pair<std::string, std::string>> values;
    for (const CRegisterItem *row : registers_) {
        const std::string key = FormatKeyOf(row->Name());
        if (GetProjectInt(kSection, key, 0) != row->Format()) values.emplace_back(key, std::to_string(row->Format()));
    }
    WriteKeys(values);
}

void CRegisterBar::StoreExpanded() const {
    std::vector<std::pair<std::string, std::string>> values;
    for (const auto &row : tree_->Items())
        if (!row->Children().empty())
            values.emplace_back(RowKeyOf(row->Label()), tree_->IsExpanded(row.get()) ? "1" : "0");
    for (const CRegisterItem *row : registers_) {
        const std::string key = RowKeyOf(row->Name());
        const bool open = row->Parent() && tree_->IsExpanded(row);
        if (row->Parent() && open != (GetProjectInt(kSection, key, 0) != 0)) values.emplace_back(key, open ? "1" : "0");
    }
    WriteKeys(values);
}

// --- Watchpoints ---

void CRegisterBar::MarkWatchpoint(const std::string &name, bool on) {
    const std::string watched = WatchedRegister(name);
    if (watched.empty()) return;
    for (CRegisterItem *row : registers_)
        if (EqualNoCase(row->Name(), watched)) row->Mark(on);
}

void CRegisterBar::ClearWatchpointMarks() {
    for (CRegisterItem *row : registers_) row->Mark(false);
}

// --- Commands ---

CRegisterItem *CRegisterBar::RegisterOf(CPropTreeItem *row) const {
    if (auto *const bit = dynamic_cast<CRegisterBitItem *>(row)) return &bit->Register();
    return dynamic_cast<CRegisterItem *>(row);
}

CRegisterItem *CRegisterBar::ClickedRow() const {
    return dynamic_cast<CRegisterItem *>(tree_->GetCurrentItem());
}

void CRegisterBar::SetFormat(int format) {
    if (IsForAllRows()) {
        for (CRegisterItem *row : registers_) row->SetFormat(format);
    } else if (CRegisterItem *row = ClickedRow()) {
        row->SetFormat(format);
    }
}

void CRegisterBar::ShowMenu(CPropTreeItem *row, const QPoint &at) {
    CMainFrame &frame = *CIDEApp::Get().GetMainFrame();
    const CRegisterItem *const reg = RegisterOf(row);
    watchedName_ = reg ? "$" + reg->Name() : "";
    const std::unique_ptr<QMenu> menu(frame.MakeMenu(IDR_REGISTER_MENU, this));
    if (!reg) CMDIFrameWnd::RemoveCommands(menu.get(), ID_REGISTER_WATCHPOINT, ID_REGISTER_WATCHPOINT);
    menu->exec(at);
}

void CRegisterBar::MapCommands() {
    OnCommandRange(
        ID_REGISTER_FORMAT_FIRST, ID_REGISTER_FORMAT_LAST, [this](int id) { SetFormat(id - ID_REGISTER_FORMAT_FIRST); },
        [this](CCmdUI &ui) {
            ui.Enable(CIDEApp::Get().session.IsOpen() && !registers_.empty());
            const CRegisterItem *const row = ClickedRow();
            ui.SetCheck(row && row->Format() == ui.id - ID_REGISTER_FORMAT_FIRST);
        });
    OnCommand(
        ID_REGISTER_WATCHPOINT, [this] { CIDEApp::Get().watchpoints.Toggle(watchedName_); },
        [this](CCmdUI &ui) {
            ui.Enable(!watchedName_.empty());
            if (watchedName_.empty()) return;
            const bool set = CIDEApp::Get().watchpoints.Find(watchedName_) != -1;
            ui.SetText(LoadText(set ? IDS_MENU_CLEAR_WATCHPOINT : IDS_MENU_SET_WATCHPOINT, {watchedName_.substr(1)}));
        });
    OnCommand(
        ID_REGISTER_WATCHPOINTS_CLEAR, [] { CIDEApp::Get().watchpoints.RemoveAll(); },
        [](CCmdUI &ui) { ui.Enable(!CIDEApp::Get().watchpoints.List().empty()); });
}
