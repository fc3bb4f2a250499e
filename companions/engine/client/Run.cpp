#include "Run.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <span>

namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLookInterval{200};  // at the process, while nothing comes from it
constexpr std::chrono::seconds kAnswerLimit{20};         // then it hangs, and the run is lost

template <size_t size>
std::string TextOf(const char (&text)[size]) {
    return {text, strnlen(text, size)};
}

bool OnlyReads(Request request) {
    switch (request) {
        case Request::evaluate:
        case Request::getReg:
        case Request::dataBlock:
        case Request::regNameToAddr:
        case Request::regAddrToName:
        case Request::regBits:
        case Request::registerMap:
        case Request::symbolToAddr:
        case Request::eepromSize:
        case Request::readEeprom:
        case Request::posToAddr:
        case Request::addrToPos:
        case Request::frameList:
        case Request::profileList:
        case Request::hitCount:
        case Request::pinV:
        case Request::cycles:
            return true;
        default:
            return false;
    }
}

}  // namespace

std::shared_ptr<CRun> CRun::Begin(const std::string &target, ExecutionCallback callback, std::string &error) {
    std::shared_ptr<CRun> run(new CRun);
    run->SetExecution(callback);
    if (!run->host_.Start(error)) return nullptr;
    error = "The simulator has ended at its start.";
    const bool good = run->Ask(
        Request::openChip, [&](CMessageWriter &out) { out.PutText(target); }, {},
        [&](CMessageReader &in) { error = in.Text(); });
    if (!good) return nullptr;
    error.clear();
    return run;
}

void CRun::End() {
    ended_ = true;
    const std::lock_guard guard(ending_);
    SharedBlock *const block = host_.Block();
    if (!block) return;
    block->toEngine.Ring();
    block->toCaller.Ring();
    host_.End();
}

// --- Calls ---

bool CRun::Ask(Request request, const Put &put, const Take &take, const Take &takeFailure) {
    const std::lock_guard guard(calls_);
    if (ended_ || IsLost()) return false;
    SharedBlock &block = *host_.Block();
    CMessageWriter out(block.requestBytes);
    if (put) put(out);
    if (!out.Fits()) return false;
    block.request = request;
    block.requestSize = static_cast<uint32_t>(out.Size());
    block.call = CallState::asked;
    block.toHost.Ring();
    const bool answered = AwaitReply();
    if (!OnlyReads(request)) ++state_;
    if (!answered) return false;

    const size_t size = std::min<size_t>(block.replySize, sizeof block.replyBytes);
    CMessageReader in(std::span<const std::byte>(block.replyBytes, size));
    const bool good = in.Number() == 1;
    if (const Take &taker = good ? take : takeFailure; taker) taker(in);
    block.call = CallState::idle;
    return good && in.IsGood();
}

bool CRun::AwaitReply() {
    SharedBlock &block = *host_.Block();
    const auto limit = steady_clock::now() + kAnswerLimit;
    for (;;) {
        const uint32_t seen = block.toCaller.Count();
        if (block.call == CallState::answered) return true;
        if (ended_ || IsLost()) return false;
        block.toCaller.Wait(seen, kLookInterval);
        if (block.toCaller.Count() != seen) continue;
        if (!host_.IsThere() || steady_clock::now() > limit) {
            lost_ = true;
            block.toEngine.Ring();
        }
    }
}

// --- Memory ---

// The engine's thread is told of single instructions: what it asks for is as it is at that one.
std::optional<int> CRun::Read(CReadAhead &ahead, int address, const CReadAhead::Fetch &fetch,
                              const std::function<std::optional<int>()> &readOne) {
    if (ended_ || IsLost()) return std::nullopt;
    const bool exact = engineThread_ == std::this_thread::get_id();
    const bool runs = stopsToCome_ > 0;  // looked at before the state, which a stop changes first
    const auto walked = exact ? std::nullopt : ahead.Read(address, state_, runs, fetch);
    if (!walked) return readOne();
    return *walked == CReadAhead::kUnreadable ? std::nullopt : walked;
}

std::optional<int> CRun::ReadData(int address) {
    const auto fetch = [this](int first, int count, std::vector<int16_t> &bytes) {
        std::vector<uint8_t> values, known;
        const bool good = Ask(
            Request::dataBlock,
            [&](CMessageWriter &out) {
                out.PutNumber(first);
                out.PutNumber(count);
            },
            [&](CMessageReader &in) {
                values = in.Block();
                known = in.Block();
            });
        for (size_t i = 0; i < values.size() && i < known.size(); ++i)
            bytes.push_back(known[i] ? values[i] : static_cast<int16_t>(CReadAhead::kUnreadable));
        return good;
    };
    const auto readOne = [this, address] {
        int value = 0;
        const bool good = Ask(
            Request::getReg, [&](CMessageWriter &out) { out.PutNumber(address); },
            [&](CMessageReader &in) { value = in.Int(); });
        return good ? std::optional(value) : std::nullopt;
    };
    return Read(data_, address, fetch, readOne);
}

