#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "coff/FunctionSplit.h"
#include "asmtool/StatisticsFiles.h"
#include "navigation/CallTreeFile.h"
#include "navigation/FunctionStats.h"

namespace {

// Functions named "f0", "f1" and so on, with their callees.
LinkStatistics Program(const std::vector<std::vector<int>> &callees) {
    LinkStatistics statistics;
    for (const std::vector<int> &list : callees) {
        LinkedFunction function;
        function.name = "f" + std::to_string(statistics.functions.size());
        function.file = "a.asm";
        function.callees = list;
        statistics.functions.push_back(function);
    }
    return statistics;
}

// The names with their braces, without places, comments and white space.
std::string Shape(const std::string &tree) {
    std::string shape;
    for (size_t i = 0; i < tree.size(); ++i) {
        if (tree[i] == ':') i = tree.find('{', i);
        if (tree.compare(i, 2, "//") == 0) i = tree.find('\n', i);
        if (tree[i] != '\n' && tree[i] != '\t' && tree[i] != ' ') shape += tree[i];
    }
    return shape;
}

}  // namespace

TEST(CallTreeText, BeginsWithWhatNobodyCallsAndEndsAtRecursion) {
    struct {
        const char *name;
        std::vector<std::vector<int>> callees;
        const char *shape;
    } cases[] = {
        {"orphans in order", {{}, {0}, {}}, "f1{f0{}}f2{}"},
        {"a cycle that nobody reaches comes last", {{1}, {0}, {2}, {}}, "f2{f2{}}f3{}f0{f1{f0{}}}"},
        {"a cycle that another reaches is no root", {{1}, {0}, {3}, {2, 0}}, "f2{f3{f2{}f0{f1{f0{}}}}}"},
        {"recursion stops on its own path only", {{1, 2}, {2}, {1}}, "f0{f1{f2{f1{}}}f2{f1{f2{}}}}"},
    };
    for (const auto &c : cases) EXPECT_EQ(Shape(CallTreeText(Program(c.callees))), c.shape) << c.name;
}

TEST(CallTreeText, IsBounded) {
    std::vector<std::vector<int>> chain;
    for (int i = 1; i <= 20; ++i) chain.push_back({i});
    chain.emplace_back();
    const std::string deep = CallTreeText(Program(chain));
    EXPECT_EQ(std::count(deep.begin(), deep.end(), '{'), 14) << "the levels that the reader shows";

    // Each calls all later ones. What fits is a whole upper part, and each root is there.
    std::vector<std::vector<int>> all(300);
    for (int i = 0; i < 300; ++i)
        for (int k = i + 1; k < 300; ++k) all[static_cast<size_t>(i)].push_back(k);
    const std::string wide = CallTreeText(Program(all), 1000);
    EXPECT_LE(std::count(wide.begin(), wide.end(), '{'), 1000);
    EXPECT_GE(std::count(wide.begin(), wide.end(), '{'), 800);
    EXPECT_NE(wide.find("// its calls are left out"), std::string::npos);
    EXPECT_TRUE(ParseCallTree(wide));
    const std::string roots = CallTreeText(Program(std::vector<std::vector<int>>(50)), 10);
    EXPECT_EQ(std::count(roots.begin(), roots.end(), '{'), 50);
}

TEST(StatisticsFiles, KeepToTheCharactersOfTheirReaders) {
    struct {
        const char *label, *name, *native, *file;
    } cases[] = {
        {"main", "main", "main.asm", ".\\main.asm"},
        {".code", "_code", "../lib/x.asm", "..\\lib\\x.asm"},
        {"1up", "_1up", "/home/u/a b.asm", "c:\\home\\u\\a b.asm"},
        {"a?b@c$", "a_b_c_", "sub/it's {1}.asm", ".\\sub\\it_s _1_.asm"},
        {"gr\xC3\xB6\xC3\x9F"
         "e",
         "gr__e", "\xE6\x97\xA5.asm", ".\\_.asm"},
        {"", "_", "./a\"//b.asm", ".\\a_\\b.asm"},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(StatisticsName(c.label), c.name);
        EXPECT_EQ(StatisticsFileName(c.native), c.file);
        LinkStatistics statistics;
        statistics.functions = {{c.label, c.native, 7, 3, 5, false, {}}};
        statistics.commonRam = 11;
        const auto tree = ParseCallTree(CallTreeText(statistics));
        ASSERT_TRUE(tree && tree->First()) << c.label;
        EXPECT_EQ(tree->First()->name, c.name);
        EXPECT_EQ(tree->First()->location->file, c.file);
        const auto functions = ParseFunctionStats(FunctionInfoText(statistics));
        ASSERT_TRUE(functions && functions->size() == 2) << c.label;
        const SStatData &first = functions->front(), &rest = functions->back();
        EXPECT_EQ(std::tie(first.name, first.file, first.line, first.ramWhole, first.ramPart, first.rom),
                  std::make_tuple(c.name, c.file, 7, 3, 0, 5));
        EXPECT_EQ(std::tie(rest.name, rest.ramWhole, rest.rom), std::make_tuple(kGlobalData, 11, 0));
    }
}

// Each label that becomes a function makes the jump over it one between functions, and so the next label another.
TEST(SplitIntoFunctions, FollowsALongChainInOneGo) {
    constexpr uint32_t kCount = 200000;
    ProgramPart part{0, 2 * kCount, {}, {}};
    std::vector<Transfer> transfers = {{1, kCount, true}};
    for (uint32_t i = 0; i < kCount; ++i) part.labels.push_back(2 * i);
    for (uint32_t i = 0; i < kCount / 2; ++i) {
        transfers.push_back({kCount + 2 * i, kCount - 2 - 2 * i, false});      // back over the upper half's begin
        transfers.push_back({kCount - 2 - 2 * i, kCount + 2 + 2 * i, false});  // and forth
    }
    const auto begin = std::chrono::steady_clock::now();
    const std::vector<FunctionRange> functions = SplitIntoFunctions({part}, transfers);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    EXPECT_EQ(functions.size(), kCount);
    transfers.erase(transfers.begin());  // the call that started it
    EXPECT_EQ(SplitIntoFunctions({part}, transfers).size(), 1u);
}
