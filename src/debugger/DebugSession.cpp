#include "debugger/DebugSession.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "debugger/BreakpointArming.h"
#include "debugger/DebugBar.h"
#include "debugger/DebugBars.h"
#include "debugger/DebugNotices.h"
#include "debugger/DebugViews.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "framework/Language.h"
#include "navigation/OpenSource.h"
#include "plugins/PluginRun.h"
#include "project/SourceAge.h"

namespace {

constexpr const char *kContinue = "Continue";

CMainFrame &Frame() {
    return *CIDEApp::Get().GetMainFrame();
}
CDbgInterface &Debugger() {
    return CIDEApp::Get().debugger;
}
void TellRefusal(const char *word, const std::string &why = {}) {
    CIDEApp::Get().AddOutputLine(LoadText(IDS_DEBUG_REFUSED, {word}) + (why.empty() ? "" : " " + why));
}

// The engine has words for why it refuses these alone.
bool HasWords(const RunCommand &command) {
    return command.entry == &EngineCalls::DbgStepOut || command.entry == &EngineCalls::DbgStepBack;
}

}  // namespace

// --- Commands ---

bool CDebugSession::Go(const RunCommand &command) {
    if (!IsStanding()) return false;
    if (command.keepsStates) KeepPluginStates();
    running_ = true;
    if (Debugger().Call(command.entry) != kDbgOk) {
        running_ = false;
        TellRefusal(command.word, HasWords(command) ? Debugger().ErrorText() : std::string());
        return false;
    }
    EnterRunning(kRunInterval);
    return true;
}

// The target may come to a stop by itself meanwhile, on the engine's thread.
bool CDebugSession::Stop() {
    if (!debugging_) return false;
    bool good = true;
    if (running_) {
        good = Debugger().Call(&EngineCalls::DbgStop) == kDbgOk;
        if (good && running_) EnterRunning(kStopInterval);
        // Before the guard, which the engine's thread takes while it holds the notices.
        good = good || Debugger().Notices()->HasStop();
    }
    const std::lock_guard guard(deferring_);
    if (!running_) {
        PostDeferred();
        return true;
    }
    if (!good) TellRefusal("Stop");
    return good;
}

bool CDebugSession::IsStanding() const {
    const CDebugNotices *const notices = Debugger().Notices();
    return debugging_ && !running_ && startMode_ == StartMode::started && !(notices && notices->HasStop());
}

void CDebugSession::Defer(const DeferredCommand &command) {
    const std::lock_guard guard(deferring_);
    deferredCommand_ = command;
}

void CDebugSession::StopFor(const DeferredCommand &command) {
    Debugger().Call(&EngineCalls::DbgPerformanceProfile, 0);
    Defer(command);
    Stop();
}

bool CDebugSession::OnTargetStands() {
    const std::lock_guard guard(deferring_);
    running_ = false;
    return PostDeferred();
}

bool CDebugSession::PostDeferred() {
    const DeferredCommand command = std::exchange(deferredCommand_, {});
    if (command.message) Debugger().Notices()->Frame().Post(command.message, command.id, command.parameter);
    return command.message != 0;
}

void CDebugSession::ToggleProfiling() {
    profiling_ = !profiling_;
    CDebugBar &bar = *Frame().DebugBars().profile;
    // Either reads the profile: the engine counts from the first reading on.
    if (profiling_ && !bar.IsShowing())
        bar.ShowBar();
    else if (bar.IsShowing())
        bar.Refresh();
}

void CDebugSession::ToggleSnapshot() {
    snapshot_ = !snapshot_;
    if (snapshot_ && debugging_) RefreshWhileRunning();
}

void CDebugSession::FollowPlugins() const {
    if (!debugging_) return;
    if (Debugger().Call(&EngineCalls::DbgPerformanceProfile, IsAnyPluginShown() ? 1 : 0) != kDbgOk)
        CIDEApp::Get().AddOutputLine(LoadText(IDS_DEBUG_PROFILE_REFUSED));
}

// --- The stop notice ---

void CDebugSession::OnTargetStopped() {
    CDebugNotices *const notices = Debugger().Notices();
    const std::optional<StopRecord> record = notices ? notices->TakeStop() : std::nullopt;
    if (!record || !debugging_) return;
    if (!running_) Frame().KillTimer(kTimerRun);
    if (record->reason == kDbgPlace) {
        if (!record->file.empty()) OpenSourceAtLine(record->file, record->line, true);
        return;
    }
    RefreshValueTips();
    if (startMode_ == StartMode::started) RemoveRunToCursorMarker();
    OnStop(*record);
}

