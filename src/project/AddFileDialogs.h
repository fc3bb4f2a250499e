// The dialogs in which the user picks files for a project.
#pragma once

#include <string>
#include <vector>

// Existing files, with the directory, extension and filter that the project last used; these are kept for the next
// time. Empty when the user cancelled.
std::vector<std::string> AskForFilesToAdd(const std::string &project);

// The name of a file to make; empty when the user cancelled.
std::string AskForNewFile(const std::string &project);
