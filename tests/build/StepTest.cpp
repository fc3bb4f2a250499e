#include <gtest/gtest.h>

#include "support/ScratchDirectory.h"
#include "build/MakeCommand.h"
#include "build/MessageTone.h"
#include "build/SableCheck.h"
#include "build/StepName.h"
#include "platform/FileText.h"
#include "platform/Profile.h"

namespace {

TEST(StepName, ComparesAsAReaderDoes) {
    const struct {
        const char *a, *b;
        bool same;
    } cases[] = {
        {"Compile", "cOMPILE", true},
        {"Compile", "Compiler", false},
        {"\uFF2C\uFF49\uFF4E\uFF4B", "link", true},              // full width
        {"\u30EA\u30F3\u30AF", "\u308A\u3093\u304F", true},      // katakana and hiragana
        {"\uFF98\uFF9D\uFF78", "\u30EA\u30F3\u30AF", true},      // half-width kana
        {"\u00DCbersetzen", "\u00FCbersetzen", true},
        {"", "", true},
    };
    for (const auto &c : cases) EXPECT_EQ(SameStepName(c.a, c.b), c.same) << c.a << " " << c.b;
}

TEST(MakeCommand, QuotesWhatHoldsABlank) {
    EXPECT_EQ(FormMakeCommand("\\opt\\ide", "twmake.exe", "makefile.blink", "V=1", "all"),
              "\\opt\\ide\\twmake.exe -c -f makefile.blink V=1 all");
    EXPECT_EQ(FormMakeCommand("\\my ide", "make.exe", "makefile.my blink", "", "-a all"),
              "\"\\my ide\\make.exe\" -c -f \"makefile.my blink\"  -a all");
    EXPECT_EQ(FormMakeCommand("\\opt", "make.exe", "makefile.a\tb", "", "clean"),
              "\\opt\\make.exe -c -f \"makefile.a\tb\"  clean");
}

TEST(SableCheck, AsksOnlyForTheLibraryWithoutItsSwitch) {
    const struct {
        const char *files, *config;
        bool needed;
    } cases[] = {
        {"Count=2\nFile0=main.c\nFile1=lib\\SableNoIso.LIB\n", "", true},
        {"Count=1\nFile0=\"my lib\\sable16.lib\"\n", "", true},
        {"Count=1\nFile0=main.c\nFile1=sable.lib\n", "", false},  // behind the count
        {"Count=2147483647\nFile7=sable.lib\n", "", true},
        {"Count=2147483647\n", "", false},
        {"Count=2\nFile0=sable.c\nFile1=mysable.lib\n", "", false},
        {"Count=1\nFile0=sable.lib\n", "[Settings]\nSableCheck=0\n", false},
        {"Count=1\nFile0=sable.lib\n", "[Linker]\nExtra=-x -swcs\n", false},
        {"Count=1\nFile0=sable.lib\n", "[Linker]\nExtra=/swcs\n", false},
        {"Count=1\nFile0=sable.lib\n", "[Linker]\nExtra=-x\n", true},
    };
    CScratchDirectory scratch;
    for (const auto &c : cases) {
        const std::string project = scratch.Write("p.__c", std::string("[Files]\n") + c.files);
        const std::string config = scratch.Write("p.__f", c.config);
        EXPECT_EQ(NeedsSableSwitch(project, config), c.needed) << c.files << c.config;
    }
}

TEST(SableCheck, StoresTheAnswer) {
    CScratchDirectory scratch;
    const std::string project = scratch.Write("p.__c", "[Files]\nCount=1\nFile0=sable.lib\n");
    const std::string config = scratch.Write("p.__f", "");
    AddSableSwitch(config);
    EXPECT_EQ(ReadProfileString("Linker", "Extra", "", config), "-swcs");
    EXPECT_FALSE(NeedsSableSwitch(project, config));

    const std::string longExtra(1000, 'x');
    const std::string other = scratch.Write("q.__f", "[Linker]\nExtra=" + longExtra + "\n");
    AddSableSwitch(other);
    EXPECT_EQ(ReadProfileString("Linker", "Extra", "", other, 4096), longExtra + " -swcs");

    const std::string declined = scratch.Write("r.__f", "");
    EndSableCheck(declined);
    EXPECT_EQ(ReadProfileString("Settings", "SableCheck", "", declined), "0");
    EXPECT_FALSE(NeedsSableSwitch(project, declined));
}

TEST(MessageTone, TintsMessagesOnly) {
    const struct {
        const char *line;
        MessageTone tone;
    } cases[] = {
        {"Error[113] a.asm 7 : Symbol not previously defined", MessageTone::error},
        {"3> Warning[205] a.asm 7 : text", MessageTone::warning},
        {"main.c(12): error: text", MessageTone::error},
        {"main.c(12): Warning text", MessageTone::warning},
        {"main.c(12): fatal error: text", MessageTone::error},
        {"error", MessageTone::error},
        {"Error: The output file x.hex is missing.", MessageTone::error},
        {"errors.c", MessageTone::plain},
        {"0 errors, 3 warnings", MessageTone::plain},
        {"f(x): an error", MessageTone::plain},
        {"", MessageTone::plain},
    };
    for (const auto &c : cases) EXPECT_EQ(ToneOf(c.line), c.tone) << c.line;
}

}  // namespace
