// The exports of debugger.dll that begin, steer and end a run.
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <new>
#include <utility>

#include "CurrentRun.h"
#include "platform/PathCalls.h"
#include "protocol/RunKind.h"

namespace {

struct Current {
    std::mutex lock;
    std::shared_ptr<CRun> run;
    uintptr_t number = 0;  // of the run, by which its thread's procedure knows it
    bool beginning = false;
    char error[256] = {};  // why the last call that gives words has failed
};

// Never destroyed, and so without memory of its own: the debugger's objects may call DbgDLLCleanup when the process
// ends.
Current &TheCurrent() {
    alignas(Current) static std::byte room[sizeof(Current)];
    static Current &current = *new (room) Current;
    return current;
}

// The engine's thread. It may be started late: then its run is gone, or another one is there.
void ServeRun(void *param) try {
    std::shared_ptr<CRun> run;
    {
        const std::lock_guard guard(TheCurrent().lock);
        if (TheCurrent().number == reinterpret_cast<uintptr_t>(param)) run = TheCurrent().run;
    }
    if (run) run->Serve();
} catch (const std::exception &) {
}

// One that is also refused when there is nothing to do, and gives words for that.
int GoWithWords(Request request, const CRun::Put &put) {
    return OnRun([&](CRun &run) {
        std::string words;
        const bool good = run.Go(request, put, [&](CMessageReader &in) { words = in.Text(); });
        KeepError(words);
        return Answer(good);
    });
}

int Start(RunKind kind) {
    return OnRun([&](CRun &run) {
        return Answer(run.Go(Request::start, [&](CMessageWriter &out) { out.PutNumber(static_cast<int>(kind)); }));
    });
}

int Reset(bool powerOn) {
    return OnRun([&](CRun &run) {
        return Answer(run.Go(Request::reset, [&](CMessageWriter &out) { out.PutNumber(powerOn ? 1 : 0); }));
    });
}

int Ask(Request request) {
    return OnRun([&](CRun &run) { return Answer(run.Ask(request)); });
}

// The run's number; 0 when it can't begin.
uintptr_t BeginRun(const char *target, DbgExecutionFn *callback, std::string &error) {
    std::string name = target;
    // The process has a current directory of its own.
    if (name.find_first_of("\\/:") != name.npos) name = GetFullPathNameA(name);
    std::shared_ptr<CRun> run = CRun::Begin(name, {callback, nullptr}, error);
    const std::lock_guard guard(TheCurrent().lock);
    TheCurrent().beginning = false;
    GiveShortText(error, TheCurrent().error);
    if (!run) return 0;
    TheCurrent().run = std::move(run);
    return ++TheCurrent().number;
}

}  // namespace

std::shared_ptr<CRun> CurrentRun() {
    const std::lock_guard guard(TheCurrent().lock);
    return TheCurrent().run;
}

void KeepError(const std::string &error) {
    const std::lock_guard guard(TheCurrent().lock);
    GiveShortText(error, TheCurrent().error);
}

ENGINE_EXPORT int DbgDLLInit(void **proc, void **param, const char *target, DbgExecutionFn *callback, void *) try {
    if (!proc || !param) return kDbgFailed;
    *proc = *param = nullptr;
    {
        const std::lock_guard guard(TheCurrent().lock);
        if (!target || TheCurrent().run || TheCurrent().beginning) return kDbgFailed;
        TheCurrent().beginning = true;
    }
    std::string error = "There is no memory for a debug run.";
    uintptr_t number = 0;
    try {
        number = BeginRun(target, callback, error);
    } catch (const std::exception &) {
        const std::lock_guard guard(TheCurrent().lock);
        TheCurrent().beginning = false;
    }
    if (number == 0) return kDbgFailed;
    *proc = reinterpret_cast<void *>(&ServeRun);
    *param = reinterpret_cast<void *>(number);
    return kDbgOk;
} catch (const std::exception &) {
    return kDbgFailed;
}

ENGINE_EXPORT int DbgDLLCleanup() try {
    std::shared_ptr<CRun> run;
    {
        const std::lock_guard guard(TheCurrent().lock);
        run = std::exchange(TheCurrent().run, nullptr);
    }
    if (run) run->End();
    return kDbgOk;
} catch (const std::exception &) {
    return kDbgFailed;
}

ENGINE_EXPORT int DbgLoadFile(const char *image) {
    return OnRun([&](CRun &run) {
        if (!image) return kDbgFailed;
        std::string error = "The simulator doesn't answer.";
        const bool good = run.Ask(
            Request::load, [&](CMessageWriter &out) { out.PutText(GetFullPathNameA(image)); }, {},
            [&](CMessageReader &in) { error = in.Text(); });
        KeepError(good ? std::string() : error);
        return Answer(good);
    });
}

