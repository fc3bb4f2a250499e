// The adapter to the simulation engine "debugger.dll".
#pragma once

#include <string>

#include "platform/SharedLibrary.h"

class CDbgInterface {
public:
    ~CDbgInterface() { DLLCleanup(); }

    // Starts the engine for a chip. False, with the reason and advice in the build list, when it isn't installed.
    bool Init(const std::string &target);

    bool IsLoaded() const { return engine_.IsLoaded(); }
    void DLLCleanup();  // the engine's own clean-up, then frees it; nothing without an engine

private:
    CSharedLibrary engine_;
};
