// The directory in which executables, *.dll modules and data files lie side by side.
#pragma once

#include <string>

// Windows form, without a trailing separator. $THORNWELL_PROGRAM_DIR (native) wins over the directory of the running
// program's file, for tests that lay out a program directory of their own.
std::string ProgramDirectory();
std::string ProgramFile(const std::string &name);  // `name` in that directory

// The native path of the program that a command's first word names: a word with a directory is taken as a path; a bare
// name is looked for in the program directory first, then on PATH, in both without its ".exe" when only that exists.
// Empty when there is none that may be run.
std::string FindProgram(const std::string &word);
