#include "editor/UserMacros.h"

#include <algorithm>

#include "app/Settings.h"

namespace {

const std::string kSection = "UsrMacro";

std::string SectionOf(int index) { return kSection + "\\" + std::to_string(index); }

void WriteSteps(int index, const std::vector<CMacroCommand> &steps) {
    WriteUserInt(SectionOf(index), "Count", static_cast<int>(steps.size()));
    for (size_t i = 0; i < steps.size(); ++i) {
        const std::string record = SectionOf(index) + "\\" + std::to_string(i);
        WriteUserInt(record, "Type", steps[i].type);
        WriteUserInt(record, "Msg", steps[i].message);
        WriteUserInt(record, "wPar", steps[i].wParam);
        WriteUserString(record, "lPar", steps[i].lParam);
    }
}

}  // namespace

int UserMacroCount() { return std::clamp(GetUserInt(kSection, "Count", 0), 0, kMaxUserMacros); }

std::string UserMacroName(int index) {
    return index < UserMacroCount() ? GetUserString(SectionOf(index), "Name", "") : std::string();
}

std::vector<CMacroCommand> UserMacroSteps(int index) {
    std::vector<CMacroCommand> steps;
    const int count = GetUserInt(SectionOf(index), "Count", 0);
    for (int i = 0; i < count; ++i) {
        const std::string record = SectionOf(index) + "\\" + std::to_string(i);
        if (!HasUserSection(record)) break;  // a damaged count must not keep the user waiting
        steps.push_back({GetUserInt(record, "Type", 0), GetUserInt(record, "Msg", 0), GetUserInt(record, "wPar", 0),
                         GetUserString(record, "lPar", "")});
    }
    return steps;
}

MacroSaved SaveUserMacro(const std::string &name, const std::vector<CMacroCommand> &steps) {
    const int count = UserMacroCount();
    for (int i = 0; i < count; ++i)
        if (UserMacroName(i) == name) return MacroSaved::nameTaken;
    if (count == kMaxUserMacros) return MacroSaved::full;
    WriteUserInt(kSection, "Count", count + 1);
    WriteUserString(SectionOf(count), "Name", name);
    WriteSteps(count, steps);
    return MacroSaved::done;
}

// No macro moves up in the order, so that none is written over before it was read.
void KeepUserMacros(const std::vector<std::string> &names) {
    const int before = UserMacroCount();
    std::vector<int> sources;
    for (const std::string &name : names)
        for (int i = 0; i < before; ++i) {
            if (UserMacroName(i) != name) continue;
            sources.push_back(i);
            break;
        }
    for (size_t i = 0; i < sources.size(); ++i) {
        const int target = static_cast<int>(i);
        if (sources[i] == target) continue;
        const std::string name = UserMacroName(sources[i]);
        WriteSteps(target, UserMacroSteps(sources[i]));
        WriteUserString(SectionOf(target), "Name", name);
    }
    WriteUserInt(kSection, "Count", static_cast<int>(sources.size()));
}
