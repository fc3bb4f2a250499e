// Open documents after a step wrote to their files.
#pragma once

#include <string>

#include "platform/SharedTypes.h"

// Reloads the documents of `outputs` (relative to the directory of the file `project`) from disk and closes those whose
// file is gone; the build list names each.
void RefreshOpenDocuments(const std::string &project, const CStringList &outputs);
