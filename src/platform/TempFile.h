// Temporary files.
#pragma once

#include <string>

// Makes an empty file with a name of its own that begins with `prefix` in the system's temporary folder, readable by
// the user alone. Windows form; empty when it can't be made. The caller deletes it. Any thread.
std::string MakeTempFile(const std::string &prefix);

// Deletes a file; nothing when there is none.
void DeleteFileA(const std::string &path);
