// A scratch directory with examples of the source tree.
#pragma once

#include "support/ScratchDirectory.h"

class CScratch : public CScratchDirectory {
public:
    // A copy of the files of one directory of the source tree's examples, under its name; an empty name: what lies
    // beside the examples.
    void CopyExample(const std::string &example) const;
};
