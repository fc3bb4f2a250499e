// The adapter to the simulation engine "debugger.dll".
#pragma once

#include "platform/SharedLibrary.h"

class CDbgInterface {
public:
    ~CDbgInterface() { DLLCleanup(); }

    bool IsLoaded() const { return engine_.IsLoaded(); }
    void DLLCleanup();  // the engine's own clean-up, then frees it; nothing without an engine

private:
    CSharedLibrary engine_;
};
