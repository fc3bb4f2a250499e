#include "navigation/CtagsProcess.h"

#include <algorithm>

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kLongestNap = 100ms;

}  // namespace

CCtagsProcess::~CCtagsProcess() {
    Kill();
}

bool CCtagsProcess::Start(const std::string &commandLine) {
    return started_ = child_.Start(SplitCommandLine(commandLine), {});
}

bool CCtagsProcess::WaitForEnd(std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (started_ && !child_.HasEnded()) {
        DropOutput();
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        if (left <= 0ms) return child_.HasEnded();
        child_.WaitForData(std::min(left, kLongestNap));
    }
    return true;
}

// A full pipe would hold it up.
void CCtagsProcess::DropOutput() {
    char buffer[4096];
    for (const auto pipe : {CChildProcess::Pipe::output, CChildProcess::Pipe::error})
        while (child_.Read(pipe, buffer, sizeof buffer) > 0) {
        }
}

void CCtagsProcess::Kill() {
    if (!started_) return;
    child_.Kill();
    child_.WaitForExit();
}
