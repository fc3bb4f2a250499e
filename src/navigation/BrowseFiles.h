// The files of one update of the symbol index.
#pragma once

#include <string>
#include <vector>

// Full names, Windows form.
struct BrowseFiles {
    std::string project;
    std::string tags;                    // ".brws" in the configuration's folder: the project's symbols
    std::vector<std::string> extraTags;  // ".gbrws" beside the project, and beside a workspace: the extra locations'
    std::string prototypes;              // ".proto" beside the project, to be deleted when the update ends
};

// Those of a project file and a configuration in the open workspace, for one update.
BrowseFiles BrowseFilesOf(const std::string &project, const std::string &configuration);

// Makes the folder of the configuration anew, which a user may have deleted with what builds left in it.
void MakeTagFolder(const BrowseFiles &files);

// Writes the list of all files that an update reads: the project's own, the kernel's header, the toolsuite's headers,
// the last two as the project wants. Native names, a line each. The list's name in the Windows form, for the caller to
// delete; empty when it can't be written. Main thread.
std::string WriteBrowseFileList(const std::string &project);
