// The six variables that file names and command lines may hold.
#pragma once

#include <functional>
#include <string>

// Where the values come from; each is asked once for each place where its variable stands.
struct MacroValues {
    std::function<std::string()> name, shortName, target, appDir, config;
};

// Replaces "%name%", "%shortname%", "%target%", "%shorttarget%", "%appdir%" and "%config%" in `text`, one after the
// other over the whole text. Anything else stays as it is.
void ExpandMacroText(std::string &text, const MacroValues &values);

// The values for a project of the open workspace (empty: the active one); `config` gives the configuration's name.
MacroValues ProjectMacroValues(const std::string &project, std::function<std::string()> config);

std::string ShortTarget(const std::string &target);  // without a leading "PIC" or "SX"
