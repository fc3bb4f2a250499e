// The program's command line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

inline constexpr size_t kMaxArguments = 100;  // with the program; further ones are not seen

// Splits a command line: blanks separate; an argument that begins with a double quote runs up to the next one, without
// the quotes, or to the end; any other runs up to the next blank. At most kMaxArguments.
std::vector<std::string> SplitArguments(std::string_view commandLine);

// The command line of native arguments: file names in the Windows form, so that an absolute one is no switch, in quotes
// where they need them.
std::string ComposeCommandLine(const std::vector<std::string> &nativeArguments);
