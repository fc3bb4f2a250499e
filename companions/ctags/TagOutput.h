// The tag file, as far as the front writes it.
#pragma once

#include <string>
#include <vector>

// A line of a tag file. Empty for a file name that such a line can't hold.
std::string TagFileLine(std::string_view name, const std::string &file, int line, char kind);

// Takes a file of the program out of the way that is none of the tag generator's, cut or overwritten by something else:
// the generator would refuse to replace it ever after. Files of other names are the user's.
void DropDamagedOutput(const std::string &path);

// Puts lines into the file: a new tag file with the lines in byte order, or behind what it holds. False when the file
// is no tag file or can't be written; it is untouched then.
bool WriteTagLines(const std::string &path, bool append, std::vector<std::string> lines);
