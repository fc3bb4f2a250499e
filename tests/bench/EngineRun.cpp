// How fast the engine lets a chip run, as the IDE drives it, against the simulator's own program on the same image.
#include <chrono>
#include <condition_variable>
#include <fstream>
#include <mutex>
#include <thread>

#include "bench/Benchmarks.h"
#include "bench/Measure.h"
#include "debugger/EngineApi.h"
#include "platform/NativePath.h"
#include "platform/SharedLibrary.h"
#include "support/Scratch.h"

namespace {

constexpr int kRounds = 5;
constexpr std::chrono::milliseconds kWindow{500};
constexpr int64_t kPeerCycles = 50'000'000, kPeerStart = 1'000;
constexpr double kMillion = 1e6;

struct Program {
    const char *example, *chip;
    std::vector<std::string> sources;
    const char *conditional;  // the source whose lines get breakpoints
    const char *condition;    // one that never holds
};

const Program kPrograms[] = {
    {"blink", "16F628A", {"main", "led", "timer"}, "led.asm", "port_image == 99"},
    {"greeting", "18F4520", {"main", "serial", "starts", "texts"}, "serial.asm", "delay_high == 999"},
};

// A debug run of the engine without the IDE around it; its callbacks are there, as the IDE's are.
class CEngineRun {
public:
    CEngineRun(const std::string &chip, const std::string &image) : engine_(FromNativePath(THORNWELL_ENGINE)) {
        Require(engine_.IsLoaded(), engine_.Error());
        void *proc = nullptr, *param = nullptr;
        Call<DbgDLLInitFn>("DbgDLLInit", &proc, &param, chip.c_str(), nullptr, nullptr);
        Require(proc != nullptr, "the engine doesn't begin");
        thread_ = std::thread([proc, param] { reinterpret_cast<void (*)(void *)>(proc)(param); });
        Call<DbgLoadFileFn>("DbgLoadFile", image.c_str());
        Call<DbgSetExecutionChangeCallbackFn>("DbgSetExecutionChangeCallback", &OnExecution, this);
        Call<DbgSetClkCallBackFn>("DbgSetClkCallBack", &OnClock, this);
        Call<DbgSetInstCallBackFn>("DbgSetInstCallBack", &OnInstruction, this);
        Call<DbgPerformanceProfileFn>("DbgPerformanceProfile", 0);
        Do("DbgReset");
    }
    ~CEngineRun() {
        engine_.Get<DbgDLLCleanupFn>("DbgDLLCleanup")();
        thread_.join();
    }

    void Break(const std::string &file, int count, const std::string &condition) {
        const auto set = engine_.Get<DbgSetBreakpointByLineFn>("DbgSetBreakpointByLine");
        for (int line = 1; count > 0; ++line) {
            Require(line < 1000, "a source has too few lines of code");
            int id = 0;
            if (set(file.c_str(), line, &id) != kDbgOk) continue;
            Call<DbgSetBreakpointConditionsFn>("DbgSetBreakpointConditions", id, condition.c_str(), int{kDbgWhenTrue},
                                               0, int{kDbgNoHit});
            --count;
        }
    }

    // Millions of cycles a second in a part of a free run.
    double Rate() {
        Call<DbgCommandFn>("DbgRun");
        const int64_t from = Cycles();
        const auto begin = std::chrono::steady_clock::now();
        std::this_thread::sleep_for(kWindow);
        const int64_t cycles = Cycles() - from;
        const Milliseconds time = std::chrono::steady_clock::now() - begin;
        Do("DbgStop");
        return static_cast<double>(cycles) / (time.count() / 1000) / kMillion;
    }

    Milliseconds Step() {
        return Elapsed([this] { Do("DbgStepIntoInstr"); });
    }
    // From the end of a part of a free run, some ten million cycles, to its beginning.
    Milliseconds StepBack() {
        Rate();
        return Elapsed([this] { Do("DbgStepBack"); });
    }

private:
    template <typename Fn, typename... Arguments>
    void Call(const char *name, Arguments... arguments) {
        Require(engine_.Get<Fn>(name)(arguments...) == kDbgOk, std::string(name) + " is refused");
    }
    int64_t Cycles() {
        int64_t cycles = 0;
        Call<DbgGetClkFn>("DbgGetClk", &cycles);
        return cycles;
    }
    void Do(const char *command) {
        std::unique_lock guard(lock_);
        stopped_ = false;
        guard.unlock();
        Call<DbgCommandFn>(command);
        guard.lock();
        Require(changed_.wait_for(guard, std::chrono::seconds(10), [this] { return stopped_; }), "no stop comes");
    }

    static void OnExecution(int reason, const char *, int, int, const char *, void *user) {
        if (reason != kDbgStopped && reason != kDbgAfterReset && reason != kDbgAfterStepBack) return;
        auto &run = *static_cast<CEngineRun *>(user);
        const std::lock_guard guard(run.lock_);
        run.stopped_ = true;
        run.changed_.notify_all();
    }
    static void OnClock(int, int, void *) { std::this_thread::yield(); }
    static void OnInstruction(int, int, void *) {}

    CSharedLibrary engine_;
    std::thread thread_;
    std::mutex lock_;
    std::condition_variable changed_;
    bool stopped_ = false;
};

// The same of the simulator's program: what lies between a run to few cycles and one to many.
double PeerRate(const std::string &folder) {
    const auto run = [&](int64_t cycles) {
        std::ofstream(folder + "/commands") << "break c " << cycles << "\nrun\nquit\n";
        return Elapsed([&] { RunToEnd({"sh", "-c", "gpsim -i -s x.cod -c commands </dev/null 2>&1"}, folder); });
    };
    const Milliseconds start = run(kPeerStart), all = run(kPeerCycles);
    return static_cast<double>(kPeerCycles - kPeerStart) / ((all - start).count() / 1000) / kMillion;
}

}  // namespace

void BenchEngineRun() {
    for (const Program &program : kPrograms) {
        const CScratch scratch;
        scratch.CopyExample(program.example);
        const std::string folder = scratch.Native(program.example);
        std::vector<std::string> link = {"gplink", "-c", "-o", "x.hex"};
        for (const std::string &source : program.sources) {
            RunToEnd({"gpasm", "-c", "-p", program.chip, source + ".asm"}, folder);
            link.push_back(source + ".o");
        }
        RunToEnd(link, folder);

        CEngineRun run(program.chip, FromNativePath(folder + "/x.cof"));
        const auto rate = [&] { return run.Rate(); };
        const auto peer = [&] { return PeerRate(folder); };
        const std::string unit = "million cycles/s", by = "gpsim's program on the same image";
        Report("free run, PIC" + std::string(program.chip), Compare(kRounds, rate, peer), unit, by);
        Report("step back over a free run, PIC" + std::string(program.chip),
               Compare(
                   kRounds, [&] { return run.StepBack().count(); }, [&] { return run.Step().count(); }),
               "ms", "a step by one instruction");
        run.Break(FromNativePath(folder + "/" + program.conditional), 10, program.condition);
        Report("free run with 10 conditional breakpoints, PIC" + std::string(program.chip),
               Compare(kRounds, rate, peer), unit, by);
    }
}