std::optional<int> CRun::ReadEeprom(int address) {
    const auto read = [this](int first, int count, std::vector<uint8_t> &bytes) {
        return Ask(
            Request::readEeprom,
            [&](CMessageWriter &out) {
                out.PutNumber(first);
                out.PutNumber(count);
            },
            [&](CMessageReader &in) { bytes = in.Block(); });
    };
    const auto fetch = [this, read](int first, int count, std::vector<int16_t> &bytes) {
        int size = 0;
        std::vector<uint8_t> values;
        const bool sized = Ask(Request::eepromSize, {}, [&](CMessageReader &in) { size = in.Int(); });
        if (!sized || first < 0 || first >= size || !read(first, std::min(count, size - first), values)) return false;
        bytes.assign(values.begin(), values.end());
        return true;
    };
    const auto readOne = [read, address] {
        std::vector<uint8_t> bytes;
        return read(address, 1, bytes) && bytes.size() == 1 ? std::optional<int>(bytes[0]) : std::nullopt;
    };
    return Read(eeprom_, address, fetch, readOne);
}

bool CRun::Go(Request request, const Put &put, const Take &takeFailure) {
    // The stop may be told before the reply is read.
    ++stopsToCome_;
    const bool good = Ask(request, put, {}, takeFailure);
    if (!good) --stopsToCome_;
    return good;
}

bool CRun::Watch(Request watch, int handle, bool on) {
    return Ask(watch, [&](CMessageWriter &out) {
        out.PutNumber(handle);
        out.PutNumber(on ? 1 : 0);
    });
}

void CRun::SetClock(ClockCallback callback) {
    callbacks_.SetClock(callback);
    host_.Block()->wantsClock = callback.fn ? 1 : 0;
}

void CRun::SetInst(InstCallback callback) {
    callbacks_.SetInst(callback);
    host_.Block()->wantsInstructions = callback.fn ? 1 : 0;
}

bool CRun::RemoveClock(ClockCallback callback) {
    if (!callback.fn || !callbacks_.RemoveClock(callback)) return false;
    host_.Block()->wantsClock = 0;
    return true;
}

bool CRun::RemoveInst(InstCallback callback) {
    if (!callback.fn || !callbacks_.RemoveInst(callback)) return false;
    host_.Block()->wantsInstructions = 0;
    return true;
}

// --- Events ---

void CRun::Serve() {
    engineThread_ = std::this_thread::get_id();
    SharedBlock &block = *host_.Block();
    for (;;) {
        const uint32_t seen = block.toEngine.Count();
        if (ended_) return;
        if (block.eventWaits != 0) {
            Deliver(block.event);
            block.eventWaits = 0;
            block.toHost.Ring();
            continue;
        }
        if (IsLost()) return TellLoss();
        block.toEngine.Wait(seen, kLookInterval);
        if (block.toEngine.Count() == seen && !host_.IsThere()) lost_ = true;
    }
}

void CRun::Deliver(const SharedEvent &event) {
    switch (event.kind) {
        case EventKind::clock:
            DeliverClock(event.passed, event.clk);
            break;
        case EventKind::instruction:
            DeliverClock(event.passed, event.clk);
            if (const InstCallback inst = callbacks_.Inst(); inst.fn) inst.fn(event.address, event.clk, inst.user);
            break;
        case EventKind::stop:
            DeliverStop(event);
            break;
        case EventKind::tell:
            if (const ExecutionCallback execution = callbacks_.Execution(); execution.fn) {
                const std::string file = TextOf(event.file), text = TextOf(event.text);
                execution.fn(event.reason, file.c_str(), event.line, event.address,
                             event.hasText ? text.c_str() : nullptr, execution.user);
            }
            break;
        case EventKind::registerChanged:
            for (const auto &callback : callbacks_.RegisterCallbacks())
                if (callback.handle == event.handle) callback.fn(event.handle, event.value, callback.user);
            break;
        case EventKind::pinChanged:
            for (const auto &callback : callbacks_.PinCallbacks())
                if (callback.handle == event.handle) callback.fn(event.handle, event.volts, callback.user);
            break;
    }
}

void CRun::DeliverStop(const SharedEvent &event) {
    // Who hears of a step back puts his own clock back first, and then gets the true time.
    const bool back = event.reason == kDbgAfterStepBack;
    if (!back) DeliverClock(event.passed, event.clk);
    ++state_;
    --stopsToCome_;
    const ExecutionCallback execution = callbacks_.Execution();
    if (execution.fn && !ended_) {
        const std::string file = TextOf(event.file);
        execution.fn(event.reason, file.c_str(), event.line, event.address, nullptr, execution.user);
    }
    if (back && !ended_) DeliverClock(event.passed, event.clk);
}

void CRun::DeliverClock(int passed, int clk) {
    if (const ClockCallback clock = callbacks_.Clock(); clock.fn) clock.fn(passed, clk, clock.user);
}

void CRun::TellLoss() {
    lost_ = true;
    ++state_;
    const ExecutionCallback execution = callbacks_.Execution();
    if (!execution.fn || ended_) return;
    execution.fn(kDbgText, "", 0, 0, "The simulator has ended unexpectedly. End the debug run and start it again.",
                 execution.user);
    if (stopsToCome_ <= 0 || ended_) return;
    stopsToCome_ = 0;
    execution.fn(kDbgStopped, "", 0, 0, nullptr, execution.user);
}
