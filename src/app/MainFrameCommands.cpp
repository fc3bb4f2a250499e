// The commands of the frame that are about documents' windows, tabs and the configuration.
#include <QMdiArea>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/MDIChildWnd.h"
#include "framework/WindowsDlg.h"

namespace {

constexpr const char *kTabs = "MDITabs";

bool ReadSwitch(const char *key, bool fallback) {
    const int value = GetUserInt(kTabs, key, fallback);
    return value == 0 || value == 1 ? value == 1 : fallback;
}

}  // namespace

void CMainFrame::MapCommands() {
    OnCommand(
        ID_CONFIG_SELECT, [] { CIDEApp::Get().workspaces.SelectConfiguration(); },
        [](CCmdUI &ui) { ui.Enable(CIDEApp::Get().workspace != nullptr); });
    OnCommand(ID_APP_EXIT, [this] { close(); });
    MapTabCommands();
    MapWindowCommands();
    MapMacroCommands();
}

void CMainFrame::MapTabCommands() {
    const auto toggle = [this] {
        tabsOn_ = !tabsOn_;
        ApplyTabSettings();
    };
    const auto text = [this](CCmdUI &ui) { ui.SetText(LoadText(tabsOn_ ? IDS_TABS_OFF : IDS_TABS_ON)); };
    OnCommand(ID_TABS_TOGGLE, toggle, text);
    OnCommand(ID_TABS_TOGGLE_TWIN, toggle, text);

    const auto place = [this](int command, bool top) {
        OnCommand(
            command,
            [this, top] {
                tabsTop_ = top;
                ApplyTabSettings();
            },
            [this, top](CCmdUI &ui) { ui.SetCheck(tabsTop_ == top); });
    };
    place(ID_TABS_TOP, true);
    place(ID_TABS_BOTTOM, false);

    const auto enable = [this](CCmdUI &ui) { ui.Enable(MDIGetActive() != nullptr); };
    const auto child = [this] { return tabMenuChild_ ? tabMenuChild_ : MDIGetActive(); };
    OnCommand(ID_TAB_ACTIVATE, [child] { child()->ActivateFrame(); }, enable);
    OnCommand(ID_TAB_CLOSE, [child] { child()->close(); }, enable);
}

void CMainFrame::MapWindowCommands() {
    const auto withChild = [this](int command, CCmdTarget::Run run) {
        OnCommand(command, std::move(run), [this](CCmdUI &ui) { ui.Enable(MDIGetActive() != nullptr); });
    };
    withChild(ID_FILE_CLOSE, [this] { MDIGetActive()->close(); });
    withChild(ID_WINDOW_CASCADE, [this] { Cascade(); });
    withChild(ID_WINDOW_TILE_HORZ, [this] { Tile(Qt::Horizontal); });
    withChild(ID_WINDOW_TILE_VERT, [this] { Tile(Qt::Vertical); });
    withChild(ID_WINDOW_NEXT, [this] { ActivateNeighbour(1); });
    withChild(ID_WINDOW_PREV, [this] { ActivateNeighbour(-1); });
    withChild(ID_WINDOW_CLOSE_ALL, [] {
        if (CIDEApp::Get().SaveAllModified()) CIDEApp::Get().CloseAllDocuments();
    });
    withChild(ID_WINDOW_LIST_ALL, [this] { ShowWindowsDialog(); });
    OnCommandRange(
        ID_WINDOW_LIST, ID_WINDOW_LIST + kWindowListEntries - 1,
        [this](int id) { Children()[static_cast<size_t>(id - ID_WINDOW_LIST)]->ActivateFrame(); },
        [this](CCmdUI &ui) {
            const std::vector<CMDIChildWnd *> children = Children();
            const auto index = static_cast<size_t>(ui.id - ID_WINDOW_LIST);
            ui.Enable(index < children.size());
            ui.SetCheck(index < children.size() && children[index] == MDIGetActive());
        });
}

void CMainFrame::ReadTabSettings() {
    tabsOn_ = ReadSwitch("State", true);
    tabsTop_ = ReadSwitch("Top", true);
    if (tabsTop_ == ReadSwitch("Bottom", false)) tabsTop_ = true;  // at exactly one edge
}

void CMainFrame::WriteTabSettings() {
    WriteUserInt(kTabs, "State", tabsOn_);
    WriteUserInt(kTabs, "Top", tabsTop_);
    WriteUserInt(kTabs, "Bottom", !tabsTop_);
}

void CMainFrame::ApplyTabSettings() { SetTabs(tabsOn_, tabsTop_); }

void CMainFrame::OnTabMenu(CMDIChildWnd *child, const QPoint &at) {
    tabMenuChild_ = child;
    TrackPopupMenu(IDR_TAB_MENU, at);
    tabMenuChild_ = nullptr;
}

void CMainFrame::ActivateNeighbour(int step) {
    const std::vector<CMDIChildWnd *> children = Children();
    const auto count = static_cast<ptrdiff_t>(children.size());
    const auto active = std::ranges::find(children, MDIGetActive()) - children.begin();
    if (active < count) children[static_cast<size_t>((active + step + count) % count)]->ActivateFrame();
}

void CMainFrame::ShowWindowsDialog() {
    CWindowsDlg dialog(this, {LoadText(IDS_DIALOG_WINDOWS), LoadText(IDS_LABEL_WINDOWS), LoadText(IDS_WINDOWS_ACTIVATE),
                              LoadText(IDS_WINDOWS_SAVE), LoadText(IDS_WINDOWS_CLOSE), LoadText(IDS_WINDOWS_NAME),
                              LoadText(IDS_WINDOWS_FOLDER)});
    dialog.exec();
}
