// The clock rate of a project's target as users write and read it. Rates are in Hz.
#pragma once

#include <optional>
#include <string>
#include <string_view>

inline constexpr int kDefaultClockRate = 4000000;
inline constexpr int kHighestClockRate = 1000000000;

// The active project's rate as its file has it, which need not make sense; 0 without a project. Main thread.
int ProjectClockRate();

// The status bar's text: "4 MHz", "3.68 MHz".
std::string ClockRateText(long rate);

// The exact rate in the largest unit that reads well: "4 MHz", "3.6864 MHz", "32.768 kHz", "12345 Hz".
std::string ExactClockRate(long rate);

// Reads "4000000", "4 MHz", "32.768kHz", "3,6864 M": a number without a unit is in Hz; unit in any case. Empty when it
// is no number, no whole number of Hz, or above the highest rate.
std::optional<long> ParseClockRate(std::string_view text);
