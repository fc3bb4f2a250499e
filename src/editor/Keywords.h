// The words that the code view colours as such, per kind of file.
#pragma once

#include <string>

#include "editor/FileKind.h"

// The list in force for `kind`, separated by blanks: the built-in one, or the last that SetKeywords gave. Main thread.
const std::string &KeywordsOf(FileKind kind);

// Replaces the list of `kind` for this and all later views. Empty text leaves the list in force.
void SetKeywords(FileKind kind, const std::string &words);
