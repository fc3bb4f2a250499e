#include "debugger/DebugNotices.h"

#include <thread>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "debugger/EngineApi.h"
#include "framework/Language.h"
#include "platform/PathCalls.h"
#include "plugins/PluginRun.h"

void CDebugNotices::OnExecution(int reason, const char *file, int line, const char *text) {
    switch (reason) {
        case kDbgStopped:
        case kDbgAfterReset:
        case kDbgAfterStepBack:
        case kDbgBadMemory:
            return TellStop(reason, file, line);
        case kDbgPlace:
            return TellPlace(file, line);
        case kDbgNoteSleep:
            return PostNote(IDS_DEBUG_NOTE_SLEEP);
        case kDbgNoteStack:
            return PostNote(IDS_DEBUG_NOTE_STACK);
        case kDbgText:
            return TellText(text);
    }
}

// The process's current directory, which the main thread changes, plays no part.
std::string CDebugNotices::FullName(const char *file) const {
    if (!file || !*file) return {};
    const SplitPath parts = _splitpath(file);
    const bool rooted = !parts.drive.empty() || parts.directory.starts_with('\\') || parts.directory.starts_with('/');
    return rooted ? file : directory_ + file;
}

// Plug-ins hear of the stop before the main thread does.
void CDebugNotices::TellStop(int reason, const char *file, int line) {
    CRunClock &clock = session_.Clock();
    if (reason == kDbgAfterStepBack)
        clock.StepBack();
    else
        clock.NoteStop();
    if (reason == kDbgAfterReset)
        TellPluginsReset();
    else
        TellPluginsStep(reason == kDbgAfterStepBack);

    StopRecord record{reason, FullName(file), line};
    if (!record.file.empty() && !FileExists(record.file)) record.file.clear();
    const std::lock_guard guard(stopping_);
    stops_.push_back(std::move(record));
    frame_.Post(kMsgTargetStopped);
    session_.OnTargetStands();
}

// Where a command has waited for the stop, the place isn't shown.
void CDebugNotices::TellPlace(const char *file, int line) {
    const std::lock_guard guard(stopping_);
    stops_.push_back({kDbgPlace, FullName(file), line});
    frame_.Post(kMsgTargetStopped);
    if (session_.OnTargetStands()) stops_.back().file.clear();
}

// The target waits until its text is shown, so that a program that tells much can't fill the queue.
void CDebugNotices::TellText(const char *text) {
    std::unique_lock guard(texts_);
    if (released_) return;
    ++textsToShow_;
    const bool posted =
        text ? frame_.Post(kMsgTargetText, std::make_unique<std::string>(text)) : frame_.Post(kMsgTargetClear);
    if (!posted) --textsToShow_;
    textShown_.wait(guard, [this] { return textsToShow_ == 0 || released_; });
}

void CDebugNotices::PostNote(int text) {
    frame_.Post(kMsgTargetNote, text);
}

void CDebugNotices::OnClock(int passed, int clk) {
    session_.Clock().Set(clk);
    // Behind a step back the engine corrects the time that was kept.
    if (!session_.IsRunning()) frame_.Post(kMsgShowClock);
    TellPluginsClock(clk, passed);
    std::this_thread::yield();
}

void CDebugNotices::OnInstruction(int address, int clk) {
    TellPluginsInstruction(clk, address);
}

std::optional<StopRecord> CDebugNotices::TakeStop() {
    const std::lock_guard guard(stopping_);
    if (stops_.empty()) return {};
    StopRecord record = std::move(stops_.front());
    stops_.pop_front();
    return record;
}

bool CDebugNotices::HasStop() const {
    const std::lock_guard guard(stopping_);
    return !stops_.empty();
}

void CDebugNotices::OnTextShown() {
    const std::lock_guard guard(texts_);
    if (textsToShow_ > 0) --textsToShow_;
    textShown_.notify_all();
}

void CDebugNotices::Release() {
    const std::lock_guard guard(texts_);
    released_ = true;
    textShown_.notify_all();
}
