#include "debugger/DebugSession.h"

#include <utility>

void CDebugSession::Stop() { running_ = false; }

void CDebugSession::End() {
    running_ = false;
    open_ = false;
}

void CDebugSession::PostDeferred(CMessageTarget &frame) {
    const DeferredCommand command = std::exchange(deferred_, {});
    if (command.message) frame.PostMessage(command.message, command.id, command.parameter);
}
