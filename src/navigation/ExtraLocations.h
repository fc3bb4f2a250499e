// Files and folders outside the project whose symbols the index holds, too.
#pragma once

#include <string>
#include <vector>

// The profile file that keeps them: the workspace's own in a workspace of many projects, else the project's. Empty when
// nothing is open. Windows form. Main thread.
std::string ExtraLocationsFile();

// As the file has them, an entry that is missing as an empty one. A count beyond kMostExtraLocations is cut.
inline constexpr int kMostExtraLocations = 4096;
std::vector<std::string> ReadExtraLocations(const std::string &file);

// False when the file can't be written, or can't hold one of the names. What a longer list has left behind stays.
bool WriteExtraLocations(const std::string &file, const std::vector<std::string> &locations);

// The tag file of the extra locations that `file` keeps.
std::string ExtraTagsFile(const std::string &file);

// The user's command: the dialog, then the tags of what he chose, then the index. Main thread.
void OnBrowseExtraLocations();
