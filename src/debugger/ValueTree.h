// The property tree of a debug bar: names and values, with a splitter that keeps its place over runs of the program.
#pragma once

#include "widgets/PropTree.h"

class CValueTree : public CPropTree {
public:
    CValueTree(const char *widthKey, QWidget *parent);  // `widthKey`: the width of the names among the user's settings
};

// Whether a command on formats is for all rows and not only for the one last clicked.
bool IsForAllRows();
