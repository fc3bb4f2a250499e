#include "build/XRedirect.h"

#include <system_error>

#include "build/ConsoleLineSplitter.h"
#include "platform/ProgramDirectory.h"

namespace {

using namespace std::chrono_literals;

constexpr const char *kLauncher = "pspawn.exe";
constexpr size_t kReadBytes = 8192;
constexpr size_t kMostDrainRounds = 1024;  // more than the largest pipe holds
constexpr auto kRoundWithoutData = 40ms;
constexpr auto kWaitWithoutEvent = 500ms;

}  // namespace

CXRedirect::CXRedirect() = default;

CXRedirect::~CXRedirect() {
    abandoned_ = true;
    if (worker_.joinable()) worker_.join();
}

bool CXRedirect::Start(const std::string &command, const std::string &directory, int32_t parameter) {
    if (command.empty() || exists_ || worker_.get_id() == std::this_thread::get_id()) return false;
    if (worker_.joinable()) worker_.join();  // past its last callback
    command_ = command;
    directory_ = directory;
    parameter_ = parameter;
    exitCode_ = 1;
    stopEvent_.Reset();
    stopping_ = abandoned_ = terminated_ = workerEnded_ = false;
    exists_ = true;
    try {
        worker_ = std::thread(&CXRedirect::Work, this);
    } catch (const std::system_error &) {
        exists_ = false;
        return false;
    }
    return true;
}

void CXRedirect::RequestStop() {
    if (!exists_ || stopping_) return;
    const bool hasEvent = stopEvent_.Descriptor() != -1;
    stopLimit_ = std::chrono::steady_clock::now() + (hasEvent ? kStopLimit : kWaitWithoutEvent);
    stopping_ = true;
    if (hasEvent) stopEvent_.Set();
}

int CXRedirect::Stop() {
    if (!worker_.joinable()) return exitCode_;
    if (!WaitForWorker(std::chrono::steady_clock::now() + 1ms)) {
        RequestStop();
        if (!WaitForWorker(stopLimit_)) abandoned_ = true;
    }
    worker_.join();
    Terminate();
    return exitCode_;
}

void CXRedirect::StopIfOverdue() {
    if (exists_ && stopping_ && std::chrono::steady_clock::now() >= stopLimit_) Stop();
}

// The last callback comes once, from the worker or from who gave the worker up.
void CXRedirect::Terminate() {
    if (!terminated_.exchange(true)) OnChildTerminate();
    exists_ = false;
}

bool CXRedirect::WaitForWorker(std::chrono::steady_clock::time_point limit) {
    std::unique_lock lock(mutex_);
    return ended_.wait_until(lock, limit, [this] { return workerEnded_; });
}

void CXRedirect::Work() {
    {
        ConsoleLineSplitter splitter([this](std::string_view line) { OnChildWrite(line); });
        CChildProcess child;
        if (Launch(child, splitter)) ReadUntilEnd(child, splitter);
        if (!abandoned_) splitter.Finish();
    }
    if (!abandoned_) Terminate();
    std::lock_guard lock(mutex_);
    workerEnded_ = true;
    ended_.notify_all();
}

bool CXRedirect::Launch(CChildProcess &child, ConsoleLineSplitter &splitter) {
    const std::string parameter = std::to_string(parameter_), event = std::to_string(stopEvent_.Descriptor());
    if (!child.Start({kLauncher, parameter, event, command_}, directory_, stopEvent_.Descriptor())) {
        const bool missing = FindProgram(kLauncher).empty();
        splitter.Add(std::string("Error: ") + kLauncher + (missing ? " is missing" : " can't be run") + "\n");
        return false;
    }
    OnChildStarted(std::string(kLauncher) + " " + parameter + " " + event + " " + command_);
    return true;
}

void CXRedirect::ReadUntilEnd(CChildProcess &child, ConsoleLineSplitter &splitter) {
    using Pipe = CChildProcess::Pipe;
    while (!abandoned_) {
        bool seen = ReadOnce(child, Pipe::output, splitter);
        seen = ReadOnce(child, Pipe::error, splitter) || seen;
        if (child.HasEnded()) break;
        if (!seen) child.WaitForData(kRoundWithoutData);
    }
    if (abandoned_) return;
    exitCode_ = child.WaitForExit().value_or(1);
    // What the pipes still hold. A process that outlives the launcher and goes on writing is not waited for.
    for (const Pipe pipe : {Pipe::output, Pipe::error})
        for (size_t round = 0; round < kMostDrainRounds && !abandoned_ && ReadOnce(child, pipe, splitter); ++round) {
        }
}

bool CXRedirect::ReadOnce(CChildProcess &child, CChildProcess::Pipe pipe, ConsoleLineSplitter &splitter) {
    char buffer[kReadBytes];
    const size_t count = child.Read(pipe, buffer, sizeof buffer);
    splitter.Add({buffer, count});
    return count > 0;
}
