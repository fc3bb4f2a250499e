#include "build/MyRedirect.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>

#include "app/MainFrame.h"

namespace {

// What may wait for the receiver: so many lines, and so many bytes in them.
constexpr size_t kMostLinesWaiting = 20000;
constexpr size_t kFewestLinesWaiting = 256;
constexpr double kBytesWaiting = 8 * 1024 * 1024;
constexpr double kLengthMemory = 64;  // lines over which the typical length is levelled

}  // namespace

CMyRedirect::~CMyRedirect() { Stop(); }

bool CMyRedirect::RunCommand(const std::string &command, const std::string &directory, int32_t parameter) {
    std::lock_guard lock(callbackMutex_);
    return !busy_ && Start(command, directory, parameter);
}

void CMyRedirect::OnChildStarted(const std::string &) {
    std::lock_guard lock(callbackMutex_);
    busy_ = true;
}

void CMyRedirect::OnChildWrite(std::string_view line) {
    if (!WaitForReceiver(line.size())) return;
    std::lock_guard lock(callbackMutex_);
    receiver_.Post(kMsgOutputText, std::make_unique<std::string>(line));
}

void CMyRedirect::OnChildTerminate() {
    std::lock_guard lock(callbackMutex_);
    CXRedirect::OnChildTerminate();
    busy_ = false;
    receiver_.Post(kMsgChildEnded);
}

// Without the lock, because the receiver may want it meanwhile. False for a line that is to be dropped: the user has
// stopped the command, and as much waits as may.
bool CMyRedirect::WaitForReceiver(size_t lineLength) {
    typicalLength_ += (static_cast<double>(lineLength) - typicalLength_) / kLengthMemory;
    const auto linesOfThatLength = static_cast<size_t>(kBytesWaiting / (typicalLength_ + 1));
    const size_t limit = std::clamp(linesOfThatLength, kFewestLinesWaiting, kMostLinesWaiting);
    while (WaitingMessages() > limit) {
        if (IsStopping()) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}
