// When a breakpoint stops the program: its condition and its hit count.
#pragma once

#include <string>

// As the project's file stores it, but for the last field. Numbers that a hand has written there keep a meaning: every
// `condMode` but 0 is the second choice, every `hitMode` but 0 and 1 the third.
struct CBreakpointProps {
    int useCond = 0;   // 1: the condition applies
    std::string cond;  // as the engine gets it
    int condMode = 0;  // 0 when it is true, 1 when its value has changed
    int useHit = 0;    // 1: the hit count applies
    int hitVal = 0;
    int hitMode = 1;   // 0 from this hit on, 1 at this hit only, 2 at each multiple of it
    int hitCount = 0;  // working copy of the dialog, never stored; -1 when no count is known

    // The codes of DbgSetBreakpointConditions.
    int ConditionType() const;
    int HitType() const;
};

inline constexpr int kLongestCondition = 259;  // bytes; what is longer would not be read back
