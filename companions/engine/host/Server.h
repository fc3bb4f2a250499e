// The live process of the simulator: answers calls, runs the target slice by slice, tells the debugger what happens.
#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "Session.h"
#include "Snapshots.h"
#include "protocol/Message.h"
#include "protocol/SharedBlock.h"

// One thread. Calls are answered between two slices, and whenever the target waits for the debugger within one.
class CServer : private CSessionEvents {
public:
    // `memory`: the block's file. `life`: a pipe that ends with the root process.
    CServer(SharedBlock &block, int memory, int life)
        : block_(block), memory_(memory), life_(life), snapshots_(block, life) {}

    [[noreturn]] void Run();

private:
    enum class Answer {
        refused,
        done,
        none
    };  // none: this process is a woken snapshot, whose call was answered long ago

    void InstructionDone(int address, int64_t cycles) override;
    void RegisterChanged(int handle, int value) override;
    void PinChanged(int pin, double volts) override;
    void Tell(int reason, const std::string &text) override;

    bool AnswerCall();
    Answer Perform(Request request, CMessageReader &in, CMessageWriter &out);
    Answer OpenChip(CMessageReader &in, CMessageWriter &out);
    Answer Load(CMessageReader &in, CMessageWriter &out);
    Answer Reset(bool powerOn);
    Answer Start(RunKind kind, CMessageWriter &out);
    Answer Stop();
    Answer StepBack(CMessageWriter &out);
    void Reply(bool good, size_t size);
    CMessageWriter ReplyRoom();

    bool StoreSettings();
    Answer BecomeLive();

    bool IsStanding() const { return !running_ && !stop_; }
    bool IsHeld() const { return block_.eventWaits != 0 || block_.locks > 0; }
    void RunSlice();
    bool LingersForCalls();
    bool TellChange();  // one that no slice has told; when the last event has been dealt with
    void TellStop();
    void PostRegister(int handle, int value);
    void PostPin(int pin, double volts);
    template <typename Fill>
    void Post(EventKind kind, Fill fill);  // once the last event has been dealt with
    void AwaitRelease();                   // until the event has been dealt with and no lock holds the target
    template <typename Condition>
    void Await(Condition condition);  // answers calls meanwhile
    void WaitForBell(uint32_t seen);
    void LeaveIfAlone();  // when the root process has ended
    void FillClock(SharedEvent &event, int64_t cycles);

    SharedBlock &block_;
    int memory_, life_;
    CSnapshots snapshots_;
    std::unique_ptr<CSession> session_;
    bool loaded_ = false, wasReset_ = false;
    bool running_ = false;
    std::optional<int> stop_;  // the reason of a stop that the debugger hasn't been told yet
    int64_t toldCycles_ = 0;   // at the last clock
    int changesInARow_ = 0;    // told with neither a slice nor a stop between them
    bool lingers_ = false;     // the last thing done was to answer a call
    std::chrono::steady_clock::time_point toldAt_, slicedAt_;
};
