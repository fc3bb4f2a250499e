// The adapter to the simulation engine "debugger.dll".
#pragma once

#include <string>

#include "platform/SharedLibrary.h"

class CDbgInterface {
public:
    ~CDbgInterface() { DLLCleanup(); }

    // Starts the engine for a chip. False, with the reason and advice in the build list, when it isn't installed.
    bool Init(const std::string &target);

    // The value of `name` as text, in value format `format`; 0 is decimal. `errorText`, which may be null, gets the
    // engine's words for a failure. False, with `text` as it was, without an engine and for what it can't evaluate.
    bool Evaluate(const std::string &name, std::string &text, int format, std::string *errorText) const;

    bool IsLoaded() const { return engine_.IsLoaded(); }
    void DLLCleanup();  // the engine's own clean-up, then frees it; nothing without an engine

private:
    CSharedLibrary engine_;
};
