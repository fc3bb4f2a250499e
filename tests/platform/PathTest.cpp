#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/ScratchDirectory.h"
#include "platform/FileFind.h"
#include "platform/FileText.h"
#include "platform/FileTime.h"
#include "platform/PathCalls.h"
#include "platform/ProgramDirectory.h"

namespace {

TEST(PathCalls, Split) {
    struct { const char *path, *drive, *directory, *name, *extension; } cases[] = {
        {"c:\\a.b\\c.tar.gz", "c:", "\\a.b\\", "c.tar", ".gz"},
        {"a/b\\c", "", "a/b\\", "c", ""},
        {".cfg", "", "", "", ".cfg"},
        {"x.", "", "", "x", "."},
        {"c:", "c:", "", "", ""},
        {"\\a\\..", "", "\\a\\", "..", ""},
    };
    for (const auto &c : cases) {
        const SplitPath parts = _splitpath(c.path);
        EXPECT_EQ(parts.drive + "|" + parts.directory + "|" + parts.name + "|" + parts.extension,
                  std::string(c.drive) + "|" + c.directory + "|" + c.name + "|" + c.extension);
    }
}

TEST(PathCalls, Canonicalize) {
    struct { const char *path, *expected; } cases[] = {  // null: can't be reduced
        {"c:\\a\\b\\..\\x.c", "c:\\a\\x.c"}, {"c:/a/./b/", "c:\\a\\b\\"}, {"\\a\\\\b", "\\a\\b"},
        {"c:\\a\\..", "c:\\"},               {"a\\..", "."},             {"\\\\host\\x\\..", "\\\\host"},
        {"c:\\a\\..\\..\\x", nullptr},       {"..\\x", nullptr},         {"", nullptr},
        {"\\..", nullptr},                   {".\\x", "x"},              {"a\\...\\b", "a\\...\\b"},
    };
    for (const auto &c : cases) {
        std::string out = "untouched";
        EXPECT_EQ(PathCanonicalizeA(out, c.path), c.expected != nullptr) << c.path;
        EXPECT_EQ(out, c.expected ? c.expected : "untouched") << c.path;
    }
}

TEST(PathCalls, Relative) {
    struct { const char *from, *to; unsigned toAttributes; const char *expected; } cases[] = {  // null: no common root
        {"c:\\a\\b", "c:\\A\\x.c", 0, "..\\x.c"},     {"c:\\a\\b", "c:\\a\\b\\x.c", 0, ".\\x.c"},
        {"c:\\a\\b", "c:\\ab\\x.c", 0, "..\\..\\ab\\x.c"}, {"c:\\", "c:\\x.c", 0, ".\\x.c"},
        {"c:\\a", "d:\\a\\x.c", 0, nullptr},          {"c:\\a\\b", "c:\\a\\b", 16, "."},
        {"c:\\a\\b", "c:\\a\\c\\", 16, "..\\c\\"},    {"c:\\a", "a\\x.c", 0, nullptr},
        {"\\home\\u", "c:\\home\\u\\x.c", 0, ".\\x.c"}, {"\\home\\u", "d:\\home\\u\\x.c", 0, nullptr},
        {"c:\\a\\b", "c:\\a\\b", 0, "..\\b"},         {"a\\b", "a\\c.c", 0, "..\\c.c"},
        {"a", "b", 0, nullptr},                       {"c:\\a\\..\\b", "c:\\x", 0, nullptr},
    };
    for (const auto &c : cases) {
        std::string out = "untouched";
        EXPECT_EQ(PathRelativePathToA(out, c.from, 16, c.to, c.toAttributes), c.expected != nullptr) << c.from << c.to;
        EXPECT_EQ(out, c.expected ? c.expected : "untouched") << c.from << " " << c.to;
    }
    std::string out;
    EXPECT_TRUE(PathRelativePathToA(out, "c:\\a\\p.__c", 0, "c:\\a\\x.c", 0));
    EXPECT_EQ(out, ".\\x.c");
}

TEST(PathCalls, CompareWithoutCase) {
    struct { const char *a, *b; int expected; } cases[] = {
        {"Main.C", "mAIN.c", 0}, {"a", "b", -1}, {"B", "a", 1}, {"a", "ab", -1}, {"", "", 0},
        {"\xC3\x84.c", "\xC3\xA4.C", 0}, {"\xD0\x96", "\xD0\xB6", 0}, {"\xFF", "\xFE", 1}, {"\xC3", "\xC3", 0},
        {"\xE2\x84\xAA", "k", 0},  // the Kelvin sign, three bytes long
    };
    for (const auto &c : cases) EXPECT_EQ(lstrcmpiA(c.a, c.b), c.expected) << c.a << " " << c.b;
    EXPECT_EQ(MatchPrefixNoCase("\xE2\x84\xAA\\x", "k\\"), 4u);
    EXPECT_FALSE(StartsWithNoCase("ab", "abc"));
    EXPECT_EQ(LowerCase("\xC3\x84\xFF\xF0\x9F\x98\x80Z"), "\xC3\xA4\xFF\xF0\x9F\x98\x80z");
}

TEST(NativePath, MapsDrivesAndSeparators) {
    struct { const char *windows, *native; } cases[] = {
        {"", ""}, {"c:\\no\\Such.c", "/no/Such.c"}, {"C:/no", "/no"}, {"d:\\no", "/mnt/d/no"}, {"E:", "/mnt/e"},
        {"c:", "/"}, {"d:x", "/mnt/d/x"}, {"\\no\\x", "/no/x"}, {"no\\such\\x.c", "no/such/x.c"}, {"..\\x", "../x"},
    };
    for (const auto &c : cases) EXPECT_EQ(ToNativePath(c.windows), c.native) << c.windows;
    EXPECT_EQ(FromNativePath("/home/u/x.c"), "\\home\\u\\x.c");
    EXPECT_EQ(ToNativePath(FromNativePath("a:b")), "./a:b");
}

TEST(NativePath, LooksUpWithoutCaseAndPrefersTheExactName) {
    const CScratchDirectory scratch;
    for (const char *name : {"Src/Main.c", "Src/MAIN.C", "src2/a.c", "SRC2/b.c", "\xC3\x84/x"})
        scratch.Write(name, name);
    struct { const char *windows, *native; } cases[] = {
        {"Src\\Main.c", "Src/Main.c"}, {"Src\\MAIN.C", "Src/MAIN.C"}, {"src\\main.C", "Src/MAIN.C"},
        {"src2\\A.c", "src2/a.c"},     {"Src2\\B.c", "SRC2/b.c"},     {"src2\\b.c", "src2/b.c"},
        {"SRC\\New\\File.c", "Src/New/File.c"}, {"src\\main.c\\x", "Src/MAIN.C/x"}, {"\xC3\xA4\\X", "\xC3\x84/x"},
        {"Src\\..\\src2\\.\\A.C", "Src/../src2/./a.c"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(ToNativePath(scratch.Windows(c.windows)), scratch.Native(c.native)) << c.windows;
    std::filesystem::create_symlink("nowhere", scratch.Native("Dangling"));
    EXPECT_EQ(ToNativePath(scratch.Windows("dangling")), scratch.Native("Dangling"));
}

TEST(PathCallsOnDisk, LongAndShortNames) {
    const CScratchDirectory scratch;
    for (const char *name : {"Dir/Blink Project.__c", "Dir/Blink Program.__c", "Dir/BLINKP~3.__C", "Dir/short.c",
                             "Dir/Blink Pro.h", "Dir/.config", "Dir/\xC3\xA4.c"})
        scratch.Write(name, "");
    std::string out = "untouched";
    EXPECT_FALSE(GetLongPathNameA(out, scratch.Windows("dir\\none.c")));
    EXPECT_EQ(out, "untouched");
    EXPECT_TRUE(GetLongPathNameA(out, scratch.Windows("DIR\\SHORT.C")));
    EXPECT_EQ(out, scratch.Windows("Dir\\short.c"));
    EXPECT_TRUE(GetLongPathNameA(out, "C:" + scratch.Windows("DIR\\SHORT.C")));
    EXPECT_EQ(out, "C:" + scratch.Windows("Dir\\short.c"));

    struct { const char *name, *expected; } cases[] = {
        {"SHORT.c", "short.c"}, {"Blink Program.__c", "BLINKP~1.__C"}, {"Blink Project.__c", "BLINKP~2.__C"},
        {"Blink Pro.h", "BLINKP~1.H"}, {".config", "CONFIG~1"},
    };
    for (const auto &c : cases) {
        EXPECT_TRUE(GetShortPathNameA(out, scratch.Windows("Dir\\") + c.name)) << c.name;
        EXPECT_EQ(out, scratch.Windows("Dir\\") + c.expected);
    }
    EXPECT_FALSE(GetShortPathNameA(out, scratch.Windows("none")));
}

TEST(PathCallsOnDisk, AttributesAndTimes) {
    const CScratchDirectory scratch;
    scratch.Write("File.c", "x");
    EXPECT_EQ(GetFileAttributesA(scratch.Windows("FILE.C")), kFileAttributeNormal);
    EXPECT_EQ(GetFileAttributesA(scratch.Windows()), kFileAttributeDirectory);
    EXPECT_EQ(GetFileAttributesA(scratch.Windows("none")), kInvalidFileAttributes);
    EXPECT_EQ(GetFileAttributesA(""), kInvalidFileAttributes);
    EXPECT_TRUE(FileExists(scratch.Windows("file.c")));
    EXPECT_FALSE(FileExists(scratch.Windows()));
    EXPECT_TRUE(CreateDirectoryA(scratch.Windows("New")));
    EXPECT_FALSE(CreateDirectoryA(scratch.Windows("new")));
    struct timespec times[2] = {{5, 7}, {5, 7}};
    utimensat(AT_FDCWD, scratch.Native("File.c").c_str(), times, 0);
    EXPECT_EQ(ReadLastWriteTime(scratch.Windows("file.c")), 5'000'000'007);
    EXPECT_FALSE(ReadLastWriteTime(scratch.Windows("none")));
    ASSERT_EQ(mkfifo(scratch.Native("fifo").c_str(), 0600), 0);
    EXPECT_FALSE(ReadWholeFile(scratch.Windows("fifo")));  // and comes back
    EXPECT_FALSE(ReplaceWholeFile(scratch.Windows("fifo"), "x"));
}

TEST(FileFind, MatchesPatterns) {
    const CScratchDirectory scratch;
    for (const char *name :
         {"b.dll", "A.DLL", "a.dllx", "noext", ".hidden", "main.c", "main.\xC3\xA4", "MAIN.C", "Main.h"})
        scratch.Write(name, "");
    std::filesystem::create_directory(scratch.Native("sub.dll"));
    struct { const char *pattern, *expected; } cases[] = {
        {"*.dll", "A.DLL b.dll sub.dll "},
        {"*.*", ".hidden A.DLL MAIN.C Main.h a.dllx b.dll main.c main.\xC3\xA4 noext sub.dll "},
        {"main.?", "MAIN.C Main.h main.c main.\xC3\xA4 "},
        {"main.c", "main.c "}, {"Main.c", "MAIN.C "}, {"MAIN.H", "Main.h "},
        {"*a*n*.?", "MAIN.C Main.h main.c main.\xC3\xA4 "},
        {"none*", ""}, {"", ""},
    };
    for (const auto &c : cases) {
        std::string names;
        for (const FoundFile &file : FindFiles(scratch.Windows() + "\\" + c.pattern)) names += file.name + " ";
        EXPECT_EQ(names, c.expected) << c.pattern;
    }
    EXPECT_EQ(FindFiles(scratch.Windows("sub.dll")).at(0).attributes, kFileAttributeDirectory);
    EXPECT_TRUE(FindFiles(scratch.Windows("none\\*")).empty());
    scratch.Write(std::string(200, 'a'), "");
    EXPECT_TRUE(FindFiles(scratch.Windows("*a*a*a*a*a*a*a*a*a*a*a*a*a*b")).empty());  // and comes back
}

TEST(ProgramDirectory, FindsPrograms) {
    const CScratchDirectory scratch;
    for (const char *name : {"bin/tool.exe", "bin/plain", "path/tool.exe", "path/other", "bin/data.txt"}) {
        scratch.Write(name, "#!/bin/sh\n");
        if (std::string(name) != "bin/data.txt") chmod(scratch.Native(name).c_str(), 0755);
    }
    setenv("THORNWELL_PROGRAM_DIR", (scratch.Native("bin") + "/").c_str(), 1);
    const std::string path = getenv("PATH");
    setenv("PATH", ("::" + scratch.Native("path") + ":/nowhere").c_str(), 1);
    EXPECT_EQ(ProgramFile("x"), scratch.Windows("bin\\x"));
    struct { std::string word, expected; } cases[] = {
        {"tool.exe", scratch.Native("bin/tool.exe")}, {"Tool.EXE", scratch.Native("bin/tool.exe")},
        {"plain.exe", scratch.Native("bin/plain")},   {"other.exe", scratch.Native("path/other")},
        {"other", scratch.Native("path/other")},      {"data.txt", ""}, {"none", ""}, {"", ""},
        {scratch.Windows("path\\OTHER.exe"), scratch.Native("path/other")}, {scratch.Windows("bin"), ""},
    };
    for (const auto &c : cases) EXPECT_EQ(FindProgram(c.word), c.expected) << c.word;
    setenv("PATH", path.c_str(), 1);
    unsetenv("THORNWELL_PROGRAM_DIR");
}

}  // namespace
