#include "framework/CommandReplay.h"

void ReplayAfterStop(const SessionControl &session, int twinId, const std::function<void()> &twin) {
    if (!session.isOpen()) {
        twin();
        return;
    }
    if (session.isRunning()) {
        session.stopFor({kCommandMessage, twinId, 0});
        return;
    }
    if (!session.askToEnd()) return;
    session.endSession();
    twin();
}
