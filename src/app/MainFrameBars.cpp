// The bars of the frame: their making, their first places, and the commands that show and hide them.
#include "app/BarIds.h"
#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "build/OutputBar.h"
#include "debugger/EepromBar.h"
#include "debugger/ProfileBar.h"
#include "debugger/RamBar.h"
#include "debugger/RegisterBar.h"
#include "debugger/StackBar.h"
#include "debugger/WatchBar.h"
#include "editor/CodeViewContainer.h"
#include "editor/ListBar.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "navigation/CodeWindows.h"
#include "navigation/WorkspaceBar.h"

namespace {

// Minimal widths of the nine status panes in characters; 0 shows a pane only while it has a text.
const std::vector<int> kPaneWidths = {0, 0, 14, 16, 12, 0, 0, 0, 0};

void Toggle(CDockBar &bar) {
    if (bar.IsShowing())
        bar.hide();
    else
        bar.ShowBar();
}

}  // namespace

CXTToolBar *CMainFrame::CreateToolBar(int id, int title, int resource) {
    auto *bar = new CXTToolBar(id, LoadText(title), this);
    bar->LoadToolBar(resource);
    return bar->actions().empty() ? nullptr : bar;
}

bool CMainFrame::CreateBars() {
    mainToolBar_ = CreateToolBar(kBarMain, IDS_BAR_MAIN, IDR_TOOLBAR_MAIN);
    macroToolBar_ = CreateToolBar(kBarMacro, IDS_BAR_MACRO, IDR_MACRO_RECORDING);
    buildToolBar_ = new CXTToolBar(kBarBuild, LoadText(IDS_BAR_BUILD), this);
    buildToolBar_->SetBoxProvider([this](int command) { return command == ID_CONFIG_SELECT ? configBox_ : nullptr; });
    outputBar_ = new COutputBar(this);
    workspaceBar_ = new CWorkspaceBar(LoadText(IDS_BAR_WORKSPACE), this);
    statusBar_ = new CXTStatusBar(this, kPaneWidths);
    setStatusBar(statusBar_);
    debugBars_.registers = new CRegisterBar(this);
    debugBars_.watch = new CWatchBar(this);
    debugBars_.ram = new CRamBar(this);
    debugBars_.eeprom = new CEepromBar(this);
    debugBars_.stack = new CStackBar(this);
    listBar_ = new CListBar(this);
    OfferCodeWindows(*listBar_);
    debugBars_.profile = new CProfileBar(this);
    debugToolBar_ = CreateToolBar(kBarDebug, IDS_BAR_DEBUG, IDR_TOOLBAR_DEBUG);
    editToolBar_ = CreateToolBar(kBarEdit, IDS_BAR_EDIT, IDR_TOOLBAR_EDIT);
    if (!mainToolBar_ || !macroToolBar_ || !debugToolBar_ || !editToolBar_) return false;

    configBox_ = new CXTFlatComboBox(this);
    configBox_->hide();
    connect(configBox_, &QComboBox::activated, this, [this] {
        RunCommand(ID_CONFIG_SELECT);
        FocusActiveView();
    });
    for (int slot = 0; slot < CPluginBar::kSlots; ++slot)
        pluginBars_[static_cast<size_t>(slot)] = new CPluginBar(slot, this);

    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    PlaceBars();
    return true;
}

void CMainFrame::PlaceBars() {
    for (QToolBar *bar : {mainToolBar_, buildToolBar_, editToolBar_, macroToolBar_, debugToolBar_}) {
        removeToolBarBreak(bar);
        if (bar == editToolBar_) addToolBarBreak(Qt::TopToolBarArea);
        addToolBar(Qt::TopToolBarArea, bar);
    }
    const auto dock = [this](CDockBar *bar, Qt::DockWidgetArea area, CDockBar *behind = nullptr) {
        bar->setFloating(false);
        addDockWidget(area, bar);
        if (behind) tabifyDockWidget(behind, bar);
    };
    dock(workspaceBar_, Qt::LeftDockWidgetArea);
    dock(outputBar_, Qt::BottomDockWidgetArea);
    dock(listBar_, Qt::BottomDockWidgetArea, outputBar_);
    dock(debugBars_.registers, Qt::RightDockWidgetArea);
    dock(debugBars_.ram, Qt::RightDockWidgetArea, debugBars_.registers);
    dock(debugBars_.eeprom, Qt::RightDockWidgetArea, debugBars_.ram);
    dock(debugBars_.watch, Qt::RightDockWidgetArea);
    dock(debugBars_.profile, Qt::RightDockWidgetArea, debugBars_.watch);
    dock(debugBars_.stack, Qt::BottomDockWidgetArea);
    for (CPluginBar *bar : pluginBars_)
        dock(bar, Qt::RightDockWidgetArea, bar == pluginBars_[0] ? nullptr : pluginBars_[0]);

    for (QWidget *bar : std::initializer_list<QWidget *>{mainToolBar_, buildToolBar_, editToolBar_, workspaceBar_,
                                                         outputBar_, statusBar_})
        bar->show();
    for (QWidget *bar : std::initializer_list<QWidget *>{macroToolBar_, debugToolBar_, debugBars_.registers,
                                                         debugBars_.watch, debugBars_.ram, debugBars_.eeprom,
                                                         debugBars_.stack, listBar_, debugBars_.profile})
        bar->hide();
    for (CPluginBar *bar : pluginBars_) bar->hide();
}

