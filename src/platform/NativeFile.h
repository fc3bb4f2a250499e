// Whole files by their native path: what FileText.h promises, for those who looked the name up already.
#pragma once

#include <optional>
#include <string>
#include <string_view>

std::optional<std::string> ReadNativeFile(const std::string &nativePath);
bool ReplaceNativeFile(const std::string &nativePath, std::string_view bytes);
