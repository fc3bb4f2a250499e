#include "debugger/DbgInterface.h"

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "platform/ProgramDirectory.h"

namespace {

constexpr int kTooSmall = 2;        // the engine's answer to a buffer that doesn't hold the value
constexpr int kValueStep = 256;     // bytes
constexpr int kLongestValue = 65535;
constexpr size_t kErrorSize = 1024;

}  // namespace

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

bool CDbgInterface::Evaluate(const std::string &name, std::string &text, int format, std::string *errorText) const {
    using EvaluateFn = int(char *name, char *buffer, int size, int format, char *error);
    auto *evaluate = engine_.IsLoaded() ? engine_.Get<EvaluateFn>("DbgEvaluate") : nullptr;
    if (!evaluate) return false;
    std::string own = name, error(kErrorSize, '\0'), value;  // the engine may write into all of them
    int result = kTooSmall;
    for (int size = kValueStep; result == kTooSmall && size < kLongestValue; size += kValueStep) {
        value.assign(static_cast<size_t>(size), '\0');
        result = evaluate(own.data(), value.data(), size, format, errorText ? error.data() : nullptr);
    }
    if (errorText) *errorText = error.c_str();
    if (result != 0) return false;
    text = value.c_str();
    return true;
}

void CDbgInterface::DLLCleanup() {
    if (!engine_.IsLoaded()) return;
    if (auto *cleanup = engine_.Get<int()>("DbgDLLCleanup")) cleanup();
    engine_ = CSharedLibrary();
}
