#include "debugger/DbgInterface.h"

#include <array>

#include "app/ClockRate.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/ProjectDirScope.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "debugger/AddressText.h"
#include "debugger/DebugNotices.h"
#include "debugger/EngineFileName.h"
#include "debugger/ValueFormat.h"
#include "framework/Language.h"
#include "platform/NativePath.h"
#include "plugins/PluginRun.h"
#include "project/Workspace.h"

namespace {

constexpr int kValueStep = 256;  // bytes
constexpr int kLongestValue = 65535;
constexpr int kErrorSize = 1024;
constexpr int kPlaceSize = 260;
constexpr int kPlaceStep = 255;
constexpr int kLongestPlace = 32768;
constexpr int kFramesSize = 2047;
constexpr int kProfileSize = 2048;
constexpr int kProfileStep = 1024;
constexpr int kLongestProfile = 32768;
constexpr int kVariableNameSize = 256;

// The extension of what tells the compiler's variables; empty where the browser index does.
std::string VariablesExtension(const std::string &compiler) {
    if (compiler == "OspreyC" || compiler == "OspreyC++" || compiler == "OspreyP") return ".asm";
    return compiler == "Assembler" ? ".lst" : "";
}

void PrintInitFailure(const std::string &target, const std::string &words) {
    CIDEApp &app = CIDEApp::Get();
    app.AddOutputLine(LoadText(IDS_DEBUG_INIT_FAILED, {target}));
    if (!words.empty()) app.AddOutputLine(words);
    app.AddOutputLine("");
    for (int advice = IDS_DEBUG_ADVICE_FIRST; advice <= IDS_DEBUG_ADVICE_LAST; ++advice)
        app.AddOutputLine(LoadText(advice));
    app.AddOutputLine("");
}

}  // namespace

CDbgInterface::CDbgInterface() = default;

CDbgInterface::~CDbgInterface() {
    DLLCleanup();
}

bool CDbgInterface::Init(const std::string &image) {
    CIDEApp &app = CIDEApp::Get();
    variables_.Clear();
    const std::string target = app.workspace ? app.workspace->GetTarget() : std::string();
    notices_ = std::make_unique<CDebugNotices>(app.session, app.GetMainFrame()->Port(),
                                               CPath(app.GetActiveProjectPath()).GetDirectory());
    return Begin(target, image) && SetUpRun();
}

bool CDbgInterface::Begin(const std::string &target, const std::string &image) {
    CIDEApp &app = CIDEApp::Get();
    void *proc = nullptr, *param = nullptr;
    const bool loaded = engine_.Load();
    if (!loaded || Call(&EngineCalls::DbgDLLInit, &proc, &param, target.c_str(), &CDbgInterface::OnExecution,
                        static_cast<void *>(app.GetMainFrame())) != kDbgOk) {
        const std::string words = ErrorText();
        DLLCleanup();
        PrintInitFailure(target, words);
        return false;
    }
    if (!proc) {
        app.AddOutputLine(LoadText(IDS_DEBUG_NO_ENGINE));
        return false;
    }
    if (!StartThread(proc, param)) {
        DLLCleanup();
        app.AddOutputLine(LoadText(IDS_DEBUG_NO_ENGINE));
        return false;
    }

    const ProjectDirScope scope(app.GetActiveProjectPath());
    if (Call(&EngineCalls::DbgLoadFile, image.c_str()) != kDbgOk) {
        const std::string words = ErrorText();
        DLLCleanup();
        app.AddOutputLine(LoadText(IDS_DEBUG_LOAD_FAILED, {DisplayPath(image)}));
        if (!words.empty()) app.AddOutputLine(words);
        app.AddOutputLine("");
        return false;
    }
    if (app.GetActiveProjectPath().empty()) {
        DLLCleanup();
        return false;
    }
    FillVariables(image);
    return true;
}

bool CDbgInterface::StartThread(void *proc, void *param) try {
    thread_ = std::thread([proc, param] { reinterpret_cast<void (*)(void *)>(proc)(param); });
    return true;
} catch (const std::system_error &) {
    return false;
}

