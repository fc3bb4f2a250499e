// The numbered steps that the toolsuite offers, and which of them a build takes.
#pragma once

#include <cstdint>
#include <string>

enum class Step { assemble, link, library, disassemble, memoryUsage };
inline constexpr int kStepCount = 5;

struct StepInfo {
    const char *name;  // as menus show it
    const char *goal;  // of the makefile
    const char *key;   // of the project file; null: the step can't be switched off
    bool onByDefault;
};

const StepInfo *FindStep(int step);  // null for a number out of range
bool IsStepActive(Step step, const std::string &project);
void SetStepActive(Step step, bool active, const std::string &project);
