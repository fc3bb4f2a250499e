// The call tree that a build leaves.
#include "fuzz/FuzzTarget.h"
#include "navigation/CallTreeFile.h"

namespace {

void Check(const CallTreeNode *first, const CallTreeNode *parent, int level) {
    Expect(!first || level <= kDeepestCalls, "nothing shows below the deepest level");
    for (const CallTreeNode *node = first; node; node = node->next) {
        Expect(node->parent == parent, "a node knows its parent");
        Expect(node->location.has_value() == (level < kDeepestCalls), "only what is too deep has no place");
        Expect((node->color != 0) == (level >= kDeepCalls), "deep calls are marked");
        Expect(!node->location || node->location->line >= 0, "a line is not negative");
        for (const CallTreeNode *other = node->next; parent && other; other = other->next) {
            Expect(node->shape != other->shape, "equal calls are folded");
        }
        Check(node->firstChild, node, level + 1);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    auto tree = ParseCallTree(AsText(data, size));
    if (!tree) return 0;
    tree->Fold();
    Check(tree->First(), nullptr, 0);
    return 0;
}
