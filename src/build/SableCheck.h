// Looks whether a project uses a library of the Sable RTOS without the linker switch that it needs.
#pragma once

#include <string>

// True when `configFile` asks for the check (the default), `projectFile` lists a library "sable*.lib", and the linker's
// further options lack the switch. Both are full paths.
bool NeedsSableSwitch(const std::string &projectFile, const std::string &configFile);

void AddSableSwitch(const std::string &configFile);
void EndSableCheck(const std::string &configFile);  // the question doesn't come again
