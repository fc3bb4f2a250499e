// The list of files that a project file holds.
#pragma once

#include <string>
#include <vector>

struct ProjectFiles {
    std::string directory;           // of the project file, with its trailing separator
    std::vector<std::string> names;  // as the file spells them, in its order; entries that can't be read are left out
};

// Nothing for an empty path or a file that isn't there. A count that the file is too small for costs no time.
ProjectFiles ReadProjectFiles(const std::string &projectFile);

// The full, canonical name of a file that is named from `directory`. Nothing is looked up.
std::string FullNameFrom(const std::string &directory, const std::string &name);