void CDebugSession::OnStop(const StopRecord &record) {
    const StartMode mode = std::exchange(startMode_, StartMode::started);
    if (mode == StartMode::runAtStart) {
        RunOn();
        return;
    }
    if (mode == StartMode::stopAtMain && debugFromMain_ && RunToMain()) return;
    DropMainBreakpoint();
    ShowStop(record);
}

bool CDebugSession::RunOn() {
    if (running_) return true;
    running_ = true;
    if (!Debugger().Run()) {
        running_ = false;
        TellRefusal(kContinue);
        return false;
    }
    EnterRunning(kRunInterval);
    return true;
}

// True when that is all that is to be done at this stop.
bool CDebugSession::RunToMain() {
    CIDEApp &app = CIDEApp::Get();
    // Sources may have changed outside, or just been saved.
    if (const auto newest = NewestSource(); newest && app.symbols.IsOlderThan(newest->written)) {
        app.symbols.UpdateBrowseInfo();
        if (!debugging_) return true;
    }
    const auto &functions = app.symbols.Maps().Functions;
    const auto main = functions.find("main");
    if (main == functions.end()) return false;
    const std::string file = main->second.file;
    int address = 0, line = 0;
    // Its line counts from 1: the first line behind that of the name.
    if (!Debugger().PosToAddr(file, main->second.line, address, line) ||
        !Debugger().SetBreakpoint(file, line, mainBreakpointId_)) {
        mainBreakpointId_ = -1;
        return false;
    }
    LeaveUsersBreakpoint();
    RunOn();
    return true;
}

// One of the user's at main stays.
void CDebugSession::LeaveUsersBreakpoint() {
    const auto isMain = [this](const CMarker &marker) { return marker.id == mainBreakpointId_; };
    if (std::ranges::any_of(CIDEApp::Get().breakpoints.Markers(), isMain)) mainBreakpointId_ = -1;
}

void CDebugSession::DropMainBreakpoint() {
    LeaveUsersBreakpoint();
    const int id = std::exchange(mainBreakpointId_, -1);
    if (id == -1 || Debugger().Call(&EngineCalls::DbgDeleteBreakpoint, id) == kDbgOk) return;
    CIDEApp::Get().AddOutputLine(LoadText(IDS_MAIN_NOT_DELETED));
}

void CDebugSession::ShowStop(const StopRecord &record) {
    ++stops_;
    CIDEApp &app = CIDEApp::Get();
    CListBar &listBar = Frame().ListBar();
    if (!record.file.empty()) {
        OpenSourceAtLine(record.file, record.line, true);
        if (!debugging_) return;  // a question on the way may have let its end in
    } else {
        if (!listBar.IsShowing()) app.AddOutputLine(LoadText(IDS_DEBUG_NO_SOURCE));
        RemoveExecutionMarks();
    }
    app.editorProperties.ApplyExecutionColour(listBar.ListingView().Sci());
    listBar.ListingView().ShowListingPosition();
    Frame().DebugBars().RefreshShown();
    ShowClock();
}

// --- While the target runs ---

void CDebugSession::EnterRunning(int interval) {
    Frame().SetTimer(kTimerRun, interval);
    ShowAsRunning();
}

void CDebugSession::OnTimer() {
    ShowClock();
    Frame().DebugBars().profile->Refresh();
    if (snapshot_ && debugging_ && running_) RefreshWhileRunning();
}

void CDebugSession::RefreshWhileRunning() {
    Frame().ListBar().ListingView().ShowListingPosition();
    Frame().DebugBars().RefreshShownValues();
    std::string file;
    int line = 0;
    if (!FindExecutionPlace(file, line)) return;
    const QPointer<QWidget> focus = QApplication::focusWidget();
    OpenSourceAtLine(file, line, true);
    if (focus && focus != QApplication::focusWidget()) focus->setFocus();  // nobody loses what he is typing
}

void CDebugSession::OnTargetText(const std::string &text) {
    CIDEApp::Get().AddOutputLine(text);
    if (CDebugNotices *notices = Debugger().Notices()) notices->OnTextShown();
}

void CDebugSession::OnTargetClear() {
    CIDEApp::Get().AddOutputLine(nullptr);
    if (CDebugNotices *notices = Debugger().Notices()) notices->OnTextShown();
}

void CDebugSession::ShowClock() const {
    if (!debugging_) return;
    const ClockText text = ChooseClockText(clock_.CurrentTick());
    Frame().SetStatusText(kPaneDebugTime, LoadText(text.text, {std::to_string(text.number)}));
}

bool CDebugSession::TakeFirstPosition() {
    return std::exchange(firstPosition_, false);
}

void CDebugSession::ClearViews() {
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->DebugBars().Clear();
}
