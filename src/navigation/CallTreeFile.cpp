#include "navigation/CallTreeFile.h"

#include <algorithm>
#include <limits>

#include "navigation/TreeGrammar.h"

namespace {

constexpr uint32_t kRed = 0xff;

// What has been read so far.
struct CallTreeParse {
    CCallTree tree;
    size_t level = 0;
    CallTreeNode *last = nullptr;     // added
    CallTreeNode *current = nullptr;  // the parent of what comes next

    std::string_view name, file;
    int32_t line = 0;

    void AddNode() {
        if (level > kDeepestCalls) return;
        CallTreeNode node;
        node.color = level >= kDeepCalls ? kRed : 0;
        if (level < kDeepestCalls) {
            node.name = name;
            node.location = CallTreeLocation{std::string(file), line};
        } else {
            node.name = "...";
        }
        last = tree.Add(current, std::move(node));
    }

    void StartLevel() {
        if (++level <= kDeepestCalls) current = last;
    }

    void EndLevel() {
        if (--level <= kDeepestCalls) current = last = last ? last->parent : nullptr;
    }
};

int32_t AsLine(unsigned number) {
    return static_cast<int32_t>(std::min<unsigned>(number, std::numeric_limits<int32_t>::max()));
}

}  // namespace

std::optional<CCallTree> ParseCallTree(std::string_view text) {
    CallTreeParse parse;
    const tree_grammar::Actions actions = {
        .name = [&](std::string_view name) { parse.name = name; },
        .file = [&](std::string_view file) { parse.file = file; },
        .line = [&](unsigned line) { parse.line = AsLine(line); },
        .add_node_action = [&] { parse.AddNode(); },
        .levelstart_action = [&] { parse.StartLevel(); },
        .levelend_action = [&] { parse.EndLevel(); },
        .is_open = [&] { return parse.level > 0; },
    };
    const auto info =
        boost::spirit::classic::parse(text.data(), text.data() + text.size(), tree_grammar(actions), skip_grammar());
    if (!info.full) return {};
    return std::move(parse.tree);
}
