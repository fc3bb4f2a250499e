// Last-write times of files, in nanoseconds since 1970.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// Opens `path` (Windows form) for reading to ask: empty when it can't be opened.
std::optional<int64_t> ReadLastWriteTime(const std::string &path);
