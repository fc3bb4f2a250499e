// The commands of a debug run: which are on, and what they ask of the session.
#pragma once

#include "debugger/DebugSession.h"
#include "debugger/Engine.h"
#include "framework/CmdTarget.h"

// Main thread.
class CDebugCommands : public CCmdTarget {
public:
    CDebugCommands();

    // Lets the target run on, or without a run starts one that doesn't stop at its beginning. False, with the reason in
    // the build list, when neither works.
    bool Continue();

    static bool CanRunOn();  // a run command makes sense: with no run, or with its target standing still

private:
    // What a command does during a run, by source lines and by instructions.
    struct StepCommand {
        int id;
        StartMode start;  // without a run
        RunCommand byLine, byInstruction;
    };
    static const StepCommand kSteps[];

    void MapStartCommands();
    void MapRunCommands();
    void MapSwitches();
    bool Run(const StepCommand &command);
};
