// The saved macros: a name and a list of steps each, in the user's settings. Main thread.
#pragma once

#include <string>
#include <vector>

#include "editor/KeyMacro.h"

inline constexpr int kMaxUserMacros = 64;  // as many as the menu has commands for

int UserMacroCount();                    // never above kMaxUserMacros, whatever the settings say
std::string UserMacroName(int index);    // empty beyond the last
std::vector<CMacroCommand> UserMacroSteps(int index);

enum class MacroSaved { done, nameTaken, full };
MacroSaved SaveUserMacro(const std::string &name, const std::vector<CMacroCommand> &steps);

// Keeps the macros of these names only, in their present order. `names` are in that order.
void KeepUserMacros(const std::vector<std::string> &names);
