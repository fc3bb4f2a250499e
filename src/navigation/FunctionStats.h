// What each function of a build takes of the target's memory.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The name of what belongs to no function.
inline constexpr const char *kGlobalData = "#GLOBAL";

// What the two numbers of RAM count is the toolsuite's matter.
struct SStatData {
    std::string name;  // with its class, "class::name"; may be a whole signature
    std::string file;  // as the build spells it; may be empty
    int32_t line = 0;  // from 1
    int32_t rom = 0;
    int32_t ramWhole = 0, ramPart = 0;  // before and behind the point
};

// Empty when a line can't be read. A line gives at most one function: its last. Any bytes are accepted; a number beyond
// 31 bits counts as the largest, one beyond 32 bits can't be read.
std::optional<std::vector<SStatData>> ParseFunctionStats(std::string_view text);
