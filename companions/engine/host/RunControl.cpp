#include "RunControl.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

#include "debugger/EngineApi.h"

namespace {

// About a millisecond each: one by one an instruction takes several times as long as in a free run.
constexpr int64_t kSliceOneByOne = 5'000;
constexpr int64_t kSliceFree = 40'000;
constexpr int64_t kResetPrice = 2'000;  // in instructions of a free run

std::string WordsFor(const ChipReset &reset) {
    char place[16];
    std::snprintf(place, sizeof place, "0x%04X", static_cast<unsigned>(reset.address));
    switch (reset.cause) {
        case ResetCause::instruction: return std::string("The RESET instruction at ") + place + " has reset the chip.";
        case ResetCause::watchdog: return std::string("The watchdog has reset the chip, at ") + place + ".";
        case ResetCause::stack: return std::string("The stack has reset the chip, at ") + place + ".";
        case ResetCause::other: break;
    }
    return std::string("The chip has been reset, at ") + place + ".";
}

}  // namespace

CRunControl::CRunControl(IChip &chip, const IProgramMap &map, CBreakpoints &breakpoints, CWatchpoints &watchpoints)
    : chip_(chip), breakpoints_(breakpoints), watchpoints_(watchpoints), plan_(chip, map, breakpoints) {}

bool CRunControl::Start(RunKind kind) {
    if (!plan_.Begin(kind)) return false;
    stopWished_ = false;
    goesOnFromIt_ = stackStop_ == chip_.ProgramCounter();
    watchpoints_.ForgetWritten();
    return true;
}

bool CRunControl::TellChanges(uint32_t address, bool on) {
    if (!on) return told_.erase(address) > 0;
    auto value = chip_.ReadRegister(address);
    if (value) told_.emplace(address, *value);
    return value.has_value();
}

std::optional<std::pair<int, int>> CRunControl::TakeChange() {
    for (auto &[address, last] : told_) {
        const uint8_t now = chip_.ReadRegister(address).value_or(last);
        if (std::exchange(last, now) != now) return std::pair(static_cast<int>(address), int{now});
    }
    return std::nullopt;
}

// At most as many as there are: an event may change another one, and the run has to go on.
void CRunControl::TellChanges(CSessionEvents &events) {
    for (size_t most = told_.size(); most > 0; --most) {
        const auto change = TakeChange();
        if (!change) return;
        events.RegisterChanged(change->first, change->second);
    }
}

void CRunControl::TellPins(CSessionEvents &events) {
    if (!connections_) return;
    for (size_t most = connections_->All().size(); most > 0; --most) {
        const auto change = connections_->TakeChange();
        if (!change) return;
        events.PinChanged(change->id, change->volts);
    }
}

void CRunControl::WasReset() {
    plan_.Abandon();
    asleep_ = toldSleep_ = toldReset_ = stopWished_ = goesOnFromIt_ = false;
    stackStop_.reset();
    seenResets_ = chip_.Resets();
    resetAt_ = chip_.Cycles();
}

CSession::SliceEnd CRunControl::Slice(CSessionEvents &events) {
    int64_t budget = kSliceFree;
    while (budget > 0) {
        if (stopWished_) return Ended(kDbgStopped);
        End end;
        if (asleep_ && !chip_.SomethingIsDue()) {
            // Only the world outside can wake it: no need to keep the processor busy with that.
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            budget = 1;
        }
        if (NeedsEach()) {
            end = OneInstruction(events, budget);
            budget -= kSliceFree / kSliceOneByOne;
        } else {
            end = Rush(events, budget);
        }
        if (end) return *end;
    }
    if (!asleep_ && plan_.Passed(true)) return Ended(kDbgStopped);
    return {};
}

