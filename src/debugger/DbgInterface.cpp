#include "debugger/DbgInterface.h"

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "platform/ProgramDirectory.h"

bool CDbgInterface::Init(const std::string &target) {
    engine_ = CSharedLibrary(ProgramFile("debugger.dll"));
    if (engine_.IsLoaded()) return true;
    CIDEApp &app = CIDEApp::Get();
    app.AddOutputLine(LoadText(IDS_DEBUG_INIT_FAILED, {target}));
    app.AddOutputLine("");
    for (int advice = IDS_DEBUG_ADVICE_FIRST; advice <= IDS_DEBUG_ADVICE_LAST; ++advice)
        app.AddOutputLine(LoadText(advice));
    app.AddOutputLine("");
    return false;
}

void CDbgInterface::DLLCleanup() {
    if (!engine_.IsLoaded()) return;
    if (auto *cleanup = engine_.Get<int()>("DbgDLLCleanup")) cleanup();
    engine_ = CSharedLibrary();
}
