#include "app/TipsOfTheDay.h"

#include "app/Settings.h"
#include "app/StringIds.h"
#include "framework/Language.h"

namespace {

constexpr const char *kSection = "Tip";

}  // namespace

CTipsOfTheDay::CTipsOfTheDay() {
    for (int id = IDS_TIPS; id < IDS_TIPS + kMostTips; ++id) {
        std::string tip = LoadText(id);
        if (tip.empty()) break;
        tips_.push_back(std::move(tip));
    }
}

const std::string &CTipsOfTheDay::Next() {
    static const std::string none;
    if (tips_.empty()) return none;
    const auto stored = static_cast<size_t>(GetUserInt(kSection, "Next", 0));
    const size_t index = stored < tips_.size() ? stored : 0;
    WriteUserInt(kSection, "Next", static_cast<int>((index + 1) % tips_.size()));
    return tips_[index];
}

bool CTipsOfTheDay::AreWantedAtStart() { return GetUserInt(kSection, "Show", 1) != 0; }

void CTipsOfTheDay::WantAtStart(bool wanted) { WriteUserInt(kSection, "Show", wanted); }