CRunControl::End CRunControl::OneInstruction(CSessionEvents &events, int64_t &budget) {
    const uint32_t from = chip_.ProgramCounter();
    const uint64_t before = chip_.Cycles();
    const bool stepping = plan_.WantsEach(), slept = asleep_;
    if (stepping) plan_.Before();
    ChipState state = chip_.Step();
    const bool written = watchpoints_.TakeWritten();
    if (profile_) profile_->Add(from, chip_.Cycles() - before);
    if (tell_) events.InstructionDone(static_cast<int>(from), static_cast<int64_t>(Cycles()));
    TellChanges(events);
    TellPins(events);
    const bool wasReset = TakeReset(events, budget);
    if (End end = Judge(state, events)) return end;
    // Asleep, it comes to the next instruction when it wakes.
    if ((!asleep_ && StopsAt(chip_.ProgramCounter(), events)) || written) return Ended(kDbgStopped);
    if (wasReset && plan_.IsStep()) return Ended(kDbgStopped);
    if (asleep_) return std::nullopt;
    // A step that an event has just begun or ended doesn't judge an instruction that it hasn't seen.
    if (stepping != plan_.WantsEach()) return std::nullopt;
    if (stepping ? plan_.After(slept) : plan_.Passed(false)) return Ended(kDbgStopped);
    return std::nullopt;
}

CRunControl::End CRunControl::Rush(CSessionEvents &events, int64_t &budget) {
    const uint64_t before = chip_.Cycles();
    ChipState state = chip_.RunTo(breakpoints_.Stops(), static_cast<uint64_t>(budget));
    budget -= std::max<int64_t>(1, static_cast<int64_t>(chip_.Cycles() - before));
    const bool written = watchpoints_.TakeWritten();
    TellPins(events);
    const bool wasReset = TakeReset(events, budget);
    if (End end = Judge(state, events)) return end;
    if ((!asleep_ && StopsAt(chip_.ProgramCounter(), events)) || written) return Ended(kDbgStopped);
    if (wasReset && plan_.IsStep()) return Ended(kDbgStopped);
    if (!asleep_ && plan_.Passed(budget <= 0)) return Ended(kDbgStopped);
    return std::nullopt;
}

// Whether the chip has just been reset by its program or its watchdog. A step ends there, since what it was to step
// over doesn't come back; a run goes on, and a program that resets for ever isn't told each time.
bool CRunControl::TakeReset(CSessionEvents &events, int64_t &budget) {
    if (chip_.Resets() == seenResets_) return false;
    seenResets_ = chip_.Resets();
    budget -= kResetPrice;
    if (!toldReset_) events.Tell(kDbgText, WordsFor(chip_.LastReset()) + " Further resets aren't told.");
    toldReset_ = true;
    return true;
}

// What the chip itself ends, or tells, by its state behind an instruction.
CRunControl::End CRunControl::Judge(ChipState state, CSessionEvents &events) {
    switch (state) {
        case ChipState::running: asleep_ = toldSleep_ = false; return std::nullopt;
        case ChipState::asleep:
            asleep_ = true;
            if (chip_.SomethingIsDue()) return std::nullopt;
            if (!toldSleep_) events.Tell(kDbgNoteSleep, {});
            toldSleep_ = true;
            if (plan_.IsStep()) return Ended(kDbgStopped);  // it would never end
            return std::nullopt;
        case ChipState::offProgram: return Ended(kDbgBadMemory);
        case ChipState::stackOverflow:
        case ChipState::stackUnderflow:
            asleep_ = toldSleep_ = false;
            if (goesOnFromIt_) return std::nullopt;
            stackStop_ = chip_.ProgramCounter();
            events.Tell(kDbgNoteStack, {});
            return Ended(kDbgStopped);
    }
    return std::nullopt;
}

bool CRunControl::StopsAt(uint32_t address, CSessionEvents &events) {
    const std::vector<bool> &stops = breakpoints_.Stops();
    if (address >= stops.size() || !stops[address]) return false;
    std::string words;
    bool stop = breakpoints_.Arrive(address, words);
    if (!words.empty()) events.Tell(kDbgText, words);
    return stop;
}

CSession::SliceEnd CRunControl::Ended(int reason) {
    plan_.Abandon();
    stopWished_ = false;
    return {true, reason};
}
