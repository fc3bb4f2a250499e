#include "framework/CommandReplay.h"

void ReplayAfterStop(const SessionControl &session, int twinId, const std::function<void()> &twin) {
    if (!session.isOpen()) {
        twin();
        return;
    }
    if (session.isRunning()) {
        session.defer({kCommandMessage, twinId, 0});
        session.stopTarget();
        return;
    }
    if (!session.askToEnd()) return;
    session.endSession();
    twin();
}
