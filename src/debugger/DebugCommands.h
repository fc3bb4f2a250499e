// The commands of a debug run: which are on, and what they ask of the session.
#pragma once

#include "framework/CmdTarget.h"

// Main thread.
class CDebugCommands : public CCmdTarget {
public:
    CDebugCommands();

    // Begins a debug run of the active project: saves all documents and starts the engine on the built image. False,
    // with the reason in the build list, when there is no run.
    bool StartRun();

    static bool CanRunOn();  // a run command makes sense: with no run, or with its target standing still

private:
    void MapStartCommands();
    void MapRunCommands();
};
