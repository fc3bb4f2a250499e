// The files with facts on a program that a toolsuite's tools leave beside it. Paths are in the Windows form.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// Where the build of the active configuration leaves its file of that extension (".tree"). Empty without a project.
// Main thread.
std::string BuildFilePath(const std::string &extension);

// A larger one isn't read: the tool that wrote it went wrong, and it would hold the window for seconds.
inline constexpr uintmax_t kLargestBuildFile = 32u << 20;  // bytes

// The whole file. Empty when it can't be read; when it is too large, a line in the build list says so.
std::optional<std::string> ReadBuildFile(const std::string &path);

// Which file a view shows, and in which state.
struct BuildFileStamp {
    std::string path;
    std::optional<int64_t> time;  // of its last write; empty: unknown, and it has to be read again

    bool IsOf(const BuildFileStamp &file) const { return time && file.time == time && file.path == path; }
};

BuildFileStamp StampOf(const std::string &path);
