#include "app/CommandLine.h"

#include <filesystem>

#include "ProgramTest.h"
#include "editor/IDEDoc.h"
#include "platform/NativePath.h"

namespace fs = std::filesystem;

TEST(SplitArguments, TakesQuotedNamesWhole) {
    const struct {
        const char *line;
        std::vector<std::string> expected;
    } cases[] = {
        {"", {}},
        {"   ", {}},
        {"ide", {"ide"}},
        {"ide  a.c\tb.c ", {"ide", "a.c", "b.c"}},
        {"ide \"my file.c\" b", {"ide", "my file.c", "b"}},
        {"ide \"a\"b", {"ide", "a", "b"}},
        {"ide \"no end of it", {"ide", "no end of it"}},
        {"ide a\"b c", {"ide", "a\"b", "c"}},  // a quote inside is part of the name
        {"ide \"\" x", {"ide", "", "x"}},
        {"ide \"", {"ide", ""}},
    };
    for (const auto &[line, expected] : cases) EXPECT_EQ(SplitArguments(line), expected) << line;

    std::string line = "ide";
    for (int i = 1; i <= 150; ++i) line += " " + std::to_string(i);
    const std::vector<std::string> arguments = SplitArguments(line);
    ASSERT_EQ(arguments.size(), 100u);
    EXPECT_EQ(arguments.back(), "99");
}

TEST(ComposeCommandLine, LosesNoName) {
    const std::vector<std::string> native = {"ide", "/home/u/x.c", "my dir/a b.c", "-style", "", "c:x", "ä ö.c"};
    EXPECT_EQ(SplitArguments(ComposeCommandLine(native)),
              (std::vector<std::string>{"ide", "\\home\\u\\x.c", "my dir\\a b.c", "-style", "", ".\\c:x", "ä ö.c"}));
}

class CommandLineTest : public ProgramTest {
protected:
    CommandLineTest() : before_(fs::current_path()) {
        scratch.CopyExample("blink");
        fs::current_path(scratch.Path());
    }
    ~CommandLineTest() override { fs::current_path(before_); }

    std::vector<std::string> OpenFiles() {
        std::vector<std::string> names;
        for (CDocument *document : App().GetDocuments()) names.push_back(document->GetPathName());
        return names;
    }

private:
    fs::path before_;
};

TEST_F(CommandLineTest, OpensAProjectUnderEachSpelling) {
    fs::create_directories(scratch.Path() / "my work");
    fs::copy(scratch.Path() / "blink", scratch.Path() / "my work");
    const struct {
        const char *directory, *argument, *expected;
    } cases[] = {
        {"", "blink/blink.__c", "blink/blink.__c"},
        {"blink", "blink.__c", "blink/blink.__c"},
        {"blink", "BLINK.__C", "blink/BLINK.__C"},
        {"", "my work/blink.__c", "my work/blink.__c"},
    };
    for (const auto &[directory, argument, expected] : cases) {
        fs::current_path(scratch.Path() / directory);
        Start({argument});
        EXPECT_EQ(App().GetActiveProjectPath(), scratch.Windows(expected)) << argument;
        EXPECT_EQ(Setting("Workspace", "Last Workspace"), scratch.Windows(expected)) << argument;
        EXPECT_EQ(App().WorkspaceKind(), 1);
    }
}

// In the root directory an absolute name must not be glued to a second separator.
TEST_F(CommandLineTest, TakesAbsoluteNamesFromAnyDirectory) {
    for (const char *directory : {"/", "/tmp"}) {
        fs::current_path(directory);
        Start({scratch.Native("blink/blink.__c")});
        EXPECT_EQ(App().GetActiveProjectPath(), scratch.Windows("blink/blink.__c"));
        EXPECT_EQ(Setting("Workspace", "Last Workspace"), scratch.Windows("blink/blink.__c"));
    }
}

TEST_F(CommandLineTest, DropsProjectsAndWorkspacesWithoutContent) {
    scratch.Write("none.__c", "[Files]\r\nCount=0\r\n");
    scratch.Write("none.__w", "[Workspace]\r\nCount=0\r\n");
    const std::string kept = scratch.Windows("blink/blink.__c");
    Set("Workspace", "Last Workspace", kept);
    Start({"none.__c", "none.__w", "gone.__c", "gone.__w"});
    EXPECT_EQ(Setting("Workspace", "Last Workspace"), kept);
    EXPECT_EQ(App().GetActiveProjectPath(), kept) << "no name is left, so the last workspace opens";
    EXPECT_TRUE(OpenFiles().empty());
}

TEST_F(CommandLineTest, RemembersAProjectBesideASourceButOpensTheSourceAlone) {
    Start({"blink/main.asm", "blink/blink.__c", "blink/led.asm"});
    EXPECT_EQ(OpenFiles(),
              (std::vector<std::string>{scratch.Windows("blink/main.asm"), scratch.Windows("blink/led.asm")}));
    EXPECT_EQ(App().WorkspaceKind(), 0);
    EXPECT_EQ(Setting("Workspace", "Last Workspace"), scratch.Windows("blink/blink.__c"));
    EXPECT_EQ(program->BuildText().find(Text(IDS_NOTHING_TO_LOAD)), std::string::npos);

    CloseAndEnd();
    Start();
    EXPECT_EQ(App().GetActiveProjectPath(), scratch.Windows("blink/blink.__c"));
}

TEST_F(CommandLineTest, PassesOverSwitchesAndBlankNamesAndWhatComesTooLate) {
    Set("Workspace", "Last Workspace", scratch.Windows("blink/blink.__c"));
    Start({"-nosplash", "-blink/main.asm", " ", "", "  \t"});
    EXPECT_TRUE(OpenFiles().empty());
    EXPECT_EQ(App().WorkspaceKind(), 1);

    std::vector<std::string> arguments(98, "-x");  // the program's name is the first argument
    arguments.push_back("blink/main.asm");
    arguments.push_back("blink/led.asm");
    Start(arguments);
    EXPECT_EQ(OpenFiles(), std::vector<std::string>{scratch.Windows("blink/main.asm")});
}

TEST_F(CommandLineTest, SaysWhichFileItCantRead) {
    Start({"missing.asm", "blink", "blink/led.asm"});
    EXPECT_EQ(OpenFiles(), std::vector<std::string>{scratch.Windows("blink/led.asm")});
    EXPECT_TRUE(Says(Line(IDS_CANT_READ_FILE, {scratch.Native("missing.asm")}))) << program->BuildText();
    EXPECT_TRUE(Says(Line(IDS_FILE_IS_FOLDER, {scratch.Native("blink")}))) << program->BuildText();
}
