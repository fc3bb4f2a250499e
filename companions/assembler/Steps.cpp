#include "Steps.h"

#include "platform/Profile.h"

namespace {

constexpr const char *kSection = "Assembler";

constexpr StepInfo kSteps[kStepCount] = {
    {"Assemble", "assemble", nullptr, true},
    {"Link", "link", "StepLink", true},
    {"Library", "library", "StepLibrary", false},
    {"Disassemble", "disassemble", "StepDisassemble", false},
    {"Memory usage", "usage", "StepMemoryUsage", true},
};

}  // namespace

const StepInfo *FindStep(int step) {
    return step >= 0 && step < kStepCount ? &kSteps[step] : nullptr;
}

bool IsStepActive(Step step, const std::string &project) {
    const StepInfo &info = kSteps[static_cast<int>(step)];
    if (!info.key) return true;
    return GetPrivateProfileIntA(kSection, info.key, info.onByDefault ? 1 : 0, project.c_str()) != 0;
}

void SetStepActive(Step step, bool active, const std::string &project) {
    const StepInfo &info = kSteps[static_cast<int>(step)];
    if (info.key) WritePrivateProfileStringA(kSection, info.key, active ? "1" : "0", project.c_str());
}
