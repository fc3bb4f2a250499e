// The rules of a project's makefile.
#pragma once

#include <string>

#include "BuildPlan.h"

struct MakefileGoals {
    bool link = true, library = false, disassemble = false, memoryUsage = true;  // what "all" makes of the objects
};

// The whole text behind the host's header line. Goals: all, clean, and one for each step (see Steps.h). Objects are
// made anew when their source, an include or an option that concerns them has changed.
std::string MakefileText(const BuildPlan &plan, const MakefileGoals &goals);