bool CDbgInterface::SetUpRun() {
    const bool good =
        Call(&EngineCalls::DbgSetExecutionChangeCallback, &CDbgInterface::OnExecution, static_cast<void *>(this)) ==
            kDbgOk &&
        Call(&EngineCalls::DbgSetClkCallBack, &CDbgInterface::OnClock, static_cast<void *>(this)) == kDbgOk &&
        Call(&EngineCalls::DbgSetInstCallBack, &CDbgInterface::OnInstruction, static_cast<void *>(this)) == kDbgOk &&
        Call(&EngineCalls::DbgPerformanceProfile, IsAnyPluginShown() ? 1 : 0) == kDbgOk;
    if (good) {
        SetClockRate(ProjectClockRate());
        StartPlugins();
    }
    if (good && Call(&EngineCalls::DbgReset) == kDbgOk) return true;
    if (good) StopPlugins();
    DLLCleanup();
    return false;
}

void CDbgInterface::FillVariables(const std::string &image) {
    CIDEApp &app = CIDEApp::Get();
    const std::string extension = VariablesExtension(app.workspace->GetCompilerName());
    const CPath parts(image);
    const std::string file = parts.GetDirectory() + parts.GetTitle() + extension;
    if (extension == ".asm") {
        variables_.ReadOrgBlock(file, [this](const std::string &line, COspreyVar &variable) {
            std::array<char, kVariableNameSize> name{};
            uint16_t size = 0;
            if (!engine_.Read(&EngineReaders::dbgParseOrgString, line.c_str(), name.data(), &variable.address, &size))
                return false;
            variable.name = name.data();
            variable.size = static_cast<uint8_t>(size);
            return true;
        });
    } else if (extension == ".lst") {
        variables_.ReadSymbolTable(file);
    } else {
        std::vector<std::string> names;
        for (const auto &[name, record] : app.symbols.Maps().Variables) names.push_back(name);
        variables_.AddNames(names);
    }
}

bool CDbgInterface::Run() {
    KeepPluginStates();
    return Call(&EngineCalls::DbgRun) == kDbgOk;
}

bool CDbgInterface::EndCallbacks() {
    return Call(&EngineCalls::DbgRemoveClkCallBack, &CDbgInterface::OnClock, static_cast<void *>(this)) == kDbgOk &&
           Call(&EngineCalls::DbgRemoveInstCallBack, &CDbgInterface::OnInstruction, static_cast<void *>(this)) ==
               kDbgOk;
}

bool CDbgInterface::DLLCleanup() {
    if (notices_) notices_->Release();
    const bool good = Call(&EngineCalls::DbgDLLCleanup) == kDbgOk;
    if (thread_.joinable()) thread_.join();
    return good;
}

std::string CDbgInterface::ErrorText() const {
    std::array<char, kErrorSize> text{};
    return Call(&EngineCalls::DbgGetErrorText, text.data(), kErrorSize) == kDbgOk ? text.data() : std::string();
}

void CDbgInterface::SetClockRate(int hertz) {
    Call(&EngineCalls::DbgSetClkRate, hertz);
}

// --- Values ---

bool CDbgInterface::Evaluate(const std::string &name, std::string &text, int format, std::string *errorText) const {
    std::string own = name, error(kErrorSize, '\0'), value;  // the engine may write into all of them
    int answer = kDbgTooSmall;
    for (int size = kValueStep; answer == kDbgTooSmall && size < kLongestValue; size += kValueStep) {
        value.assign(static_cast<size_t>(size), '\0');
        answer = Call(&EngineCalls::DbgEvaluate, own.c_str(), value.data(), size, format,
                      errorText ? error.data() : nullptr);
    }
    if (errorText) *errorText = error.c_str();
    if (answer == kDbgOk) {
        text = value.c_str();
        return true;
    }
    const COspreyVar *const variable = variables_.Find(name);
    if (!variable) return false;
    int64_t number = 0;
    for (int i = variable->size - 1; i >= 0; --i) {
        own = "$" + std::to_string(variable->address + i);
        value.assign(kValueStep, '\0');
        if (Call(&EngineCalls::DbgEvaluate, own.c_str(), value.data(), kValueStep, format, nullptr) != kDbgOk)
            return false;
        number = number * 256 + NumberOfAnswer(value.c_str(), format).value_or(0);
    }
    text = "#" + FormatValue(number, format);
    return true;
}

bool CDbgInterface::SetValue(const std::string &name, int32_t value) {
    return Call(&EngineCalls::DbgSet, std::string(name).c_str(), value) == kDbgOk;
}

