// The start of a debug run and its end.
#include <chrono>
#include <thread>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/ProjectDirScope.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "debugger/BreakpointArming.h"
#include "debugger/DebugBar.h"
#include "debugger/DebugBars.h"
#include "debugger/DebugNotices.h"
#include "debugger/DebugSession.h"
#include "debugger/DebugViews.h"
#include "editor/ListBar.h"
#include "framework/Language.h"
#include "platform/FileTime.h"
#include "platform/NativePath.h"
#include "plugins/PluginRun.h"
#include "project/ProjectSettings.h"
#include "project/SourceAge.h"
#include "project/Workspace.h"

namespace {

constexpr std::chrono::milliseconds kEngineStartLimit{200}, kEngineStartNap{2};
constexpr const char *kSection = "Settings";

CMainFrame &Frame() {
    return *CIDEApp::Get().GetMainFrame();
}

std::string ImageOf(CProject &project) {
    std::string image = project.GetActiveConfig()->GetOutputDir() + "%name%.cof";
    Frame().ExpandMacros({}, image);
    return image;
}

void WarnOfOldImage(const std::string &image) {
    const auto source = NewestSource();
    const auto built = ReadLastWriteTime(image);
    if (source && built && source->written > *built)
        CIDEApp::Get().AddOutputLine(LoadText(IDS_DEBUG_IMAGE_OLD, {DisplayPath(source->file)}));
}

}  // namespace

bool CDebugSession::Start(StartMode mode) {
    CIDEApp &app = CIDEApp::Get();
    const boost::shared_ptr<CProject> project = app.workspace ? app.workspace->GetActiveProject() : nullptr;
    if (debugging_ || !project || !project->GetActiveConfig()) return false;
    const ProjectDirScope scope(app.GetActiveProjectPath());
    PrepareStart();
    startMode_ = mode;
    mainBreakpointId_ = -1;
    if (!StartEngine(*project)) return false;
    WarnOfOldImage(ImageOf(*project));

    AwaitFirstStop();
    RebuildBreakpointsFromViews();
    if (ArmBreakpoints() > 0) app.AddOutputLine(LoadText(IDS_BREAKPOINTS_MOVED));
    PrepareViews();
    return true;
}

void CDebugSession::PrepareStart() {
    CIDEApp &app = CIDEApp::Get();
    app.SaveAllDocuments(false);
    app.AddOutputLine(nullptr);
    app.AddOutputLine(LoadText(IDS_DEBUG_START, {CPath(app.GetActiveProjectPath()).GetTitle()}));
    app.AddOutputLine("");
    clock_.Clear();
    Frame().ListBar().LoadAll(true);
}

bool CDebugSession::StartEngine(CProject &project) {
    if (CListBar &bar = Frame().ListBar(); bar.IsShowing()) bar.setFocus();
    Defer({});
    debugging_ = true;
    running_ = false;
    firstPosition_ = true;
    debugFromMain_ = GetProjectInt("Debugger", "DebugFromMain", 1) != 0;
    debugging_ = CIDEApp::Get().debugger.Init(ImageOf(project));
    if (debugging_) return true;
    firstPosition_ = false;
    startMode_ = StartMode::started;
    Frame().FocusActiveView();
    return false;
}

// The engine gets a moment to come to its first stop before it is asked for places.
void CDebugSession::AwaitFirstStop() const {
    const auto limit = std::chrono::steady_clock::now() + kEngineStartLimit;
    const CDebugNotices *const notices = CIDEApp::Get().debugger.Notices();
    while (!notices->HasStop() && std::chrono::steady_clock::now() < limit)
        std::this_thread::sleep_for(kEngineStartNap);
}

void CDebugSession::PrepareViews() {
    CMainFrame &frame = Frame();
    DebugBars &bars = frame.DebugBars();
    bars.BeginRun();
    CIDEApp::Get().watchpoints.Load();
    bars.profile->BeginRun();
    profiling_ = GetProjectInt(kSection, "Profiling", 0) != 0;
    snapshot_ = GetProjectInt(kSection, "Snapshot", 0) != 0;
    if (profiling_)
        CIDEApp::Get().debugger.GetProfileList([](const std::string &, uint32_t) {});  // it counts from now on
    bars.BlankValues();

    LockViews();
    frame.FocusActiveView();
    frame.EnterDebugLayout();
    ShowClock();
    frame.PostMessage(kMsgPluginsMoved);
}

bool CDebugSession::End() {
    if (!debugging_) return true;
    if (running_) {
        Defer({kCommandMessage, ID_DEBUG_END, 0});
        return Stop();
    }
    Finish();
    return true;
}

void CDebugSession::EndAtOnce() {
    if (!debugging_) return;
    if (running_) CIDEApp::Get().debugger.Call(&EngineCalls::DbgStop);
    Defer({});
    Finish();
}

void CDebugSession::Finish() {
    if (std::exchange(ending_, true)) return;
    CIDEApp &app = CIDEApp::Get();
    const ProjectDirScope scope(app.GetActiveProjectPath());
    CMainFrame &frame = Frame();
    frame.KillTimer(kTimerRun);
    DisarmBreakpoints();
    DropMainBreakpoint();
    RemoveExecutionMarks();
    UnlockViews();
    frame.DebugBars().EndRun();
    SetProjectString(kSection, "Profiling", profiling_ ? "1" : "0");
    SetProjectString(kSection, "Snapshot", snapshot_ ? "1" : "0");
    app.watchpoints.Store();
    StopPlugins();
    const bool removed = app.debugger.EndCallbacks();
    if (!app.debugger.DLLCleanup() || !removed) app.AddOutputLine(LoadText(IDS_DEBUG_REFUSED, {"Stop"}));
    StoreWindowState();
    frame.LeaveDebugLayout();
    running_ = false;
    debugging_ = ending_ = firstPosition_ = false;
    startMode_ = StartMode::started;
    frame.OnRunEnded();
}
