// The state of simulator plug-ins in a project. No plug-in is ever loaded here, so a project's section stays as it is.
#pragma once

#include <string>

// Writes the state of each loaded plug-in to the project's file.
void StorePluginState(const std::string &projectFile);

// Gives each loaded plug-in its state from the project's file.
void LoadPluginState(const std::string &projectFile);