void CMainFrame::ShowDebugBars() {
    editToolBar_->hide();
    // Not the listing: while it shows, steps go by instructions.
    for (QWidget *bar :
         std::initializer_list<QWidget *>{debugToolBar_, debugBars_.registers, debugBars_.watch, debugBars_.stack})
        bar->show();
    for (CDockBar *bar : std::initializer_list<CDockBar *>{debugBars_.registers, debugBars_.watch}) bar->raise();
    resizeDocks({debugBars_.registers, debugBars_.stack}, {width() / 4, width() / 5}, Qt::Horizontal);
    resizeDocks({debugBars_.registers, debugBars_.watch}, {height() / 2, height() / 4}, Qt::Vertical);
}

void CMainFrame::MapBarCommands() {
    const struct {
        int command;
        CDockBar *bar;
    } docks[] = {
        {ID_VIEW_WORKSPACE_BAR, workspaceBar_},
        {ID_VIEW_OUTPUT_BAR, outputBar_},
        {ID_VIEW_REGISTER_BAR, debugBars_.registers},
        {ID_VIEW_WATCH_BAR, debugBars_.watch},
        {ID_VIEW_RAM_BAR, debugBars_.ram},
        {ID_VIEW_EEPROM_BAR, debugBars_.eeprom},
        {ID_VIEW_STACK_BAR, debugBars_.stack},
        {ID_VIEW_LISTING_BAR, listBar_},
        {ID_VIEW_PROFILE_BAR, debugBars_.profile},
    };
    for (const auto &[command, bar] : docks)
        OnCommand(
            command, [bar] { Toggle(*bar); }, [bar](CCmdUI &ui) { ui.SetCheck(bar->IsShowing()); });

    const struct {
        int command;
        QWidget *bar;
    } strips[] = {
        {ID_VIEW_TOOLBAR, mainToolBar_},         {ID_VIEW_BUILD_TOOL_BAR, buildToolBar_},
        {ID_VIEW_DEBUG_TOOL_BAR, debugToolBar_}, {ID_VIEW_EDIT_TOOL_BAR, editToolBar_},
        {ID_VIEW_STATUS_BAR, statusBar_},
    };
    for (const auto &[command, bar] : strips)
        OnCommand(
            command, [bar] { bar->setVisible(bar->isHidden()); }, [bar](CCmdUI &ui) { ui.SetCheck(!bar->isHidden()); });
    OnCommand(ID_RESET_BARS, [this] { ResetBars(); });
}

// The commands of empty slots are no commands of the frame: others have the same numbers.
bool CMainFrame::OnCmdMsg(int id, CCmdUI *ui) {
    // The listing bar's views have the command themselves.
    if (id == ID_EDIT_COPY && !listBar_->HoldsFocus())
        for (CDockBar *bar : findChildren<CDockBar *>(Qt::FindDirectChildrenOnly))
            if (bar->CopyFocused(ui)) return true;
    const int slot = id - ID_PLUGIN_BARS;
    CPluginBar *bar = slot >= 0 && slot < CPluginBar::kSlots ? pluginBars_[static_cast<size_t>(slot)] : nullptr;
    if (!bar || !bar->HasPlugin()) return CMDIFrameWnd::OnCmdMsg(id, ui);
    if (ui)
        ui->SetCheck(bar->IsShowing());
    else
        Toggle(*bar);
    return true;
}

CView *CMainFrame::GetBarView() const {
    return listBar_ && listBar_->HoldsFocus() ? listBar_->Container().GetActiveTab() : nullptr;
}

int CMainFrame::BarMenu() const { return IDR_BAR_MENU; }
