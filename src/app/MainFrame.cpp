#include "app/MainFrame.h"

#include <QGuiApplication>

#include "app/CommandIds.h"
#include "app/FrameLayouts.h"
#include "app/IDEApp.h"
#include "app/Path.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "framework/CommandReplay.h"
#include "framework/Language.h"
#include "online/NewsReader.h"
#include "online/VersionCheck.h"
#include "platform/PathCalls.h"
#include "project/MacroExpansion.h"
#include "project/Workspace.h"

namespace {

constexpr int kStartupMilliseconds = 200;
constexpr int kTrackerMilliseconds = 500;

constexpr const char *kUpdatedToolsuite = "LarkC";  // the one whose new versions are told

}  // namespace

CMainFrame::CMainFrame() {
    setAcceptDrops(true);
    setMinimumSize(400, 300);
    MapCommands();
    MapMessages();
}

CMainFrame::~CMainFrame() { Destroy(); }

bool CMainFrame::Create() {
    if (!LoadFrame(IDR_MAINFRAME) || !CreateBars()) return false;
    created_ = true;
    MapBarCommands();
    CIDEApp::Get().build.LoadBuildToolBar(IDR_MAINFRAME);
    discovery_.Start(Port(), kMsgPluginsFound);
    ReadTabSettings();
    ApplyTabSettings();
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) { OnApplicationActivated(state == Qt::ApplicationActive); });
    qGuiApp->installEventFilter(this);
    return true;
}

void CMainFrame::BeginStartup(std::vector<std::string> files) {
    startupFiles_ = std::move(files);
    SetTimer(kTimerTracker, kTrackerMilliseconds);
    SetTimer(kTimerStartup, kStartupMilliseconds);
    RestoreWindow();
}

void CMainFrame::OnTimer(int id) {
    if (id == kTimerTracker) {
        CIDEApp::Get().fileTracker.CheckTrackedFiles();
    } else if (id == kTimerRun) {
        CIDEApp::Get().session.OnTimer();
    } else if (id == kTimerStartup && !CIDEApp::Get().IsTipShown()) {
        KillTimer(kTimerStartup);
        if (startupTick_++ == 0)
            FirstTick();
        else
            SecondTick();
    }
}

// Only a tick in front of the slow part, so that the window is painted before it.
void CMainFrame::FirstTick() {
    CIDEApp &app = CIDEApp::Get();
    app.AddOutputLine(nullptr);
    if (GetUserInt("Workspace", "Load Last Workspace", 1) != 0) app.AddOutputLine(LoadText(IDS_LOADING_WORKSPACE));
    SetTimer(kTimerStartup, kStartupMilliseconds);
}

void CMainFrame::SecondTick() {
    CIDEApp &app = CIDEApp::Get();
    if (!startupFiles_.empty()) {
        for (const std::string &file : startupFiles_) app.OpenDocumentFile(file);
    } else if (GetUserInt("Workspace", "Load Last Workspace", 1) != 0) {
        const std::string last = GetUserString("Workspace", "Last Workspace", "");
        if (last.empty()) {
            app.AddOutputLine(LoadText(IDS_NOTHING_TO_LOAD));
        } else {
            if (!app.OpenWorkspace(last.c_str(), EqualNoCase(CPath(last).GetExtension(), "__w")))
                WriteUserString("Workspace", "Last Workspace", "");
            app.AddOutputLine(LoadText(IDS_LOADED));
        }
    }
    started_ = true;
    if (GetUserInt("News", "Enabled", 0) != 0) StartNewsFetch();
    discovery_.StartupIsOver();
}

