#include "framework/Text.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>

#include "framework/RecentList.h"
#include "platform/UserStore.h"

TEST(FormatText, FillsInWhatThereIs) {
    const struct {
        const char *format;
        std::vector<std::string> values;
        const char *expected;
    } cases[] = {
        {"%s - %s (%s)", {"A", "P", "W"}, "A - P (W)"},
        {"%d and %ld", {"1", "2"}, "1 and 2"},
        {"File%d", {"8"}, "File8"},
        {"100%% of %s", {"%s"}, "100% of %s"},  // a value is never read as a format
        {"%s %s", {"one"}, "one "},             // a missing value
        {"%s", {"one", "two"}, "one"},          // one too many
        {"%x %", {"one"}, "%x %"},              // no mark of ours
        {"", {"one"}, ""},
    };
    for (const auto &[format, values, expected] : cases) EXPECT_EQ(FormatText(format, values), expected) << format;
}

class RecentListTest : public testing::Test {
protected:
    ~RecentListTest() override { std::filesystem::remove_all(directory); }

    static std::filesystem::path MakeDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "thornwell-XXXXXX").string();
        return mkdtemp(name.data());
    }

    const std::filesystem::path directory = MakeDirectory();
    CUserStore store{(directory / "store.db").string()};
};

TEST_F(RecentListTest, KeepsTheEightLatest) {
    CRecentList list("Recent Files", "File%d");
    list.Load(store);
    for (int i = 1; i <= 10; ++i) list.Add("\\d\\" + std::to_string(i) + ".c");
    list.Add("\\d\\5.c");
    ASSERT_EQ(list.Entries().size(), 8u);
    EXPECT_EQ(list.Entries()[0], "\\d\\5.c");
    EXPECT_EQ(list.Entries()[1], "\\d\\10.c");
    EXPECT_EQ(list.Entries()[7], "\\d\\3.c");
    EXPECT_EQ(store.ReadString("Recent Files", "File1"), "\\d\\5.c");
    EXPECT_EQ(store.ReadString("Recent Files", "File8"), "\\d\\3.c");

    list.Remove(0);
    list.Remove(42);
    CRecentList again("Recent Files", "File%d");
    again.Load(store);
    EXPECT_EQ(again.Entries(), list.Entries());
    EXPECT_EQ(again.Entries().size(), 7u);
    EXPECT_EQ(store.ReadString("Recent Files", "File8"), std::nullopt);
}

TEST_F(RecentListTest, KeepsTwoFilesWhoseNamesDifferInCaseApart) {
    const std::string base = directory.string();
    for (const char *name : {"/main.c", "/MAIN.c", "/one.c"}) fclose(fopen((base + name).c_str(), "w"));
    CRecentList list("Recent Files", "File%d");
    list.Load(store);
    list.Add(base + "/main.c");
    list.Add(base + "/MAIN.c");
    list.Add(base + "/main.c");
    list.Add(base + "/One.c");
    list.Add(base + "/ONE.C");
    EXPECT_EQ(list.Entries(), (std::vector<std::string>{base + "/ONE.C", base + "/main.c", base + "/MAIN.c"}));
}

TEST_F(RecentListTest, ShortensTheMiddleForMenus) {
    const struct {
        const char *name, *shown;
    } cases[] = {
        {"\\a\\b.c", "&1 /a/b.c"},
        {"\\a\\x&y.c", "&1 /a/x&&y.c"},
        {"\\123456789\\123456789\\12345.asm", "&1 /123456789/123456789/12345.asm"},
        {"\\123456789\\123456789\\123456.asm", "&1 /123456789/123…6789/123456.asm"},
        {"\\home\\developer\\thermostat\\firmware\\main.asm", "&1 /home/develope…rmware/main.asm"},
        {"\\h\\a-very-long-name-of-a-source-file-indeed.asm", "&1 /h/…f-a-source-file-indeed.asm"},
        {"\\ä\\öööööööööööööööööööööööööööööööööööö\\ü.asm", "&1 /ä/ööööööööööö…ööööööööö/ü.asm"},
    };
    for (const auto &[name, shown] : cases) {
        CRecentList list("Recent Files", "File%d");
        list.Load(store);
        list.Add(name);
        EXPECT_EQ(list.MenuText(0), shown);
    }
}
