// Places in a source that an object keeps no line of: what reserves data memory, and declarations.
//
// `file` is a native path. Words compare without regard to case. The empty optional when the file holds no such line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The line that opens `section` ("udata", "name code 0x10"; the name may be the default one, ".udata").
std::optional<int> FindSectionDirective(const std::string &file, std::string_view section);
std::optional<int> FindLabel(const std::string &file, std::string_view label);  // in the first column
std::optional<int> FindWord(const std::string &file, std::string_view word);    // anywhere outside comments
std::string ReadLine(const std::string &file, int line);  // without its end; empty when there is none
int CountLines(const std::string &file);                  // at least 1

std::string_view TakeLine(std::string_view &text);  // the first line; `text` goes on behind its end

// The words of a line up to its comment; the first one is empty for a line that begins with a blank.
std::vector<std::string_view> WordsOfLine(std::string_view line);
