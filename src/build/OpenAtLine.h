// The way from a line of a list to its source line.
#pragma once

#include <string>

// Shows `file`, relative to the active project's directory, with line `line` (from 1) selected; -1: just the file. A
// file that doesn't exist changes nothing.
void OpenAtLine(const std::string &file, int line);
