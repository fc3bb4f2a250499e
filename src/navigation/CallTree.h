// Who calls whom, as a tree of functions.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>

// Where a function stands.
struct CallTreeLocation {
    std::string file;  // as the build spells it
    int32_t line = 0;  // from 1
};

struct CallTreeNode {
    CallTreeNode *next = nullptr;  // sibling
    CallTreeNode *firstChild = nullptr;
    CallTreeNode *parent = nullptr;  // null: top level
    std::string name;
    std::optional<CallTreeLocation> location;  // none: stands for calls too deep to show
    uint32_t color = 0;                        // word 0x00BBGGRR; 0: as normal text

    CallTreeNode *lastChild = nullptr;
    uint32_t shape = 0;  // of the whole subtree, while the tree is folded: equal for equal ones
};

// Owns its nodes. Can be moved: they stay where they are.
class CCallTree {
public:
    CCallTree() = default;
    CCallTree(CCallTree &&) = default;
    CCallTree &operator=(CCallTree &&) = default;

    // Appends to the children of `parent` or, for null, to the top level.
    CallTreeNode *Add(CallTreeNode *parent, CallTreeNode node);

    const CallTreeNode *First() const { return first_; }  // of the top level; null: the tree is empty

    // Of siblings that are equal, with all that is below them, the first one stays. At the top level all stay. Takes
    // time in proportion to the nodes.
    void Fold();

private:
    void FindShapes();

    std::deque<CallTreeNode> nodes_;  // in the order of their making: parents stand before their children
    CallTreeNode *first_ = nullptr, *last_ = nullptr;  // of the top level
};
