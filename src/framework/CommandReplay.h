// Commands that must not run during a debug session: stop first, then do what was asked.
#pragma once

#include <functional>

inline constexpr unsigned kCommandMessage = 273;

// A command to post when the target has stopped.
struct DeferredCommand {
    unsigned message = 0;  // 0: none
    int id = 0;
    int parameter = 0;
};

// What the pattern has to know of the session, filled in by who owns it.
struct SessionControl {
    std::function<bool()> isOpen;         // a debug session exists
    std::function<bool()> isRunning;      // its target runs
    std::function<void(DeferredCommand)> stopFor;  // asks the target to stop; the command is posted when it has
    std::function<bool()> askToEnd;       // asks the user whether to end the session
    std::function<void()> endSession;     // ends a session whose target stands still
};

// Runs `twin` now, later or never: at once without a session; deferred as command `twinId` while the target runs, which
// is asked to stop; after the user's consent, which ends the session, while the target stands still.
void ReplayAfterStop(const SessionControl &session, int twinId, const std::function<void()> &twin);
