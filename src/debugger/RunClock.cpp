#include "debugger/RunClock.h"

#include "app/StringIds.h"

void CRunClock::Clear() {
    currentTick_ = 0;
    tickHistory_.clear();
}

void CRunClock::NoteStop() {
    if (tickHistory_.size() == kHistory) tickHistory_.erase(tickHistory_.begin());
    tickHistory_.push_back(CurrentTick());
}

void CRunClock::StepBack() {
    currentTick_ = tickHistory_.empty() ? -1 : tickHistory_.back();
    if (!tickHistory_.empty()) tickHistory_.pop_back();
}

ClockText ChooseClockText(int64_t tick) {
    if (tick >= int64_t{1} << 26) return {IDS_CLOCK_MEGA, tick >> 20};
    if (tick >= int64_t{1} << 16) return {IDS_CLOCK_KILO, tick >> 10};
    return {IDS_CLOCK_CYCLES, tick};
}
