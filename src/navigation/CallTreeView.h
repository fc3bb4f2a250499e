// Who calls whom in the last build of the active project: a tab of the listing bar.
#pragma once

#include <vector>

#include "editor/CodeWindowView.h"
#include "navigation/BuildFile.h"
#include "navigation/CallTree.h"
#include "widgets/TreeCtrlEx.h"

// Return and a double click on a function lead to its source. What can't be read shows as an empty tree.
class CCallTreeView : public CCodeWindowView {
public:
    explicit CCallTreeView(QWidget *parent);

    // A file that is on show already isn't read again: what the user folded stays so.
    void Load(bool onlyIfNeeded) override;
    void Clear() override;

    CTreeCtrlEx &Tree() { return *tree_; }

private:
    void ClearRows();
    void InsertRows(const CallTreeNode *first, TreeItem parent);  // with its siblings
    void Jump(TreeItem item);

    CTreeCtrlEx *tree_;
    std::vector<CallTreeLocation> locations_;  // of the rows, whose data is the place here and 1; 0: has none
    BuildFileStamp shown_;
};
