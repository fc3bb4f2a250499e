#include "editor/FindSettings.h"

#include "app/Settings.h"
#include "editor/ScintillaMessages.h"
#include "editor/WordAt.h"

namespace {

constexpr const char *kSection = "Find";

constexpr struct {
    const char *key;
    bool CFindSettings::*value;
} kKeys[] = {
    {"MatchCase", &CFindSettings::matchCase}, {"WholeWord", &CFindSettings::wholeWord},
    {"RegExpr", &CFindSettings::regExpr},     {"WordStart", &CFindSettings::wordStart},
    {"Direction", &CFindSettings::forward},
};

}  // namespace

CFindSettings CFindSettings::Load() {
    CFindSettings settings;
    for (const auto &each : kKeys) settings.*each.value = GetUserInt(kSection, each.key, settings.*each.value) != 0;
    return settings;
}

void CFindSettings::Store() const {
    for (const auto &each : kKeys) WriteUserInt(kSection, each.key, this->*each.value);
}

intptr_t CFindSettings::FlagsFor(const std::string &text) const {
    intptr_t flags = 0;
    if (matchCase) flags |= SCFIND_MATCHCASE;
    if (wholeWord && IsWordSearchable(text)) flags |= SCFIND_WHOLEWORD;
    if (wordStart) flags |= SCFIND_WORDSTART;
    if (regExpr) flags |= SCFIND_REGEXP;
    return flags;
}

bool IsWordSearchable(const std::string &text) {
    return !text.empty() && GetUserInt(kSection, "MatchWholeWord", 0) != 0 && IsWordChar(text.front()) &&
           IsWordChar(text.back());
}
