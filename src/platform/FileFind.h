// Listing of a directory by a pattern in its last element ("*.dll", "main.?").
#pragma once

#include <string>
#include <vector>

struct FoundFile {
    std::string name;     // as stored on disk, without directory
    unsigned attributes;  // see PathCalls.h
};

// The entries of the directory of `pattern` that match its last element without regard to case, sorted by name in byte
// order; "." and ".." are left out. "*.*" and "*" match everything. A plain name finds that one element under any
// spelling of its case. Empty when the directory can't be read.
std::vector<FoundFile> FindFiles(const std::string &pattern);
