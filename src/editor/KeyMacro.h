// A keyboard macro: the editing messages that the component reported while recording.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// One recorded step.
struct CMacroCommand {
    int type = 0;     // always 0 when recorded; only type 0 is played
    int message = 0;  // the component's message; 0 is skipped at playback
    int wParam = 0;
    std::string lParam;  // a text; empty without one

    bool operator==(const CMacroCommand &) const = default;
};

// The current macro, kept in the user's settings across runs. Main thread.
class CKeyMacro {
public:
    void Load();
    void Store();  // nothing to do for what Load or Store left there

    void Clear() { commands_.clear(); }
    void Append(CMacroCommand command) { commands_.push_back(std::move(command)); }
    const std::vector<CMacroCommand> &Commands() const { return commands_; }

private:
    std::vector<CMacroCommand> commands_;
    std::vector<CMacroCommand> stored_;  // as the settings have it
};
