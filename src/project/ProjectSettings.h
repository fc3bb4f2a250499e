// The settings of the active project, in its file.
#pragma once

#include <cstdint>
#include <string>

// Without an active project a number reads as 0 and a text as empty, and a write does nothing. Writes reach the disk at
// once. Main thread.
int GetProjectInt(const std::string &section, const std::string &key, int fallback);
std::string GetProjectString(const std::string &section, const std::string &key, const std::string &fallback = {},
                             uint32_t size = 260);  // cut to size - 1 bytes
void SetProjectString(const std::string &section, const std::string &key, const std::string &value);
