// Opens a file with the program that the desktop has for its kind.
#pragma once

#include <string>

// `path`: Windows form. False when the file isn't there, can't be read, or the desktop has nothing to open it with. The
// other program starts by itself and outlives this one; nothing is waited for. Main thread.
bool ShellOpen(const std::string &path);