ENGINE_EXPORT int DbgGetErrorText(char *buffer, int size) try {
    const std::lock_guard guard(TheCurrent().lock);
    return GiveText(TheCurrent().error, buffer, size);
} catch (const std::exception &) {
    return kDbgFailed;
}

ENGINE_EXPORT int DbgSetExecutionChangeCallback(DbgExecutionFn *fn, void *user) {
    return OnRun([&](CRun &run) { return run.SetExecution({fn, user}), kDbgOk; });
}

ENGINE_EXPORT int DbgSetClkCallBack(DbgClockFn *fn, void *user) {
    return OnRun([&](CRun &run) { return run.SetClock({fn, user}), kDbgOk; });
}

ENGINE_EXPORT int DbgRemoveClkCallBack(DbgClockFn *fn, void *user) {
    return OnRun([&](CRun &run) { return Answer(run.RemoveClock({fn, user})); });
}

ENGINE_EXPORT int DbgSetInstCallBack(DbgInstFn *fn, void *user) {
    return OnRun([&](CRun &run) { return run.SetInst({fn, user}), kDbgOk; });
}

ENGINE_EXPORT int DbgRemoveInstCallBack(DbgInstFn *fn, void *user) {
    return OnRun([&](CRun &run) { return Answer(run.RemoveInst({fn, user})); });
}

ENGINE_EXPORT int DbgPerformanceProfile(int on) {
    return OnRun([&](CRun &run) { return run.TellEachInstruction(on != 0), kDbgOk; });
}

ENGINE_EXPORT int DbgReset() {
    return Reset(false);
}
ENGINE_EXPORT int DbgPowerOnReset() {
    return Reset(true);
}
ENGINE_EXPORT int DbgRun() {
    return Start(RunKind::run);
}
ENGINE_EXPORT int DbgStepInto() {
    return Start(RunKind::stepInto);
}
ENGINE_EXPORT int DbgStepIntoInstr() {
    return Start(RunKind::stepIntoInstr);
}
ENGINE_EXPORT int DbgStepOver() {
    return Start(RunKind::stepOver);
}
ENGINE_EXPORT int DbgStepOverInstr() {
    return Start(RunKind::stepOverInstr);
}
ENGINE_EXPORT int DbgStepOut() {
    return GoWithWords(Request::start,
                       [](CMessageWriter &out) { out.PutNumber(static_cast<int>(RunKind::stepOut)); });
}
ENGINE_EXPORT int DbgStop() {
    return Ask(Request::stop);
}

ENGINE_EXPORT int DbgStepBack() {
    return GoWithWords(Request::stepBack, {});
}

ENGINE_EXPORT int DbgSimLock() {
    return Ask(Request::lock);
}
ENGINE_EXPORT int DbgSimUnlock() {
    return Ask(Request::unlock);
}

namespace {

// The exports have the types that the contract gives them.
[[maybe_unused]] constexpr DbgDLLInitFn *kInit = &DbgDLLInit;
[[maybe_unused]] constexpr DbgDLLCleanupFn *kCleanup = &DbgDLLCleanup;
[[maybe_unused]] constexpr DbgLoadFileFn *kLoad = &DbgLoadFile;
[[maybe_unused]] constexpr DbgGetErrorTextFn *kErrorText = &DbgGetErrorText;
[[maybe_unused]] constexpr DbgSetExecutionChangeCallbackFn *kExecution = &DbgSetExecutionChangeCallback;
[[maybe_unused]] constexpr DbgSetClkCallBackFn *kSetClk = &DbgSetClkCallBack;
[[maybe_unused]] constexpr DbgRemoveClkCallBackFn *kRemoveClk = &DbgRemoveClkCallBack;
[[maybe_unused]] constexpr DbgSetInstCallBackFn *kSetInst = &DbgSetInstCallBack;
[[maybe_unused]] constexpr DbgRemoveInstCallBackFn *kRemoveInst = &DbgRemoveInstCallBack;
[[maybe_unused]] constexpr DbgPerformanceProfileFn *kProfile = &DbgPerformanceProfile;
[[maybe_unused]] constexpr DbgCommandFn *kCommands[] = {
    &DbgReset,    &DbgPowerOnReset,  &DbgRun,     &DbgStop,     &DbgStepInto, &DbgStepIntoInstr,
    &DbgStepOver, &DbgStepOverInstr, &DbgStepOut, &DbgStepBack, &DbgSimLock,  &DbgSimUnlock};

}  // namespace
