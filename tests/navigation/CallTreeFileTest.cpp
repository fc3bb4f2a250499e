#include "navigation/CallTreeFile.h"

#include <gtest/gtest.h>

namespace {

std::string Item(const std::string &name, const std::string &calls = {}, int line = 1) {
    return name + ":\"m.c\",line=" + std::to_string(line) + "{" + calls + "}";
}

// "a(b c(d))", with "!" behind a red name and "?" behind one without a place.
std::string Shown(const CallTreeNode *first, const CallTreeNode *parent = nullptr) {
    std::string text;
    for (const CallTreeNode *node = first; node; node = node->next) {
        EXPECT_EQ(node->parent, parent);
        text += (text.empty() ? "" : " ") + node->name + (node->color == 0xff ? "!" : "") + (node->location ? "" : "?");
        if (node->firstChild) text += "(" + Shown(node->firstChild, node) + ")";
    }
    return text;
}

std::string Parsed(const std::string &text, bool fold = false) {
    std::optional<CCallTree> tree = ParseCallTree(text);
    if (!tree) return "none";
    if (fold) tree->Fold();
    return Shown(tree->First());
}

std::string Nested(int levels, const std::string &innermost) {
    std::string text = innermost;
    for (int level = levels - 1; level >= 0; --level) text = Item("f" + std::to_string(level), text);
    return text;
}

}  // namespace

TEST(CallTreeFile, ReadsFunctionsAndTheirCalls) {
    const auto tree = ParseCallTree(
        "// made by a tool\n main : \"..\\src a/m-1.c\" , line = 12 // here\n"
        "{ _init:\"\xC3\x84.c\"}");
    EXPECT_FALSE(tree);  // the name of the second file has a letter beyond ASCII, and a part is missing

    const auto good =
        ParseCallTree("main : \" ..\\src a//m-1.c\" , line = 12 // here\n{ ~_x1:\"$\",line=4000000000{}}//");
    ASSERT_TRUE(good && good->First());
    const CallTreeNode &main = *good->First();
    EXPECT_EQ(main.location->file, "..\\src a//m-1.c");
    EXPECT_EQ(main.location->line, 12);
    ASSERT_TRUE(main.firstChild);
    EXPECT_EQ(main.firstChild->name, "~_x1");
    EXPECT_EQ(main.firstChild->location->line, 2147483647);
}

TEST(CallTreeFile, TakesOrDropsATextAsAWhole) {
    const struct {
        std::string text, expected;
    } cases[] = {
        {"", ""},
        {" \t\r\n// nothing", ""},
        {Item("a") + "\n" + Item("b", Item("c") + Item("d")) + "\n", "a b(c d)"},
        {"a//\n://\n\"x\"//\n,//\nline//\n=//\n7//\n{//\n}//\n", "a"},
        {"two words:\"m.c\",line=1{}", "none"},
        {"1st:\"m.c\",line=1{}", "none"},
        {"a:\"\",line=1{}", "none"},
        {"a:\"/m.c\",line=1{}", "none"},
        {"a:\"m.c\",line=-1{}", "none"},
        {"a:\"m.c\",line=4294967296{}", "none"},
        {"a:\"m.c\",line=99999999999999999999{}", "none"},
        {"a:\"m.c\",li ne=1{}", "none"},
        {Item("a") + "}", "none"},
        {Item("a") + "{}", "none"},
        {"a:\"m.c\",line=1{", "none"},
        {Item("a") + "/ comment", "none"},
        {std::string("a:\"m.c\",line=1{}\0", 17), "none"},
        {Item(std::string(10000, 'n')), std::string(10000, 'n')},
    };
    for (const auto &c : cases) EXPECT_EQ(Parsed(c.text), c.expected) << c.text.substr(0, 80);
}

TEST(CallTreeFile, MarksDeepCallsAndDropsTheDeepest) {
    std::string expected;
    for (int level = 0; level < 13; ++level)
        expected += (level ? "(f" : "f") + std::to_string(level) + (level >= 9 ? "!" : "");
    const std::string deepest = expected + "(...!?" + std::string(13, ')');
    EXPECT_EQ(Parsed(Nested(13, {})), expected + std::string(12, ')'));
    EXPECT_EQ(Parsed(Nested(14, {})), deepest);
    EXPECT_EQ(Parsed(Nested(40, {})), deepest);
    // What follows the dropped levels finds its place again.
    const std::string three = Item("x", Item("y", Item("z"))) + Item("x") + Item("x");
    EXPECT_EQ(Parsed(Nested(13, three)), expected + "(...!? ...!? ...!?" + std::string(13, ')'));
    EXPECT_EQ(Parsed(Nested(13, three), true), deepest);
    EXPECT_EQ(Parsed(Nested(14, three) + Item("next", Item("call"))), deepest + " next(call)");
}

TEST(CallTreeFile, FoldsEqualCallsOfOneFunction) {
    const std::string pair = Item("x", Item("y"));
    const struct {
        std::string text, expected;
    } cases[] = {
        {Item("m", pair + Item("a") + pair + pair), "m(x(y) a)"},
        {Item("m", Item("a", {}, 1) + Item("a", {}, 2) + Item("a", {}, 1)), "m(a a)"},
        {Item("m", Item("a") + "a:\"n.c\",line=1{}"), "m(a a)"},
        {Item("m", pair + Item("x", Item("y") + Item("y"))), "m(x(y) x(y))"},  // were different before
        {Item("m", Item("x", Item("a") + Item("b")) + Item("x", Item("b") + Item("a"))), "m(x(a b) x(b a))"},
        {Item("m", Item("x", Item("y", Item("z"))) + Item("x", Item("y") + Item("z"))), "m(x(y(z)) x(y z))"},
        {Item("m", Item("n", pair + pair) + Item("n", pair + pair)), "m(n(x(y)))"},
        {Item("m") + Item("m"), "m m"},  // not at the top level
    };
    for (const auto &c : cases) EXPECT_EQ(Parsed(c.text, true), c.expected) << c.text;
}

TEST(CallTreeFile, BearsAnyDepthAndWidth) {
    std::string deep;
    for (int i = 0; i < 50000; ++i) deep += "f:\"a\",line=1{";
    EXPECT_FALSE(ParseCallTree(deep));
    EXPECT_TRUE(ParseCallTree(deep + std::string(50000, '}')));
    EXPECT_FALSE(ParseCallTree(deep + std::string(50001, '}')));

    std::string wide;
    for (int i = 0; i < 20000; ++i) wide += Item("f", {}, i % 10000);
    auto tree = ParseCallTree(Item("m", wide));
    ASSERT_TRUE(tree);
    tree->Fold();
    int children = 0;
    for (const CallTreeNode *node = tree->First()->firstChild; node; node = node->next) ++children;
    EXPECT_EQ(children, 10000);
}
