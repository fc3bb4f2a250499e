#include "debugger/DbgInterface.h"

void CDbgInterface::DLLCleanup() {
    if (!engine_.IsLoaded()) return;
    if (auto *cleanup = engine_.Get<int()>("DbgDLLCleanup")) cleanup();
    engine_ = CSharedLibrary();
}
