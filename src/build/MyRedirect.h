// The build's child process: its lines and its end become messages to the main frame.
#pragma once

#include <atomic>
#include <mutex>
#include <string>

#include "build/XRedirect.h"
#include "framework/MessageTarget.h"

// Posts kMsgOutputText with each line and kMsgChildEnded behind the last one. When the receiver falls behind, the
// worker waits, so that what waits to be shown stays bounded.
class CMyRedirect : public CXRedirect {
public:
    CMyRedirect() = default;
    ~CMyRedirect() override;

    // Who gets the messages; without a receiver they are dropped. Set while no child runs.
    void SetPort(const CMessagePort &receiver) { receiver_ = receiver; }

    // Main thread. False when the command is empty or a child runs.
    bool RunCommand(const std::string &command, const std::string &directory, int32_t parameter);

    bool IsBusy() const { return busy_; }  // a child runs; any thread, without the lock

protected:
    void OnChildStarted(const std::string &launcherCommand) override;
    void OnChildWrite(std::string_view line) override;
    void OnChildTerminate() override;

private:
    bool WaitForReceiver(size_t lineLength);

    CMessagePort receiver_;
    std::atomic<bool> busy_{false};
    std::mutex callbackMutex_;  // makes Start and the callbacks exclude each other
    double typicalLength_ = 0;   // of the lines lately, in bytes; worker only
};
