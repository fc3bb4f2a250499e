// What an object was made from, in rules that a makefile includes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The files of gpasm's own dependency output ("a.o :  \", then one name on each line, blanks unescaped).
std::vector<std::string> ReadAssemblerDependencies(std::string_view text);

// Rules for `object`: it depends on each file, and on a file that is made later in a directory of `includes` that is
// searched before the one in which an include was found. A file that has gone doesn't stop make: the object is made
// anew and the assembler tells.
std::string DependencyRules(const std::string &object, const std::vector<std::string> &files,
                            const std::vector<std::string> &includes);
