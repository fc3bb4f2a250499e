#include "Server.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

#include "SessionCalls.h"
#include "debugger/EngineApi.h"

namespace {

constexpr std::chrono::milliseconds kClockInterval{50};  // of the clock event, with the profile off
constexpr std::chrono::milliseconds kLookInterval{250};  // for the end of the root process, at rest

constexpr std::chrono::milliseconds kLinger{1};      // between two calls, while the target runs
constexpr std::chrono::milliseconds kMostLinger{10};  // without a slice

// As much of a text as fits, without a cut character at its end.
template <size_t size>
void CopyText(char (&to)[size], const std::string &text) {
    size_t length = std::min(text.size(), size - 1);
    while (length < text.size() && length > 0 && (text[length] & 0xC0) == 0x80) --length;
    memcpy(to, text.data(), length);
    to[length] = 0;
}

void FillPlace(SharedEvent &event, const SessionPlace &place) {
    CopyText(event.file, place.file);
    event.line = place.line;
    event.address = place.address;
}

}  // namespace

void CServer::Run() {
    for (;;) {
        const uint32_t seen = block_.toHost.Count();
        const bool ran = running_;
        if (AnswerCall()) {
            lingers_ = ran;
            continue;
        }
        if (block_.eventWaits == 0 && TellChange()) continue;
        if (stop_ && block_.eventWaits == 0) {
            TellStop();
        } else if (running_ && !stop_ && !IsHeld()) {
            changesInARow_ = 0;
            if (LingersForCalls())
                block_.toHost.Wait(seen, kLinger);
            else
                RunSlice();
        } else {
            WaitForBell(seen);
        }
    }
}

