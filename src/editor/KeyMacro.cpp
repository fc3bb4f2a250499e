#include "editor/KeyMacro.h"

#include "app/Settings.h"

namespace {

const std::string kSection = "Macro";

}  // namespace

void CKeyMacro::Load() {
    commands_.clear();
    const int count = GetUserInt(kSection, "Count", 0);
    for (int i = 0; i < count; ++i) {
        const std::string index = std::to_string(i);
        CMacroCommand command;
        command.message = GetUserInt(kSection, "Msg" + index, -1);
        if (command.message == -1) break;  // a damaged count must not keep the start waiting
        command.type = GetUserInt(kSection, "Type" + index, 0);
        command.wParam = GetUserInt(kSection, "wPar" + index, 0);
        command.lParam = GetUserString(kSection, "lPar" + index, "");
        commands_.push_back(std::move(command));
    }
    stored_ = commands_;
}

void CKeyMacro::Store() {
    WriteUserInt(kSection, "Count", static_cast<int>(commands_.size()));
    if (commands_ == stored_) return;  // a long macro isn't written again at every end
    for (size_t i = 0; i < commands_.size(); ++i) {
        const std::string index = std::to_string(i);
        WriteUserInt(kSection, "Type" + index, commands_[i].type);
        WriteUserInt(kSection, "Msg" + index, commands_[i].message);
        WriteUserInt(kSection, "wPar" + index, commands_[i].wParam);
        WriteUserString(kSection, "lPar" + index, commands_[i].lParam);
    }
    stored_ = commands_;
}
