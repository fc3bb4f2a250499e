#include "debugger/Engine.h"

#include "platform/ProgramDirectory.h"

bool CEngine::Load() {
    if (IsLoaded()) return true;
    debugger_ = CSharedLibrary(ProgramFile("debugger.dll"));
    parser_ = CSharedLibrary(ProgramFile("dbgpars.dll"));
    if (!debugger_.IsLoaded() || !parser_.IsLoaded()) {
        Free();
        return false;
    }
#define FIND_CALL(name, type) calls_.name = debugger_.Get<type>(#name);
#define FIND_READER(name, type) readers_.name = parser_.Get<type>(#name);
    DEBUGGER_CALLS(FIND_CALL)
    READER_CALLS(FIND_READER)
#undef FIND_CALL
#undef FIND_READER
    return true;
}

void CEngine::Free() {
    calls_ = {};
    readers_ = {};
    debugger_ = {};
    parser_ = {};
}
