// The state of a debug session as every other subsystem sees it, and the command that waits for its target to stop.
#pragma once

#include "framework/CommandReplay.h"
#include "framework/MessageTarget.h"

// Main thread.
class CDebugSession {
public:
    bool IsOpen() const { return open_; }        // a session exists
    bool IsRunning() const { return running_; }  // its target runs

    void Stop();  // asks a running target to stop
    void End();   // ends the session; nothing without one

    void Defer(const DeferredCommand &command) { deferred_ = command; }
    void PostDeferred(CMessageTarget &frame);  // the target has stopped: post the waiting command, once

    void ClearViews() {}  // memory, watch and profile views show another target from now on

private:
    bool open_ = false;
    bool running_ = false;
    DeferredCommand deferred_;
};
