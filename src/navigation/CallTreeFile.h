// Reading the call tree that a build leaves.
#pragma once

#include <optional>
#include <string_view>

#include "navigation/CallTree.h"

inline constexpr int kDeepCalls = 9;      // the level, from 0, from which on a function is shown in red
inline constexpr int kDeepestCalls = 13;  // the level at which "..." stands for a function and all that it calls

// Empty for a text that isn't a call tree as a whole. Levels below kDeepestCalls are read and dropped. Any bytes are
// accepted, of any depth.
std::optional<CCallTree> ParseCallTree(std::string_view text);
