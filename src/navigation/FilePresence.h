// Which of many files exist, at the price of one listing for each directory.
#pragma once

#include <map>
#include <set>
#include <string>

// Answers as FileExists does, for one moment: a directory is listed at its first question. Paths are in the Windows
// form.
class CFilePresence {
public:
    bool Exists(const std::string &path);

private:
    using Names = std::set<std::string>;  // of a directory's entries, lower case
    const Names &NamesIn(const std::string &directory);

    std::map<std::string, Names> directories_;
};
