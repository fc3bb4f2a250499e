// The names of the frame's layouts in the user's settings.
#pragma once

inline constexpr const char *kEditBars = "Edit Bar State";    // while nothing is debugged
inline constexpr const char *kDebugBars = "Debug Bar State";  // during a debug run
inline constexpr const char *kResetBars = "Reset Bar State";  // of the very first start