void CServer::RunSlice() {
    session_->TellInstructions(block_.eachInstruction != 0);
    const CSession::SliceEnd end = session_->Slice(*this);
    if (end.stopped) {
        stop_ = end.reason;
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    slicedAt_ = now;
    if (now - toldAt_ < kClockInterval) return;
    toldAt_ = now;
    LeaveIfAlone();
    if (block_.wantsClock == 0 || block_.eachInstruction != 0) return;
    Post(EventKind::clock, [&](SharedEvent &event) { FillClock(event, session_->Cycles()); });
}

// Behind a call mostly comes the next one: a view that reads many values while the target runs doesn't wait a slice for
// each. The target gets its turn all the same.
bool CServer::LingersForCalls() {
    return std::exchange(lingers_, false) && std::chrono::steady_clock::now() - slicedAt_ < kMostLinger;
}

// Such a change can be the answer to the one before it, without end: a stop and a slice get their turn all the same.
bool CServer::TellChange() {
    constexpr int kMostInARow = 1000;
    if (!session_ || ((running_ || stop_) && changesInARow_ >= kMostInARow)) return false;
    const auto change = session_->TakeChange();
    if (!change) return false;
    ++changesInARow_;
    change->isPin ? PostPin(change->handle, change->volts) : PostRegister(change->handle, change->value);
    return true;
}

void CServer::TellStop() {
    changesInARow_ = 0;
    const int reason = *stop_;
    running_ = false;
    stop_.reset();
    Post(EventKind::stop, [&](SharedEvent &event) {
        event.reason = reason;
        FillPlace(event, session_->Place());
        FillClock(event, session_->Cycles());
    });
}

// --- Events of a slice ---

void CServer::InstructionDone(int address, int64_t cycles) {
    if (block_.eachInstruction == 0 || (block_.wantsClock == 0 && block_.wantsInstructions == 0)) return;
    Post(EventKind::instruction, [&](SharedEvent &event) {
        event.address = address;
        FillClock(event, cycles);
    });
    AwaitRelease();
}

void CServer::RegisterChanged(int handle, int value) {
    PostRegister(handle, value);
    AwaitRelease();
}

void CServer::PinChanged(int pin, double volts) {
    PostPin(pin, volts);
    AwaitRelease();
}

void CServer::PostRegister(int handle, int value) {
    Post(EventKind::registerChanged, [&](SharedEvent &event) {
        event.handle = handle;
        event.value = value;
    });
}

void CServer::PostPin(int pin, double volts) {
    Post(EventKind::pinChanged, [&](SharedEvent &event) {
        event.handle = pin;
        event.volts = volts;
    });
}

void CServer::Tell(int reason, const std::string &text) {
    Post(EventKind::tell, [&](SharedEvent &event) {
        event.reason = reason;
        event.hasText = reason == kDbgText ? 1 : 0;
        FillPlace(event, session_->Place());
        CopyText(event.text, text);
    });
    AwaitRelease();
}

void CServer::FillClock(SharedEvent &event, int64_t cycles) {
    event.clk = static_cast<int32_t>(static_cast<uint32_t>(cycles));
    event.passed = static_cast<int32_t>(static_cast<uint32_t>(cycles - toldCycles_));
    toldCycles_ = cycles;
}

template <typename Fill>
void CServer::Post(EventKind kind, Fill fill) {
    Await([this] { return block_.eventWaits == 0; });
    block_.event.kind = kind;
    fill(block_.event);
    block_.eventWaits = 1;
    block_.toEngine.Ring();
}

void CServer::AwaitRelease() {
    Await([this] { return !IsHeld(); });
}

template <typename Condition>
void CServer::Await(Condition condition) {
    for (;;) {
        const uint32_t seen = block_.toHost.Count();
        if (condition()) return;
        if (AnswerCall()) continue;
        WaitForBell(seen);
    }
}

void CServer::WaitForBell(uint32_t seen) {
    block_.toHost.Wait(seen, kLookInterval);
    if (block_.toHost.Count() == seen) LeaveIfAlone();
}

void CServer::LeaveIfAlone() {
    if (!CSnapshots::HasEnded(life_)) return;
    block_.DismissSnapshots();
    _exit(0);
}

// --- Calls ---

bool CServer::AnswerCall() {
    if (block_.call != CallState::asked) return false;
    const size_t size = std::min<size_t>(block_.requestSize, sizeof block_.requestBytes);
    CMessageReader in(std::span<const std::byte>(block_.requestBytes, size));
    CMessageWriter out = ReplyRoom();
    const Answer answer = Perform(block_.request, in, out);
    if (answer == Answer::none) return true;
    Reply(answer == Answer::done && in.IsGood() && out.Fits(), out.Fits() ? out.Size() : 0);
    return true;
}

CMessageWriter CServer::ReplyRoom() {
    return CMessageWriter(std::span(block_.replyBytes).subspan(sizeof(int64_t)));
}

void CServer::Reply(bool good, size_t size) {
    CMessageWriter(block_.replyBytes).PutNumber(good ? 1 : 0);
    block_.replySize = static_cast<uint32_t>(sizeof(int64_t) + size);
    block_.call = CallState::answered;
    block_.toCaller.Ring();
}

CServer::Answer CServer::Perform(Request request, CMessageReader &in, CMessageWriter &out) {
    if (request == Request::openChip) return OpenChip(in, out);
    if (!session_) return Answer::refused;
    switch (request) {
        case Request::load:
            return Load(in, out);
        case Request::reset:
            return Reset(in.Int() != 0);
        case Request::start:
            return Start(static_cast<RunKind>(in.Int()), out);
        case Request::stop:
            return Stop();
        case Request::stepBack:
            return StepBack(out);
        case Request::lock:
            ++block_.locks;
            return Answer::done;
        case Request::unlock:
            if (block_.locks == 0) return Answer::refused;
            --block_.locks;
            return Answer::done;
        default:
            return AskSession(*session_, request, in, out) ? Answer::done : Answer::refused;
    }
}

CServer::Answer CServer::OpenChip(CMessageReader &in, CMessageWriter &out) {
    if (session_) return Answer::refused;
    std::string error;
    session_ = CreateSession(in.Text(), error);
    if (!session_) out.PutText(error);
    return session_ ? Answer::done : Answer::refused;
}

CServer::Answer CServer::Load(CMessageReader &in, CMessageWriter &out) {
    std::string error = "A program has been loaded already.";
    const bool good = !loaded_ && session_->Load(in.Text(), error);
    if (!good) out.PutText(error);
    loaded_ = loaded_ || good;
    return good ? Answer::done : Answer::refused;
}

CServer::Answer CServer::Reset(bool powerOn) {
    if (!loaded_ || !IsStanding()) return Answer::refused;
    // There is nothing to go back to before the first one.
    const auto taken = wasReset_ ? snapshots_.Take() : CSnapshots::Taken::none;
    if (taken == CSnapshots::Taken::woken) return BecomeLive();
    if (!session_->Reset(powerOn)) {
        if (taken == CSnapshots::Taken::going) snapshots_.DropYoungest();
        return Answer::refused;
    }
    wasReset_ = true;
    toldCycles_ = session_->Cycles();
    stop_ = kDbgAfterReset;
    return Answer::done;
}

CServer::Answer CServer::Start(RunKind kind, CMessageWriter &out) {
    if (!wasReset_ || !IsStanding()) return Answer::refused;
    // A step out of nothing isn't to cost the oldest snapshot.
    const bool isNothing = kind == RunKind::stepOut && session_->FrameList().value_or("").empty();
    const auto taken = isNothing ? CSnapshots::Taken::none : snapshots_.Take();
    if (taken == CSnapshots::Taken::woken) return BecomeLive();
    if (isNothing || !session_->Start(kind)) {
        if (taken == CSnapshots::Taken::going) snapshots_.DropYoungest();
        if (kind == RunKind::stepOut) out.PutText("Nothing was called.");
        return Answer::refused;
    }
    running_ = true;
    toldAt_ = std::chrono::steady_clock::now();
    return Answer::done;
}

CServer::Answer CServer::Stop() {
    if (IsStanding()) return Answer::refused;
    if (!stop_) session_->Stop();
    return Answer::done;
}

CServer::Answer CServer::StepBack(CMessageWriter &out) {
    if (!IsStanding()) return Answer::refused;
    if (!snapshots_.HasYoungest()) {
        out.PutText("There is no earlier stop.");
        return Answer::refused;
    }
    if (!StoreSettings()) return Answer::refused;
    Reply(true, 0);  // before the other process looks for calls
    snapshots_.WakeYoungest();
    _exit(0);
}

bool CServer::StoreSettings() {
    const std::string settings = session_->Settings();
    block_.settingsSize = settings.size();
    // The file grows behind the block, which is all that is mapped.
    return pwrite(memory_, settings.data(), settings.size(), sizeof(SharedBlock)) ==
           static_cast<ssize_t>(settings.size());
}

CServer::Answer CServer::BecomeLive() {
    std::string settings(block_.settingsSize, '\0');
    if (pread(memory_, settings.data(), settings.size(), sizeof(SharedBlock)) == static_cast<ssize_t>(settings.size()))
        session_->TakeSettings(settings);
    toldCycles_ = session_->Cycles();
    stop_ = kDbgAfterStepBack;
    return Answer::none;
}
