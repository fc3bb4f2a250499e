// The target's time as the last clock callback told it, and as it was at the stops before.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

// Ticks are instruction cycles. The engine's thread writes; any thread reads the present one.
class CRunClock {
public:
    static constexpr size_t kHistory = 100;  // stops; the oldest goes first

    CRunClock() { tickHistory_.reserve(kHistory); }

    void Clear();  // a new run; no engine's thread is there yet
    void Set(int clk) { currentTick_.store(clk, std::memory_order_relaxed); }
    void NoteStop();  // keeps the present tick
    void StepBack();  // back to the tick kept last; -1 when there is none
    int64_t CurrentTick() const { return currentTick_.load(std::memory_order_relaxed); }

private:
    std::atomic<int64_t> currentTick_ = 0;
    std::vector<int64_t> tickHistory_;
};

// The text of the clock's pane: whole ticks up to 65535, then thousands or millions as powers of two.
struct ClockText {
    int text;  // id of the text that takes the number
    int64_t number;
};
ClockText ChooseClockText(int64_t tick);
