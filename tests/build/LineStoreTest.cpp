#include "build/LineStore.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "build/TextColumns.h"

namespace {

TEST(LineStore, KeepsLinesOfEveryLength) {
    std::vector<std::string> lines;
    for (const size_t length : {0, 1, 79, 8000, 8188, 8192, 65532, 65536, 300000, 3}) lines.emplace_back(length, 'x');
    for (int i = 0; i < 20000; ++i) lines.push_back("line " + std::to_string(i));
    LineStore store;
    size_t bytes = 0;
    std::vector<std::string_view> views;
    for (const std::string &line : lines) {
        store.Append(line);
        views.push_back(store.Line(store.Count() - 1));
        bytes += line.size();
    }
    ASSERT_EQ(store.Count(), lines.size());
    EXPECT_EQ(store.TextBytes(), bytes);
    for (size_t i = 0; i < lines.size(); ++i) {
        ASSERT_EQ(store.Line(i), lines[i]) << i;
        ASSERT_EQ(views[i].data(), store.Line(i).data()) << i;  // nothing moved
    }
    store.Clear();
    EXPECT_EQ(store.Count(), 0u);
    EXPECT_EQ(store.TextBytes(), 0u);
    store.Append("again");
    EXPECT_EQ(store.Line(0), "again");
}

TEST(TextColumns, CountsCharactersAndTabs) {
    const struct {
        const char *text;
        size_t columns;
    } cases[] = {{"", 0}, {"abc", 3}, {"\t", 8}, {"a\tb", 9}, {"12345678\tb", 17}, {"gr\u00FCn", 4}, {"\u20AC\t", 8}};
    for (const auto &c : cases) EXPECT_EQ(CountColumns(c.text), c.columns) << c.text;
}

TEST(TextColumns, TakesWhatShowsOfALongLine) {
    EXPECT_EQ(SliceColumns("a\tb", 5, 1).text, "a       b");  // a short line comes whole

    const std::string euros = [] {
        std::string text = "\t";
        for (int i = 0; i < 1000; ++i) text += i == 500 ? "x" : "\u20AC";
        return text;
    }();
    const ColumnSlice middle = SliceColumns(euros, 507, 3);
    EXPECT_EQ(middle.text, "\u20ACx\u20AC");
    EXPECT_EQ(middle.column, 507u);
    const ColumnSlice left = SliceColumns(euros, 4, 6);  // the tab is cut into: it comes whole
    EXPECT_EQ(left.text, "        \u20AC\u20AC");
    EXPECT_EQ(left.column, 0u);
    EXPECT_EQ(SliceColumns(euros, 5000, 10).text, "");
}

}  // namespace
