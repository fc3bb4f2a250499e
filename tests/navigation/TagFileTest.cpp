#include "navigation/TagFile.h"

#include <gtest/gtest.h>

#include "navigation/CtagsCommand.h"

namespace {

// "name file:line" of every symbol, category by category.
std::string Told(const SymbolMaps &maps) {
    std::string text;
    for (const SymbolCategory &category : kSymbolCategories)
        for (const auto &[name, record] : maps.*category.map) {
            EXPECT_EQ(name, record.name);
            text += std::string(category.label).substr(0, 1) + ":" + name + " " + record.file + ":" +
                    std::to_string(record.line) + "; ";
        }
    return text;
}

}  // namespace

TEST(TagFile, RoutesTheKindsOfEachLanguage) {
    const std::string all =
        "!_TAG_FILE_FORMAT\t2\t/x/\r\n!_TAG_PROGRAM_NAME\tu\t//\n"
        "c1\ta.c\t1;\"\tc\ns1\ta.c\t2;\"\ts\tfile:\nu1\ta.c\t3;\"\tu\nf1\t/h/a.c\t4;\"\tf\nv1\ta.c\t5;\"\tv\n"
        "d1\ta.c\t6;\"\td\ne1\ta.c\t7;\"\te\ng1\ta.c\t8;\"\tg\nt1\ta.c\t9;\"\tt\np1\ta.c\t10;\"\tp\nx1\ta.c\t11;\"\tx";
    const struct {
        TagLanguage language;
        const char *expected;
    } cases[] = {
        {TagLanguage::c, "C:c1 a.c:1; C:s1 a.c:2; C:u1 a.c:3; F:f1 \\h\\a.c:4; V:v1 a.c:5; E:e1 a.c:7; E:g1 a.c:8; "
                         "M:d1 a.c:6; T:t1 a.c:9; "},
        {TagLanguage::pascal, "C:c1 a.c:1; C:s1 a.c:2; C:u1 a.c:3; F:f1 \\h\\a.c:4; F:p1 a.c:10; V:v1 a.c:5; "
                              "E:e1 a.c:7; E:g1 a.c:8; M:d1 a.c:6; T:t1 a.c:9; "},
        {TagLanguage::basic, "C:t1 a.c:9; F:f1 \\h\\a.c:4; F:s1 a.c:2; V:d1 a.c:6; E:e1 a.c:7; E:g1 a.c:8; "},
    };
    for (const auto &c : cases) {
        SymbolMaps maps;
        ParseTags(all, c.language, maps);
        EXPECT_EQ(Told(maps), c.expected);
    }
}

TEST(TagFile, ReadsWhatIsOddOrCutShort) {
    const struct {
        const char *what;
        std::string text, expected;
    } cases[] = {
        {"the later of two of one name", "a\tone.c\t1;\"\tf\na\ttwo.c\t2;\"\tf\na\tone.c\t3;\"\tv\n",
         "F:a two.c:2; V:a one.c:3; "},
        {"no number", "a\tone.c\t;\"\tf\n", "F:a one.c:0; "},
        {"a number beyond all lines", "a\tone.c\t99999999999999999999;\"\tf", "F:a one.c:2147483647; "},
        {"a pattern instead of a number", "a\tone.c\t/^int a;$/;\"\tf", ""},
        {"lines without their fields", "a\na\tb\n\t\t\na\tb\t1\na\tb\t1;\"\nc\tone.c\t2;\"\tv", "V:c one.c:2; "},
        {"remarks only", "!one\r\n!two\r\n", ""},
        {"blank lines", "\n\r\n\r\ra\tone.c\t1;\"\tf\r\r\nb\tone.c\t2;\"\tf", "F:a one.c:1; F:b one.c:2; "},
        {"nothing behind a zero byte", std::string("a\tone.c\t1;\"\tf\n") + '\0' + "b\tone.c\t2;\"\tf\n",
         "F:a one.c:1; "},
        {"a long name", std::string(10'000, 'n') + "\tone.c\t1;\"\tf", "F:" + std::string(10'000, 'n') + " one.c:1; "},
    };
    for (const auto &c : cases) {
        SymbolMaps maps;
        ParseTags(c.text, TagLanguage::c, maps);
        EXPECT_EQ(Told(maps), c.expected) << c.what;
    }
}

TEST(TagFile, ReadsInSlicesWhatItReadsInOneGo) {
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "s" + std::to_string(i) + "\tone.c\t" + std::to_string(i) + ";\"\tv\n";
    SymbolMaps whole, sliced;
    ParseTags(text, TagLanguage::c, whole);
    CTagReader reader(text, TagLanguage::c, sliced);
    int slices = 1;
    while (reader.Read(300)) ++slices;
    EXPECT_EQ(slices, 4);
    EXPECT_EQ(Told(sliced), Told(whole));
}

TEST(TagFile, CutsPrototypesOutOfPatterns) {
    const struct {
        const char *line;
        const char *expected;  // null: none
    } cases[] = {
        {"f\ta.h\t/^int f(int a, char *b);$/;\"\tp", "int f(int a, char *b);"},
        {"f\ta.h\t/^int f(int a,$/;\"\tp", nullptr},
        {"f\ta.h\t/^int f$g(int a);$/;\"\tp", "int f"},
        {"f\ta.h\tint f(void);$/;\"\tp", "int f(void);"},
        {"f\ta.h\t/^void f(int a) \\/* why *\\/;/;\"\tp", "void f(int a) \\/* why *\\/;"},
        {"f\ta.h\t", ""},
        {"!f\ta.h\t/^f()$/", nullptr},
        {"f", nullptr},
    };
    for (const auto &c : cases) {
        std::map<std::string, std::string> prototypes;
        ParsePrototypes(c.line, prototypes);
        EXPECT_EQ(prototypes.size(), c.expected ? 1u : 0u) << c.line;
        if (c.expected) {
            EXPECT_EQ(prototypes["f"], c.expected) << c.line;
        }
    }
}

TEST(CtagsCommand, HasTheFormThatTheTagGeneratorReads) {
    const CtagsLanguage &pascal = CtagsLanguageOf("ospreyp"), &other = CtagsLanguageOf("");
    EXPECT_EQ(IndexCommandLine(pascal.option, pascal.indexKinds, "/p q/Debug/n.brws", "-n -L \"/tmp/alst1\""),
              "ctags.exe --pascal-types=fp -f \"/p q/Debug/n.brws\" -n -L \"/tmp/alst1\"");
    EXPECT_EQ(DocumentCommandLine(CtagsLanguageOf("LarkBasic"), "/tmp/ant1", "/a b.bas"),
              "ctags.exe -n --basic-types=fs -f \"/tmp/ant1\" \"/a b.bas\"");
    EXPECT_EQ(DocumentCommandLine(other, "/tmp/ant1", "/a.c"), "ctags.exe -n --c-types=fp -f \"/tmp/ant1\" \"/a.c\"");
    EXPECT_STREQ(other.indexKinds, "fvdcsuegt");
    const struct {
        int index;
        const char *location;
        bool isFolder;
        const char *expected;
    } cases[] = {
        {0, "/a/b.h", false, "-n /a/b.h"},
        {1, "/a b/c.h", false, "-n -a \"/a b/c.h\""},
        {2, "/inc lude", true, "-n -a --recurse=yes \"/inc lude/*\""},
        {0, "/inc", true, "-n --recurse=yes /inc/*"},
    };
    for (const auto &c : cases) EXPECT_EQ(LocationArguments(c.index, c.location, c.isFolder), c.expected);
}
