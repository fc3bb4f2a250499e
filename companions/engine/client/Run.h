// One debug run, seen from the debugger: the simulator's process, the calls to it, the thread that brings its events.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "Callbacks.h"
#include "HostProcess.h"
#include "ReadAhead.h"
#include "protocol/Message.h"

// Any thread, unless said otherwise. Whoever works with a run holds a reference to it, so that it may end meanwhile.
class CRun {
public:
    using Put = std::function<void(CMessageWriter &)>;
    using Take = std::function<void(CMessageReader &)>;

    // A process with the chip that `target` names; null with the reason in `error`.
    static std::shared_ptr<CRun> Begin(const std::string &target, ExecutionCallback callback, std::string &error);
    ~CRun() { End(); }

    // The engine's thread: makes the callbacks until the run ends or its process is lost.
    void Serve();

    // No callback begins after it, and the calls that are being made fail. Doesn't wait for a callback that is being
    // made, so it may come from one.
    void End();

    // One call. False: the process failed it, or isn't there to answer. `take` gets what the reply holds behind the
    // success; `takeFailure` the same of a failure. They run on the caller's thread, and not when there is no reply.
    bool Ask(Request request, const Put &put = {}, const Take &take = {}, const Take &takeFailure = {});

    // A call that sets the target going: a stop is to come when it succeeds.
    bool Go(Request request, const Put &put = {}, const Take &takeFailure = {});

    // A byte of data memory and of EEPROM; see CReadAhead for walks over them. Empty: it can't be read.
    std::optional<int> ReadData(int address);
    std::optional<int> ReadEeprom(int address);

    // What the process is to tell.
    void TellEachInstruction(bool on) { host_.Block()->eachInstruction = on ? 1 : 0; }
    void SetClock(ClockCallback callback);
    void SetInst(InstCallback callback);
    bool RemoveClock(ClockCallback callback);
    bool RemoveInst(InstCallback callback);
    void SetExecution(ExecutionCallback callback) { callbacks_.SetExecution(callback); }

    // Change callbacks: `watch` is the call that makes the process tell the changes of a handle.
    template <typename Fn>
    bool AddChange(Request watch, ChangeCallback<Fn> callback) {
        const std::lock_guard guard(changes_);
        if (!callback.fn || !Watch(watch, callback.handle, true)) return false;
        callbacks_.Add(callback);
        return true;
    }
    template <typename Fn>
    bool RemoveChange(Request watch, ChangeCallback<Fn> callback) {
        const std::lock_guard guard(changes_);
        bool wasLast = false;
        if (!callbacks_.Remove(callback, wasLast)) return false;
        if (wasLast) Watch(watch, callback.handle, false);
        return true;
    }

private:
    CRun() = default;

    bool AwaitReply();
    std::optional<int> Read(CReadAhead &ahead, int address, const CReadAhead::Fetch &fetch,
                            const std::function<std::optional<int>()> &readOne);
    bool IsLost() const { return lost_ || host_.Block()->gone != 0; }
    bool Watch(Request watch, int handle, bool on);
    void Deliver(const SharedEvent &event);
    void DeliverStop(const SharedEvent &event);
    void DeliverClock(int passed, int clk);
    void TellLoss();

    CHostProcess host_;
    CCallbacks callbacks_;
    std::mutex calls_;    // one call at a time
    std::mutex changes_;  // change callbacks and what the process is told of them
    std::mutex ending_;
    std::atomic<bool> ended_ = false;
    std::atomic<bool> lost_ = false;  // it has left a call without an answer
    std::atomic<int> stopsToCome_ = 0;
    std::atomic<uint64_t> state_ = 0;  // grows with whatever may have changed the chip's state
    std::atomic<std::thread::id> engineThread_;
    CReadAhead data_, eeprom_;
};
