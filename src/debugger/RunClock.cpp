#include "debugger/RunClock.h"

#include "app/StringIds.h"

void CRunClock::Clear() {
    currentTick_ = 0;
    history_.clear();
}

void CRunClock::NoteStop() {
    if (history_.size() == kHistory) history_.erase(history_.begin());
    history_.push_back(CurrentTick());
}

void CRunClock::StepBack() {
    currentTick_ = history_.empty() ? -1 : history_.back();
    if (!history_.empty()) history_.pop_back();
}

ClockText ChooseClockText(int64_t tick) {
    if (tick >= int64_t{1} << 26) return {IDS_CLOCK_MEGA, tick >> 20};
    if (tick >= int64_t{1} << 16) return {IDS_CLOCK_KILO, tick >> 10};
    return {IDS_CLOCK_CYCLES, tick};
}
