#include "navigation/CallTree.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace {

// Gives equal keys equal numbers, from 0.
template <typename Key>
class CNumbers {
public:
    uint32_t Of(const Key &key) { return numbers_.try_emplace(key, numbers_.size()).first->second; }

private:
    std::unordered_map<Key, uint32_t> numbers_;
};

void DropEqualChildren(CallTreeNode &node) {
    if (node.firstChild == node.lastChild) return;
    std::unordered_set<uint32_t> seen;
    CallTreeNode **link = &node.firstChild;
    while (CallTreeNode *child = *link) {
        if (seen.insert(child->shape).second) {
            node.lastChild = child;
            link = &child->next;
        } else {
            *link = child->next;
        }
    }
}

}  // namespace

CallTreeNode *CCallTree::Add(CallTreeNode *parent, CallTreeNode node) {
    CallTreeNode *added = &nodes_.emplace_back(std::move(node));
    CallTreeNode *&first = parent ? parent->firstChild : first_;
    CallTreeNode *&last = parent ? parent->lastChild : last_;
    added->parent = parent;
    (last ? last->next : first) = added;
    last = added;
    return added;
}

void CCallTree::Fold() {
    FindShapes();
    for (CallTreeNode &node : nodes_) DropEqualChildren(node);
}

void CCallTree::FindShapes() {
    CNumbers<std::string_view> texts;
    CNumbers<std::u32string> shapes;
    for (auto node = nodes_.rbegin(); node != nodes_.rend(); ++node) {
        std::u32string key = {node->location ? U'1' : U'0', texts.Of(node->name)};
        if (node->location) {
            key += texts.Of(node->location->file);
            key += static_cast<char32_t>(node->location->line);
        }
        for (const CallTreeNode *child = node->firstChild; child; child = child->next) key += child->shape;
        node->shape = shapes.Of(key);
    }
}