bool CDbgInterface::RegNameToAddr(const std::string &name, uint16_t &address) const {
    return Call(&EngineCalls::DbgRegNameToAddr, std::string(name).c_str(), &address) == kDbgOk;
}

// --- Places ---

bool CDbgInterface::SetBreakpoint(const std::string &file, int line, int &id) {
    const ProjectDirScope scope(CIDEApp::Get().GetActiveProjectPath());
    return Call(&EngineCalls::DbgSetBreakpointByLine, EngineFileName(file).c_str(), line + 1, &id) == kDbgOk;
}

bool CDbgInterface::SetBreakpointConditions(int id, const std::string &condition, int conditionType, int hitValue,
                                            int hitType) {
    return Call(&EngineCalls::DbgSetBreakpointConditions, id, std::string(condition).c_str(), conditionType, hitValue,
                hitType) == kDbgOk;
}

bool CDbgInterface::PosToAddr(const std::string &file, int line, int &address, int &codeLine) const {
    const ProjectDirScope scope(CIDEApp::Get().GetActiveProjectPath());
    if (Call(&EngineCalls::DbgPosToAddr, EngineFileName(file).c_str(), line + 1, &address, &codeLine) != kDbgOk)
        return false;
    if (codeLine != -1) --codeLine;
    return true;
}

bool CDbgInterface::AddrToPos(int address, std::string &file, int &line) const {
    std::array<char, kPlaceSize> name{};
    const int answer = Call(&EngineCalls::DbgAddrToPos, address, name.data(), kPlaceSize, &line);
    if (answer == kDbgTooSmall) return AddrToPosText(address, file, line);
    if (answer == kDbgOk) file = name.data();
    return answer == kDbgOk;
}

bool CDbgInterface::AddrToPosText(int address, std::string &file, int &line) const {
    std::string name;
    int answer = kDbgTooSmall;
    for (int size = kPlaceStep; answer == kDbgTooSmall && size <= kLongestPlace; size += kPlaceStep) {
        name.assign(static_cast<size_t>(size), '\0');
        answer = Call(&EngineCalls::DbgAddrToPos, address, name.data(), size, &line);
    }
    if (answer == kDbgOk) file = name.c_str();
    return answer == kDbgOk;
}

// --- Lists ---

bool CDbgInterface::GetFrameList(std::list<std::string> &frames) const {
    std::array<char, kFramesSize + 1> text{};
    if (Call(&EngineCalls::DbgGetFrameList, text.data(), kFramesSize) != kDbgOk) return false;
    const auto add = [](int address, void *user) {
        static_cast<std::list<std::string> *>(user)->push_back(AddressText(static_cast<uint32_t>(address)));
    };
    return engine_.Read(&EngineReaders::dbgFrameList, text.data(), +add, static_cast<void *>(&frames));
}

bool CDbgInterface::GetProfileList(const std::function<void(const std::string &, uint32_t)> &entry) const {
    std::string text;
    int answer = kDbgTooSmall;
    for (int size = kProfileSize; answer == kDbgTooSmall && size < kLongestProfile; size += kProfileStep) {
        text.assign(static_cast<size_t>(size), '\0');
        answer = Call(&EngineCalls::DbgGetProfileList, text.data(), size);
    }
    if (answer != kDbgOk) return false;
    const auto tell = [](const char *name, int count, void *user) {
        (*static_cast<const std::function<void(const std::string &, uint32_t)> *>(user))(name,
                                                                                         static_cast<uint32_t>(count));
    };
    return engine_.Read(&EngineReaders::dbgProfileList, text.c_str(), +tell,
                        const_cast<void *>(static_cast<const void *>(&entry)));
}

// --- The engine's thread ---

// Until the run has its own callback, the engine has no user value for this one.
void CDbgInterface::OnExecution(int reason, const char *file, int line, int, const char *text, void *user) {
    auto *const self = user ? static_cast<CDbgInterface *>(user) : &CIDEApp::Get().debugger;
    self->notices_->OnExecution(reason, file, line, text);
}

void CDbgInterface::OnClock(int passed, int clk, void *user) {
    static_cast<CDbgInterface *>(user)->notices_->OnClock(passed, clk);
}

void CDbgInterface::OnInstruction(int address, int clk, void *user) {
    static_cast<CDbgInterface *>(user)->notices_->OnInstruction(address, clk);
}
