// The layouts of the bars: the one of editing, the one of debugging, and the one to go back to.
#include "app/CommandIds.h"
#include "app/FrameLayouts.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "framework/Language.h"

namespace {

constexpr int kDebugTimeWidth = 14;  // of its pane, in characters

}  // namespace

CUserStore &CMainFrame::UserStore() { return UserSettings().User(); }

void CMainFrame::SaveBarState(const std::string &name) {
    if (name == kResetBars && HasBarState(kResetBars)) return;
    CMDIFrameWnd::SaveBarState(name);
}

bool CMainFrame::LoadBarState(const std::string &name) {
    const bool loaded = CMDIFrameWnd::LoadBarState(name);
    if (!loaded) PlaceBars();
    if (!loaded && name == kDebugBars) ShowDebugBars();
    UpdateCommandUI();
    return loaded;
}

void CMainFrame::EnterDebugLayout() {
    if (std::exchange(debugLayout_, true)) return;
    SaveBarState(kEditBars);
    LoadBarState(kDebugBars);
    debugToolBar_->show();
    ShowStartIcon("debug-end");
    statusBar_->InsertPane(kPaneDebugTime, kDebugTimeWidth);
}

void CMainFrame::LeaveDebugLayout() {
    if (!std::exchange(debugLayout_, false)) return;
    debugToolBar_->hide();
    SaveBarState(kDebugBars);
    LoadBarState(kEditBars);
    ShowStartIcon("debug-start");
    statusBar_->RemovePane(kPaneDebugTime);
}

// The button starts a run, and ends it.
void CMainFrame::ShowStartIcon(const std::string &icon) {
    for (CXTToolBar *bar : {mainToolBar_, buildToolBar_, editToolBar_, debugToolBar_})
        bar->SetButtonIcon(ID_DEBUG_START, icon);
}

void CMainFrame::ResetBars() {
    CIDEApp::Get().AddOutputLine("Resetting bar layout...");
    LoadBarState(kResetBars);
    CIDEApp::Get().AddOutputLine(LoadText(IDS_BARS_RESET));
}
