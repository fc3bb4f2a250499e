// The property tree of a debug bar: its columns, which keep their widths over runs of the program, and its pop-up.
#pragma once

#include <memory>

#include "widgets/PropTree.h"

class CCmdTarget;
class QMenu;

// `widthKey` names the tree's width among the user's settings.
class CValueTree : public CPropTree {
public:
    CValueTree(const char *widthKey, QWidget *parent);
};

// Whether a command on formats is for all rows and not only for the one last clicked.
bool IsForAllRows();
