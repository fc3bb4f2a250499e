// Operations on file names that need no CPath: separators, stored names, quotes for command lines.
#pragma once

#include <string>
#include <string_view>

// With a backslash at the end, unless the text ends in "\" or "/" or is empty.
std::string AddSlash(std::string_view directory);

// Makes `name` relative to the directory of the file `base`, which will hold it: a plain name below that directory, one
// with "..\" elsewhere on the drive; what has no common root, or is relative, stays as it is. Nothing is looked up.
void MakeRelativeToFile(std::string_view base, std::string &name);

// The three rules by which a path enters a command line, by what it is.
std::string QuoteToolPath(std::string_view path, std::string_view programDirectory);  // the directory holds a blank
std::string QuoteIfBlank(std::string_view path);     // scripts and makefiles: the path holds a blank or a tab
std::string QuoteListedName(std::string_view name);  // names in a list: holds a blank and doesn't begin with a quote
