#include "ToolRun.h"

#include <csignal>

#include "platform/ChildProcess.h"

namespace {

constexpr size_t kLongestLine = 64 * 1024;
constexpr int kEndlessRepeats = 1000;

volatile std::sig_atomic_t receivedSignal = 0;
volatile std::sig_atomic_t childPid = 0;

void HandOn(int signal) {
    receivedSignal = signal;
    if (childPid > 0) kill(static_cast<pid_t>(childPid), signal);
}

class CLineSplitter {
public:
    explicit CLineSplitter(const std::function<void(std::string_view)> &onLine) : onLine_(onLine) {}

    void Add(std::string_view bytes) {
        for (size_t begin = 0; begin < bytes.size();) {
            const size_t end = bytes.find('\n', begin);
            const bool whole = end != std::string_view::npos;
            line_.append(bytes.substr(begin, whole ? end - begin : bytes.size() - begin));
            begin = whole ? end + 1 : bytes.size();
            if (whole || line_.size() >= kLongestLine) Flush(whole);
        }
    }

    void Flush(bool whole) {
        if (whole && line_.ends_with('\r')) line_.pop_back();
        if (!whole && line_.empty()) return;
        onLine_(line_);
        line_.clear();
    }

private:
    const std::function<void(std::string_view)> &onLine_;
    std::string line_;
};

}  // namespace

ToolResult RunTool(const std::vector<std::string> &words, Repetition repetition,
                   const std::function<void(std::string_view)> &onLine) {
    ToolResult result;
    CChildProcess child;
    struct sigaction action = {};
    action.sa_handler = HandOn;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
    if (!child.Start(words, "")) return result;
    result.started = true;
    childPid = child.Pid();
    if (receivedSignal) kill(child.Pid(), receivedSignal);

    std::string previous;
    int repeats = 0;
    const std::function<void(std::string_view)> dropRepeats = [&](std::string_view line) {
        repeats = repetition == Repetition::end && line.size() < kLongestLine && line == previous ? repeats + 1 : 0;
        previous = line;
        if (repeats == 0) onLine(line);
    };
    CLineSplitter output(dropRepeats), error(dropRepeats);
    const auto readAll = [&] {
        char buffer[16384];
        size_t total = 0;
        if (const size_t size = child.Read(CChildProcess::Pipe::output, buffer, sizeof buffer)) {
            output.Add({buffer, size});
            total += size;
        }
        if (const size_t size = child.Read(CChildProcess::Pipe::error, buffer, sizeof buffer)) {
            error.Add({buffer, size});
            total += size;
        }
        return total > 0;
    };

    for (;;) {
        const bool ended = child.HasEnded();
        while (readAll() && repeats < kEndlessRepeats) {
        }
        if (repeats >= kEndlessRepeats && !ended) {
            result.stoppedByUs = true;
            kill(child.Pid(), SIGKILL);
            break;
        }
        if (ended) break;
        child.WaitForData(std::chrono::milliseconds(200));
    }
    if (!result.stoppedByUs) {  // else the rest is a repeated line, cut anywhere
        output.Flush(false);
        error.Flush(false);
    }
    result.exitCode = child.WaitForExit().value_or(1);
    childPid = 0;
    result.signal = receivedSignal;
    return result;
}