void CMainFrame::MapMessages() {
    CIDEApp &app = CIDEApp::Get();
    OnTextMessage(kMsgOutputText, [&app](std::string text) { app.messageList.OnBuildLine(text); });
    OnTextMessage(kMsgOutputTextHeap, [&app](std::string text) { app.messageList.OnOutputLine(text); });
    OnMessage(kMsgChildEnded, [&app](intptr_t, intptr_t) { app.messageList.OnChildEnded(); });
    OnMessage(kCommandMessage, [this](intptr_t id, intptr_t) { RunCommand(static_cast<int>(id)); });
    OnMessage(kMsgTargetStopped, [&app](intptr_t, intptr_t) { app.session.OnTargetStopped(); });
    OnTextMessage(kMsgTargetText, [&app](std::string text) { app.session.OnTargetText(text); });
    OnMessage(kMsgTargetClear, [&app](intptr_t, intptr_t) { app.session.OnTargetClear(); });
    OnMessage(kMsgTargetNote, [&app](intptr_t text, intptr_t) { app.AddOutputLine(LoadText(static_cast<int>(text))); });
    OnMessage(kMsgShowClock, [&app](intptr_t, intptr_t) { app.session.ShowClock(); });
    OnMessage(kMsgPluginsMoved, [&app](intptr_t, intptr_t) { app.session.FollowPlugins(); });
    OnMessage(kMsgBuildBehindStop, [&app](intptr_t id, intptr_t) { app.build.BuildBehindStop(static_cast<int>(id)); });
    OnMessage(kMsgContinue, [&app](intptr_t, intptr_t) { app.debugCommands.Continue(); });
    OnMessage(kMsgPluginsFound, [this](intptr_t, intptr_t) { OnPluginsFound(); });
}

// The bars of the plug-ins belong to the layout, so it is loaded when they stand.
void CMainFrame::OnPluginsFound() {
    if (destroyed_) return;
    CIDEApp &app = CIDEApp::Get();
    SaveBarState(kResetBars);
    CMDIFrameWnd::LoadBarState(kEditBars);
    UpdateCommandUI();
    for (const std::string &text : std::exchange(waitingTexts_, {})) app.AddOutputLine(text);
    pluginsReady_ = true;
    if (WantsVersionCheck()) RunSilentVersionCheck();
    app.AddOutputLine(LoadText(IDS_STARTUP_DONE));
}

bool CMainFrame::WantsVersionCheck() const {
    const auto &workspace = CIDEApp::Get().workspace;
    return GetUserInt("Settings", "AutoUpdate", 0) != 0 && workspace && workspace->GetToolName() == kUpdatedToolsuite;
}

void CMainFrame::ShowWarning(const std::string &text) {
    RunMessageBox(this, BoxTitle(IDS_KIND_WARNING), text, BoxIcon::exclamation, BoxButtons::ok);
}

void CMainFrame::ShowError(const std::string &text) {
    RunMessageBox(this, BoxTitle(IDS_KIND_ERROR), text, BoxIcon::stop, BoxButtons::ok);
}

void CMainFrame::ShowNotice(const std::string &text) {
    RunMessageBox(this, BoxTitle(IDS_KIND_NOTICE), text, BoxIcon::exclamation, BoxButtons::ok);
}

BoxResult CMainFrame::AskUser(const std::string &text, BoxButtons buttons) {
    return RunMessageBox(this, BoxTitle(IDS_KIND_QUESTION), text, BoxIcon::question, buttons);
}

std::string CMainFrame::BoxTitle(int kind) const { return LoadText(IDS_APP_TITLE) + " - " + LoadText(kind); }

std::string CMainFrame::GetProjectConfigName() const {
    const int item = std::max(configBox_->GetCurSel(), 0);
    return item < configBox_->GetCount() ? configBox_->GetLBText(item) : std::string();
}

void CMainFrame::ExpandMacros(const std::string &project, std::string &text) const {
    ExpandMacroText(text, ProjectMacroValues(project, [this] { return GetProjectConfigName(); }));
}

std::string CMainFrame::ComposeTitle() const {
    const CIDEApp &app = CIDEApp::Get();
    std::string title = LoadText(IDS_APP_TITLE);
    const std::string project = CPath(app.GetActiveProjectPath()).GetTitle();
    const std::string workspace =
        app.WorkspaceKind() == kWorkspaceMultiple ? CPath(app.GetWorkspacePath()).GetTitle() : std::string();
    if (!project.empty()) title += " - " + project;
    if (!workspace.empty()) title += project.empty() ? " - " + workspace : " (" + workspace + ")";
    return title;
}

void CMainFrame::OnStatusHelp(const std::string &text) {
    if (statusBar_) statusBar_->SetPaneText(kPaneHelp, text);
}
