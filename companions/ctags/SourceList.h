// The sources that a request names.
#pragma once

#include <string>
#include <vector>

#include "TagRequest.h"

struct SourceList {
    std::vector<std::string> assembler;  // by the extension: those of include files are to be looked at
    std::vector<std::string> others;
};

// Regular files only, as the request spells them; what lies in directories behind the directory's spelling, without
// hidden entries. A name with "*" or "?" that isn't there as it stands is a pattern. A directory is entered once,
// whichever links lead to it. Left out: what can't be found, and files too large to be written by anybody.
SourceList ListSources(const TagRequest &request);

bool IsIncludeFile(const std::string &path);  // its language is told by what it holds
