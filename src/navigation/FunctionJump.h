// The way from what a build says of a function to its source.
#pragma once

#include <string>

struct CallTreeLocation;
struct SStatData;

// Opens the source of a function at its line: by the index of symbols, which is newer than the build, if it knows the
// function in that file, else by the build's own word. When neither leads anywhere, a line in the build list says so.
// Names of files without a folder, and such that begin with ".", are relative to the active project. Main thread.
void JumpToFunction(const std::string &name, const CallTreeLocation &location);
void JumpToFunction(const SStatData &function);  // nothing without a file
