#include "app/Path.h"

#include <gtest/gtest.h>

#include "support/ScratchDirectory.h"
#include "app/FilePath.h"
#include "app/PathNames.h"
#include "app/ProjectDirScope.h"
#include "platform/PathCalls.h"

namespace {

TEST(CPath, Parses) {
    struct { const char *text, *drive, *directory, *title, *extension; bool relative; const char *full; } cases[] = {
        {"a/b/c.tar.gz", "", "a\\b\\", "c.tar", "gz", true, "a\\b\\c.tar.gz"},
        {"\"c:\\my dir\\x.c\"", "c:", "\\my dir\\", "x", "c", false, "c:\\my dir\\x.c"},
        {"main.c", "", "", "main", "c", false, "main.c"},
        {"./main.c", "", ".\\", "main", "c", true, ".\\main.c"},
        {"\\main.c", "", "\\", "main", "c", false, "\\main.c"},
        {".cfg", "", "", "", "", false, ""},
        {"x.", "", "", "x", "", false, "x"},
        {"\"\"", "", "", "", "", false, ""},
        {"", "", "", "", "", false, ""},
    };
    for (const auto &c : cases) {
        const CPath path(c.text);
        EXPECT_EQ(path.GetText(), c.text);
        EXPECT_EQ(path.GetDrive() + "|" + path.GetDir() + "|" + path.GetTitle() + "|" + path.GetExtension(),
                  std::string(c.drive) + "|" + c.directory + "|" + c.title + "|" + c.extension);
        EXPECT_EQ(path.IsRelative(), c.relative) << c.text;
        EXPECT_EQ(path.GetFullPathCached(), std::string(c.full));
    }
    CPath path("c:\\a\\b.c");
    path.Set(path.GetText());
    EXPECT_EQ(path.GetFullPath(), "c:\\a\\b.c");
    path.Set("x");
    EXPECT_EQ(path.GetFullPath(), "x");
    const std::string deep = "\\" + std::string(4000, 'd') + "\\x.c";
    EXPECT_EQ(CPath(deep).GetFullPath(), deep);
    EXPECT_EQ(CFilePath("\"c:\\a b\\p.__c\"").GetDirectory(), "c:\\a b\\");
}

TEST(CPath, MakesAbsolute) {
    struct { const char *path, *base, *expected; } cases[] = {
        {"..\\x.c", "c:\\a\\b", "c:\\a\\x.c"}, {"./x.c", "c:/a", "c:\\a\\x.c"}, {"sub\\x.c", "\\h\\", "\\h\\sub\\x.c"},
        {"main.c", "c:\\a", ""}, {"c:\\x.c", "c:\\a", ""}, {".\\x.c", "", ""}, {"..\\..\\x.c", "c:\\a", ""},
    };
    for (const auto &c : cases) EXPECT_EQ(CPath(c.path).MakeAbsolute(c.base), c.expected) << c.path;
}

TEST(CPath, MakesRelative) {
    struct { const char *path, *base, *expected; } cases[] = {
        {"c:\\a\\x.c", "c:\\a\\b\\", "..\\x.c"}, {"c:\\a\\b\\x.c", "c:\\a\\b\\", "x.c"},
        {"c:\\a\\b\\x.c", "c:\\a\\q\\..\\b", "x.c"}, {"c:\\x.c", "c:\\", "x.c"}, {"\\x.c", "\\", "x.c"},
        {"\\h\\x.c", "c:\\h\\b", "..\\x.c"}, {"c:\\a\\sub\\", "c:\\a", "sub\\"}, {"d:\\x.c", "c:\\a\\b\\", ""},
        {"a\\x.c", "c:\\a", ""}, {"\\x.c", "", ""}, {"c:\\q\\.cfg", "c:\\a", ""},
    };
    for (const auto &c : cases) EXPECT_EQ(CPath(c.path).MakeRelative(c.base), c.expected) << c.path;
}

TEST(PathNames, MakesNamesRelativeToAFile) {
    struct { const char *base, *name, *expected; } cases[] = {
        {"c:\\p\\p.__c", "C:\\P\\src\\m.c", "src\\m.c"}, {"c:\\p\\p.__c", "c:/p/src/m.c", "src/m.c"},
        {"c:\\p\\p.__c", "\"c:\\p\\a b.c\"", "a b.c"},   {"c:\\p\\p.__c", "c:\\q\\m.c", "..\\q\\m.c"},
        {"c:\\p\\p.__c", "d:\\m.c", "d:\\m.c"},          {"c:\\p\\p.__c", "c:\\p2\\m.c", "..\\p2\\m.c"},
        {"\\h\\p\\p.__c", "\\h\\p\\m.c", "m.c"},         {"\\h\\p\\p.__c", "\\h\\q\\m.c", "..\\q\\m.c"},
        {"\\h\\p\\p.__c", "c:\\h\\p\\m.c", "m.c"},       {"c:\\p\\p.__c", "sub\\m.c", "sub\\m.c"},
        {"c:\\p\\p.__c", "m.c", "m.c"},                  {"p.__c", "\\h\\m.c", "\\h\\m.c"},
        {"c:\\p\\p.__c", "c:\\p\\.cfg", ".cfg"},         {"c:\\p\\p.__c", "c:\\q\\.cfg", "c:\\q\\.cfg"},
        {"c:\\k\\p.__c", "c:\\\xE2\x84\xAA\\m.c", "m.c"},  // a capital that is longer than its letter
    };
    for (const auto &c : cases) {
        std::string name = c.name;
        MakeRelativeToFile(c.base, name);
        EXPECT_EQ(name, c.expected) << c.base << " " << c.name;
    }
}

TEST(PathNames, SlashesAndQuotes) {
    EXPECT_EQ(AddSlash("c:/"), "c:/");
    EXPECT_EQ(AddSlash("c:\\a"), "c:\\a\\");
    EXPECT_EQ(AddSlash(""), "");
    EXPECT_EQ(QuoteToolPath("c:\\a b\\make.exe", "c:\\a b"), "\"c:\\a b\\make.exe\"");
    EXPECT_EQ(QuoteToolPath("c:\\ab\\my make.exe", "c:\\ab"), "c:\\ab\\my make.exe");
    EXPECT_EQ(QuoteIfBlank("a\tb"), "\"a\tb\"");
    EXPECT_EQ(QuoteIfBlank("ab"), "ab");
    EXPECT_EQ(QuoteListedName("a\tb"), "a\tb");
    EXPECT_EQ(QuoteListedName("a b"), "\"a b\"");
    EXPECT_EQ(QuoteListedName("\"a b\""), "\"a b\"");
}

TEST(CPath, SameAndLongPathsLookAtTheDisk) {
    const CScratchDirectory scratch;
    scratch.Write("Src/Main.c", "");
    const std::string stored = scratch.Windows("Src\\Main.c"), other = scratch.Windows("SRC/MAIN.C");
    for (const CPath::LongPathCall call : {CPath::LongPathCall(&GetLongPathNameA), CPath::LongPathCall(nullptr)}) {
        CPath::SetLongPathCall(call);
        EXPECT_EQ(CPath(other).GetLongPath(), stored);
        EXPECT_EQ(CPath("c:" + other).GetLongPath(), "c:" + stored);
        EXPECT_EQ(CPath("/no/Such.c").GetLongPath(), "\\no\\Such.c");
        EXPECT_TRUE(CPath(stored).IsSamePath("\"" + other + "\""));
        EXPECT_TRUE(CPath(stored).IsSamePath("C:" + other));
        EXPECT_FALSE(CPath(stored).IsSamePath("d:" + other));
        EXPECT_FALSE(CPath(stored).IsSamePath(scratch.Windows("Src\\Main.h")));
        EXPECT_TRUE(CPath("\\no\\Such.c").IsSamePath("/NO/such.C"));
    }
    CPath::SetLongPathCall(&GetLongPathNameA);
}

TEST(ProjectDirScope, NestsAndPutsBack) {
    const CScratchDirectory scratch;
    scratch.Write("one/two/x", "");
    const std::string before = GetCurrentDirectoryA();
    {
        const ProjectDirScope one(scratch.Windows("ONE\\p.__c"));
        EXPECT_EQ(one.Directory(), scratch.Windows("one"));
        {
            const ProjectDirScope two("two/p.__c");
            EXPECT_EQ(GetCurrentDirectoryA(), scratch.Windows("one\\two"));
            const ProjectDirScope missing("none\\p.__c"), none(nullptr);
            EXPECT_EQ(missing.Directory(), scratch.Windows("one\\two"));
            EXPECT_EQ(none.Directory(), "");
        }
        EXPECT_EQ(GetCurrentDirectoryA(), scratch.Windows("one"));
    }
    EXPECT_EQ(GetCurrentDirectoryA(), before);
}

}  // namespace
