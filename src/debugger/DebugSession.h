// The state machine of a debug run: from the start of the engine for the active project to its end.
//
// A run is starting until the first stop is told, then stopped or running. `running` is set before a command reaches
// the engine and cleared on the engine's thread at the stop; all else is the main thread's.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>

#include "debugger/EngineApi.h"
#include "debugger/RunClock.h"
#include "framework/CommandReplay.h"
#include "framework/MessageTarget.h"

class CProject;
struct EngineCalls;
struct StopRecord;

// How the next stop notice is treated.
enum class StartMode : int16_t { started = -1, runAtStart = 0, stopAtMain = 1 };

// A command to the engine that sets the target going.
struct RunCommand {
    const char *word;  // in the message of a refusal
    DbgCommandFn *EngineCalls::*entry;
    bool keepsStates = true;  // of the plug-ins, before it
};

class CDebugSession {
public:
    bool IsOpen() const { return debugging_; }               // a run exists
    bool IsAlive() const { return debugging_ && !ending_; }  // and its target can be asked
    bool IsRunning() const { return running_; }              // its target runs; any thread
    bool IsStanding() const;                                 // it stands, and the user sees where
    CRunClock &Clock() { return clock_; }
    unsigned StopCount() const { return stops_; }  // stops that were shown, over all runs

    // Starts a run of the active project. False, with the reason in the build list and all as it was, without one.
    bool Start(StartMode mode);
    bool Go(const RunCommand &command);  // false, with a line in the build list, when the engine refuses
    bool Stop();                         // asks a running target to stop; false when the engine refuses

    // Ends the run: at once when the target stands, else behind the stop that it asks for. False when it won't stop.
    bool End();
    void EndAtOnce();  // also of a target that runs

    void Defer(const DeferredCommand &command);
    void StopFor(const DeferredCommand &command);  // stops a running target and posts the command behind the stop
    // The engine's thread, behind the notice: the target counts as standing. True when a command had waited for that.
    bool OnTargetStands();

    // Messages and the timer of the frame.
    void OnTargetStopped();
    void OnTimer();
    void OnTargetText(const std::string &text);
    void OnTargetClear();
    void ShowClock() const;
    void FollowPlugins() const;  // tells the engine whether plug-ins want to hear of each instruction

    bool IsProfiling() const { return profiling_; }
    bool IsSnapshotOn() const { return snapshot_; }
    void ToggleProfiling();
    void ToggleSnapshot();

    // The first place of a run that is shown is shown in the window state of the last run. True once a run.
    bool TakeFirstPosition();

    void ClearViews();  // memory, watch and profile views show another target from now on

private:
    static constexpr int kRunInterval = 500;  // milliseconds between refreshes of a run
    static constexpr int kStopInterval = 100;

    void PrepareStart();
    bool StartEngine(CProject &project);
    void PrepareViews();
    void AwaitFirstStop() const;

    void OnStop(const StopRecord &record);
    bool RunOn();
    bool RunToMain();
    void LeaveUsersBreakpoint();
    void DropMainBreakpoint();
    void ShowStop(const StopRecord &record);
    void EnterRunning(int interval);
    void RefreshWhileRunning();

    void Finish();
    bool PostDeferred();  // with `deferring_` held; true when there was one

    bool debugging_ = false;
    bool ending_ = false;
    std::atomic<bool> running_ = false;
    std::mutex deferring_;
    DeferredCommand deferredCommand_;
    CRunClock clock_;

    StartMode startMode_ = StartMode::started;
    bool debugFromMain_ = true;
    bool firstPosition_ = false;
    bool profiling_ = false, snapshot_ = false;
    int mainBreakpointId_ = -1;
    unsigned stops_ = 0;
};
