// What a project or workspace file is before its keys are read.
#pragma once

#include <cstddef>
#include <string>

// Whether the file's body is the text of a profile file: missing, blank, or with at least one section and no zero byte.
// Anything else is another program's file and must not be written to.
bool LooksLikeProfile(const std::string &path);

// A count of numbered keys. A count of many thousands that the file is too small for is cut down, so that nobody waits
// for entries that aren't there.
size_t ReadProfileCount(const std::string &section, const std::string &key, const std::string &path);
