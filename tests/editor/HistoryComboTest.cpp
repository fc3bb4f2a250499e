#include "editor/HistoryCombo.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "SettingsScratch.h"

namespace {

std::vector<std::string> Items(const CHistoryCombo &box) {
    std::vector<std::string> items;
    for (int i = 0; i < box.GetCount(); ++i) items.push_back(box.GetLBText(i));
    return items;
}

std::string Stored(const std::string &key) {
    return GetProfileStringA("Find", key, "-");
}

using Texts = std::vector<std::string>;

}  // namespace

TEST(HistoryCombo, KeepsTheOrderOfUse) {
    CHistoryCombo box;
    box.SetMaxHistory(3);
    for (const char *text : {"a", "b", " c ", "a", "A"}) EXPECT_EQ(box.AddString(text), 0);
    EXPECT_EQ(box.AddString(" \t"), -1);
    EXPECT_EQ(Items(box), (Texts{"A", "a", " c "}));
    EXPECT_EQ(box.currentText(), "A");
    box.SetMaxHistory(1);
    EXPECT_EQ(Items(box), Texts{"A"});
}

TEST(HistoryCombo, ComesBackFromTheSettings) {
    const CSettingsScratch scratch;
    CHistoryCombo unloaded;
    unloaded.AddString("x");
    unloaded.Save();
    EXPECT_FALSE(HasUserSection("Find"));

    for (int i = 0; i < 12; ++i) WriteUserString("Find", "Base" + std::to_string(i), "old" + std::to_string(i));
    WriteUserString("Find", "Base14", "behind a gap");
    CHistoryCombo box;
    box.SetMaxHistory(8);
    EXPECT_EQ(box.Load("Base"), "");
    EXPECT_EQ(box.GetCount(), 8);
    EXPECT_EQ(box.currentText(), "");
    box.setEditText("old3");
    box.Save();
    EXPECT_EQ(Stored("Base0"), "old3");
    EXPECT_EQ(Stored("Base7"), "old7");
    EXPECT_EQ(Stored("Base"), "old3");
    for (const char *stale : {"Base8", "Base9", "Base11"}) EXPECT_EQ(Stored(stale), "-") << stale;
    EXPECT_EQ(Stored("Base14"), "behind a gap");

    // The text on show: in the list in any case, or typed only
    const struct {
        const char *last, *shown;
        int index;
    } cases[] = {{"old5", "old5", 5}, {"OLD3", "old3", 0}, {"none", "none", -1}};
    for (const auto &c : cases) {
        WriteUserString("Find", "Base", c.last);
        CHistoryCombo again;
        EXPECT_EQ(again.Load("Base"), c.last);
        EXPECT_EQ(again.currentText(), c.shown);
        EXPECT_EQ(again.GetCurSel(), c.index);
    }
    WriteUserString("Find", "Last", "fallback");
    EXPECT_EQ(CHistoryCombo().Load(""), "fallback");
}

TEST(HistoryCombo, GoesThroughAnArchive) {
    CHistoryCombo box;
    for (const char *text : {"a", "\xc3\xa4 b"}) box.AddString(text);
    box.setEditText("typed");
    std::ostringstream written;
    box.Serialize(written);
    CHistoryCombo copy;
    std::istringstream archive(written.str()), cut(written.str().substr(0, written.str().size() - 1));
    copy.AddString("mine");
    EXPECT_FALSE(copy.Serialize(cut));
    EXPECT_EQ(Items(copy), Texts{"mine"});
    EXPECT_TRUE(copy.Serialize(archive));
    EXPECT_EQ(Items(copy), (Texts{"\xc3\xa4 b", "a"}));
    EXPECT_EQ(copy.currentText(), "typed");
}
