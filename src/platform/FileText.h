// Whole files as bytes. Paths are in the Windows form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The whole file; empty optional for what can't be read or is no regular file (a FIFO or device is never waited for).
std::optional<std::string> ReadWholeFile(const std::string &path);

// Replaces the file's content as a whole: writes beside it and renames, so that a failure leaves the old file as it
// was. Follows a symbolic link, keeps mode bits; a file with several hard links is written in place, so that they stay
// one. A write-protected file is not replaced. False on failure.
bool ReplaceWholeFile(const std::string &path, std::string_view bytes);
