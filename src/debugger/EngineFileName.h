// File names as the engine wants them.
#pragma once

#include <string>

// The full name of `name` (quotes taken off, a relative one behind the current directory) with its "." and ".."
// elements resolved and backslashes between the elements. What doesn't read as a path is given back as it is.
std::string EngineFileName(const std::string &name);
