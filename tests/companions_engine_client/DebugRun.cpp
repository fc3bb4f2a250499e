#include "DebugRun.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>

#include "platform/NativePath.h"

namespace fs = std::filesystem;

CDebugger::CDebugger(const char *programDirectory) {
    setenv("THORNWELL_PROGRAM_DIR", programDirectory, 1);
    library_ = CSharedLibrary(FromNativePath(DEBUGGER_FILE));
    EXPECT_TRUE(library_.IsLoaded()) << library_.Error();
}

std::string CDebugger::Evaluate(const char *expression, int format) const {
    char text[4096], error[256] = "";
    const int answer = Call<DbgEvaluateFn>("DbgEvaluate", expression, text, int{sizeof text}, format, error);
    return answer == kDbgOk ? text : std::string("!") + error;
}

int64_t CDebugger::Clk() const {
    int64_t cycles = -1;
    Call<DbgGetClkFn>("DbgGetClk", &cycles);
    return cycles;
}

CDebugRun::CDebugRun(const CDebugger &debugger, bool reset, const std::string &chip, const std::string &image)
    : debugger_(debugger) {
    void *proc = nullptr, *param = nullptr;
    EXPECT_EQ(debugger.Call<DbgDLLInitFn>("DbgDLLInit", &proc, &param, chip.c_str(), &OnExecution, nullptr), kDbgOk);
    EXPECT_NE(proc, nullptr);
    if (!proc) return;
    thread_ = std::thread([this, proc, param] {
        reinterpret_cast<void (*)(void *)>(proc)(param);
        const std::lock_guard guard(lock_);
        returned_ = true;
        changed_.notify_all();
    });
    EXPECT_EQ(debugger.Call<DbgSetExecutionChangeCallbackFn>("DbgSetExecutionChangeCallback", &OnExecution, this),
              kDbgOk);
    if (!image.empty()) {
        EXPECT_EQ(debugger.Call<DbgLoadFileFn>("DbgLoadFile", image.c_str()), kDbgOk);
    }
    if (reset) {
        EXPECT_EQ(Do("DbgReset").reason, kDbgAfterReset);
    }
}

CDebugRun::~CDebugRun() {
    EXPECT_EQ(debugger_.Command("DbgDLLCleanup"), kDbgOk);
    if (thread_.joinable()) thread_.join();
}

void CDebugRun::OnExecution(int reason, const char *file, int line, int address, const char *text, void *user) {
    auto *const run = static_cast<CDebugRun *>(user);
    if (!run) return;
    if (reason != kDbgText && run->onStop) run->onStop();
    const std::lock_guard guard(run->lock_);
    if (reason == kDbgText)
        run->texts_.push_back(text ? text : "(clear)");
    else
        run->stops_.push_back({reason, line, address, file});
    run->changed_.notify_all();
}

Stop CDebugRun::AwaitStop() {
    std::unique_lock guard(lock_);
    if (!changed_.wait_for(guard, std::chrono::seconds(10), [this] { return stops_.size() > awaited_; })) return {};
    return stops_[awaited_++];
}

Stop CDebugRun::Do(const char *command) {
    if (debugger_.Command(command) != kDbgOk) return {-1, 0, 0, command};
    return AwaitStop();
}

bool CDebugRun::HasReturned(std::chrono::milliseconds limit) {
    std::unique_lock guard(lock_);
    return changed_.wait_for(guard, limit, [this] { return returned_; });
}

std::vector<std::string> CDebugRun::Texts() {
    const std::lock_guard guard(lock_);
    return texts_;
}

namespace {

size_t CountEntries(const char *directory) {
    return static_cast<size_t>(std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
}

std::vector<int> ChildrenOf(int parent) {
    std::vector<int> children;
    std::error_code failure;
    for (const auto &task : fs::directory_iterator("/proc/" + std::to_string(parent) + "/task", failure)) {
        std::ifstream list(task.path() / "children");
        for (int child; list >> child;) children.push_back(child);
    }
    return children;
}

}  // namespace

Belongings CountBelongings() {
    size_t mappings = 0;
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) mappings += line.find("thornwell-simulator") != line.npos;
    return {CountEntries("/proc/self/fd"), CountEntries("/proc/self/task"), ChildrenOf(getpid()).size(), mappings};
}

void PrintTo(const Belongings &belongings, std::ostream *out) {
    *out << belongings.descriptors << " descriptors, " << belongings.threads << " threads, " << belongings.children
         << " children, " << belongings.mappings << " mappings";
}

std::vector<int> HostProcesses(int parent) {
    std::vector<int> all = ChildrenOf(parent);
    for (size_t i = 0; i < all.size(); ++i)
        for (const int child : ChildrenOf(all[i])) all.push_back(child);
    return all;
}

bool WaitUntil(const std::function<bool()> &condition, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}
