#include "debugger/ProfileRows.h"

#include <gtest/gtest.h>

#include "debugger/ProfileListBox.h"

namespace {

std::string Names(const CProfileRows &rows) {
    std::string names;
    for (const ProfileRow &row : rows.List()) names += row.name + ' ';
    return names;
}

}  // namespace

TEST(ProfileRow, ShortensItsFiguresAndMeasuresItsBar) {
    struct {
        uint64_t count, total;
        const char *figures;
        int bar;  // of 104 pixels
    } cases[] = {
        {0, 0, " 0% (0)", 4},
        {9998, 19996, " 50% (9998)", 54},
        {9999, 9999, " 100% (9k)", 104},
        {9999998, 40000000, " 24% (9999k)", 28},
        {9999999, 9999999, " 100% (9M)", 104},
        {4294967295, 3 * 4294967295ULL, " 33% (4294M)", 37},
    };
    for (const auto &c : cases) {
        const ProfileRow row{"f", c.total, c.count};
        EXPECT_EQ(row.Figures(), c.figures);
        EXPECT_EQ(row.BarWidth(104), c.bar) << c.figures;
        EXPECT_EQ(row.BarWidth(-20), 4) << c.figures;
    }
}

TEST(ProfileRows, KeepTheEnginesOrderFirstAndThenSortByWeight) {
    CProfileRows rows;
    rows.ShowError();
    rows.Update({{"a", 1}, {"b", 5}, {"c", 5}, {"d", 2}});
    EXPECT_EQ(Names(rows), "a b c d ");
    rows.Update({{"a", 1}, {"b", 5}, {"c", 5}, {"d", 2}, {"more", 7}});
    EXPECT_EQ(Names(rows), "b c d a ");  // equal ones in their order
    EXPECT_EQ(rows.List().front().total, 20U);
    rows.ShowError();
    EXPECT_EQ(Names(rows), "*error* *error* *error* *error* ");
    EXPECT_EQ(rows.List().front().count, 5U);
    rows.Update({{"a", 9}, {"b", 5}, {"c", 5}, {"d", 2}});
    EXPECT_EQ(Names(rows), "a b c d ");
    rows.Update({{"a", 1}, {"b", 3}});
    EXPECT_EQ(Names(rows), "b a c d ");
    EXPECT_EQ(rows.List().front().Percent(), 75U);
    EXPECT_EQ(rows.List().back().count, 0U);
}

TEST(ProfileListBox, KeepsTheSelectionOnItsFunctions) {
    CProfileListBox list(nullptr);
    const auto update = [&](const std::vector<ProfileEntry> &entries) {
        list.Change([&](CProfileRows &rows) { rows.Update(entries); });
    };
    update({{"a", 1}, {"twice", 2}, {"b", 3}, {"twice", 4}});
    for (const int row : {0, 3})
        list.selectionModel()->setCurrentIndex(list.model()->index(row, 0), QItemSelectionModel::Select);
    update({{"a", 1}, {"twice", 6}, {"b", 3}, {"twice", 5}});
    update({{"a", 9}, {"twice", 6}, {"b", 3}, {"twice", 7}});
    const std::string text = list.SelectedText();
    EXPECT_EQ(text.substr(text.find('\n')), "\na\t36%\t9\ntwice\t28%\t7\n");
    EXPECT_EQ(list.currentIndex().row(), 1);
}
