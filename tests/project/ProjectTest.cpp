#include "project/Project.h"

#include <sys/inotify.h>
#include <unistd.h>

#include "ModelTest.h"
#include "build/TextPostProcessMessage.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "project/Config.h"

using namespace std::string_literals;

namespace {

using ProjectTest = ModelTest;
using Reason = ProjectLoadFailure::Reason;
using Names = std::vector<std::string>;

// Counts how often a file of a directory is replaced or written.
class ReplacementCounter {
public:
    ReplacementCounter(const std::string &directory, std::string file) : file_(std::move(file)) {
        inotify_add_watch(queue_, directory.c_str(), IN_MOVED_TO | IN_CLOSE_WRITE);
    }
    ~ReplacementCounter() { close(queue_); }

    int Count() {
        alignas(inotify_event) char buffer[65536];
        ssize_t size;
        while ((size = read(queue_, buffer, sizeof buffer)) > 0)
            for (ssize_t at = 0; at < size;) {
                const auto *event = reinterpret_cast<const inotify_event *>(buffer + at);
                if (event->len > 0 && file_ == event->name) ++count_;
                at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            }
        return count_;
    }

private:
    int queue_ = inotify_init1(IN_NONBLOCK);
    std::string file_;
    int count_ = 0;
};

TEST_F(ProjectTest, LoadSortsTheFileListAndDropsDoubles) {
    struct {
        const char *stored;
        Names expected;
        const char *onDisk;  // lines that the file must hold afterwards
    } const cases[] = {
        {"Count=3\r\nFile0=z.c\r\nFile1=\r\nFile2=a.c\r\n",
         {"a.c", "z.c"},
         "Count=2\r\nFile0=a.c\r\nFile1=z.c\r\nFile2=a.c\r\n"},
        {"Count=2\r\nFile0=b.c\r\nFile1=B.c\r\n", {"B.c"}, "Count=1\r\nFile0=B.c\r\nFile1=B.c\r\n"},
        {"Count=4\r\nFile0=a.c\r\nFile1=./a.c\r\nFile2=A.C\r\nFile3=sub/a.c\r\n",
         {"./a.c", "sub/a.c"},
         "Count=2\r\nFile0=./a.c\r\nFile1=sub/a.c\r\nFile2=A.C\r\n"},
        {"Count=1\r\nFile0=..\\lib\\x.lib\r\n", {"..\\lib\\x.lib"}, "Count=1\r\nFile0=..\\lib\\x.lib\r\n"},
        {"Count=1\r\nFile0=d:\\other\\x.c\r\n", {"d:\\other\\x.c"}, "File0=d:\\other\\x.c\r\n"},
        {"Count=2000000000\r\nFile0=a.c\r\n", {"a.c"}, "Count=1\r\nFile0=a.c\r\n"},
        {"Count=1000\r\nFile999=z.c\r\n", {"z.c"}, "Count=1\r\nFile999=z.c\r\nFile0=z.c\r\n"},
        {"Count=-1\r\nFile0=a.c\r\n", {}, "Count=-1\r\nFile0=a.c\r\n"},
    };
    for (const auto &c : cases) {
        CProject project(WriteProject("p.__c", c.stored));
        ASSERT_TRUE(project.Load()) << c.stored;
        EXPECT_EQ(project.GetFiles(), c.expected) << c.stored;
        EXPECT_NE(Read("p.__c").find(c.onDisk), std::string::npos) << Read("p.__c");
    }
}

TEST_F(ProjectTest, AFileThatCannotBeLoadedStaysAsItIs) {
    struct {
        std::string body;
        Reason reason;
        const char *detail;
    } const cases[] = {
        {"[Settings]\nActive Compiler=Nobody\nTarget = X \n", Reason::toolsuiteMissing, "Nobody"},
        {"[Settings]\nTarget=X\n", Reason::toolsuiteMissing, ""},
        {"", Reason::toolsuiteMissing, ""},
        {"[Settings]\nActive Compiler = Recorder\nActive Config=Speed\n", Reason::configurationUnknown, "Speed"},
        {"\x7f"
         "ELF\0\0[Settings]\nActive Compiler=Recorder\n"s,
         Reason::notAProject, ""},
        {"#include <x.h>\nint main() { return a[0]; }\n", Reason::notAProject, ""},
    };
    for (const auto &c : cases) {
        Write("p.__c", c.body);
        CProject project(Path("p.__c"));
        EXPECT_FALSE(project.Load()) << c.body;
        EXPECT_EQ(project.GetLoadFailure().reason, c.reason) << c.body;
        EXPECT_EQ(project.GetLoadFailure().detail, c.detail) << c.body;
        EXPECT_EQ(project.GetLoadFailure().project, Path("p.__c"));
        EXPECT_EQ(Read("p.__c"), c.body);
    }
    CProject missing(Path("none.__c"));
    EXPECT_FALSE(missing.Load());
    EXPECT_FALSE(Exists("none.__c"));
}

TEST_F(ProjectTest, SettingsAreReadAndSavedUnderTheirRules) {
    const std::string path =
        WriteProject("p.__c", "Count=1\r\nFile0=a.c\r\n",
                     "Active Config=rELEASE\r\nActive Directory=" + Path("gone") + "\r\nTarget=NoSuchChip\r\n");
    CProject project(path);
    ASSERT_TRUE(project.Load());
    EXPECT_EQ(project.GetActiveConfigName(), "Release");
    EXPECT_EQ(project.GetTarget(), "NoSuchChip");
    EXPECT_NE(Read("p.__c").find("Active Directory=" + Path("gone")), std::string::npos) << "stale until the next save";
    EXPECT_FALSE(project.SetActiveDirectory(Path("gone")));
    EXPECT_FALSE(project.SetActiveConfig("Speed"));
    project.Save();
    EXPECT_EQ(Read("p.__c"), "[Settings]\r\nActive Compiler=Recorder\r\nActive Config=Release\r\nActive Directory=" +
                                 Path("") + "\\\r\nTarget=NoSuchChip\r\n[Files]\r\nCount=1\r\nFile0=a.c\r\n");
    project.SetTarget("");
    EXPECT_EQ(project.GetTarget(), "PIC16F877") << "the toolsuite's own";
}

TEST_F(ProjectTest, NamesOfOneFileAreOneEntry) {
    const std::string path = WriteProject("w/p.__c");
    CProject project(path);
    ASSERT_TRUE(project.Load());
    project.AddFile("..\\lib\\x.lib");
    project.AddFile(Path("w/src/m.c"));
    project.AddFile(".hidden");
    struct {
        std::string name;
        bool has;
    } const cases[] = {
        {Path("lib/x.lib"), true},         {"../LIB/x.lib", true}, {"src/m.c", true}, {".\\SRC\\M.C", true},
        {"src\\..\\src\\m.c", true},       {"\"src\\m.c\"", true}, {"m.c", false},    {"lib\\x.lib", false},
        {"c:" + Path("w/src/m.c"), false}, {".other", false},      {".HIDDEN", true},
    };
    for (const auto &c : cases) EXPECT_EQ(project.HasFile(c.name), c.has) << c.name;
    EXPECT_NE(Read("w/p.__c").find("Count=3\r\nFile0=..\\lib\\x.lib\r\nFile1=src\\m.c\r\n"), std::string::npos)
        << Read("w/p.__c");

    ReplacementCounter counter(Native("w"), "p.__c");
    EXPECT_FALSE(project.RemoveFile("nothing.c"));
    project.AddFile("SRC/m.c");
    EXPECT_EQ(counter.Count(), 0);
    EXPECT_TRUE(project.RemoveFile("SRC/M.c"));
    EXPECT_FALSE(project.HasFile("src\\m.c"));
    EXPECT_NE(Read("w/p.__c").find("Count=2\r\nFile0=..\\lib\\x.lib\r\n"), std::string::npos);
}

TEST_F(ProjectTest, ManyFilesAreWrittenInOneGo) {
    constexpr int kFiles = 1000;
    std::string files = "Count=" + std::to_string(kFiles) + "\r\n", sorted = files;
    for (int i = 0; i < kFiles; ++i) {
        files += "File" + std::to_string(i) + "=src\\" + std::to_string(9999 - i) + ".c\r\n";
        sorted += "File" + std::to_string(i) + "=src\\" + std::to_string(9000 + i) + ".c\r\n";
    }
    CProject project(WriteProject("p.__c", files));
    ReplacementCounter counter(Native(""), "p.__c");
    ASSERT_TRUE(project.Load());
    EXPECT_EQ(project.GetFiles().size(), static_cast<size_t>(kFiles));
    EXPECT_LE(counter.Count(), 2);
    EXPECT_TRUE(Read("p.__c").ends_with("[Files]\r\n" + sorted));
}

TEST_F(ProjectTest, OutputDirectoriesComeWithTheProject) {
    CProject project("sub\\T.__c", Path("") + "\\");
    EXPECT_FALSE(Exists("sub")) << "nothing but the two directories themselves is made";
    Write("d/Release", "a file in the way");
    CProject second(WriteProject("d/T.__c"));
    EXPECT_TRUE(Exists("d/Debug"));
    EXPECT_TRUE(second.Load());
    EXPECT_EQ(second.FindConfig("debug")->GetOutputDir(), Path("d/Debug") + "\\");
    EXPECT_EQ(second.FindConfig("RELEASE")->GetFilePath(), Path("d/T.Release.__f"));

    CProject nowhere("T.__c");
    EXPECT_FALSE(std::filesystem::exists("Debug")) << "not in the current directory";
    nowhere.SetBaseDir(Path("d"));
    EXPECT_EQ(nowhere.GetFullPath(), Path("d/T.__c"));
    EXPECT_EQ(nowhere.FindConfig("Debug")->GetFilePath(), Path("d/T.Debug.__f"));
}

TEST_F(ProjectTest, OnlySourcesGoToTheToolsuite) {
    CProject project(WriteProject("p.__c"));
    for (const std::string name : {"a.C", "b.h", "my file.asm", "l.lst", "x.lib", "readme", "e.cxx", "p.pas", "q.bas"})
        project.AddFile(name);
    project.AddFile(Path("sub/deep.c"));
    EXPECT_EQ(project.GetSourceFiles(),
              (CStringList{"a.C", "\"my file.asm\"", "x.lib", "e.cxx", "p.pas", "q.bas", "sub\\deep.c"}));
}

TEST_F(ProjectTest, GenMakeWritesTheMakefileAndGivesItsStep) {
    CProject project(WriteProject("p.__c", "Count=1\r\nFile0=a.c\r\n"));
    std::string error;
    EXPECT_EQ(project.GenMake(error, false), nullptr) << "no toolsuite before the load";
    ASSERT_TRUE(project.Load());
    Recorder().calls.clear();
    const auto step = project.GenMake(error, false);
    ASSERT_NE(step, nullptr);
    EXPECT_EQ(Recorder().calls, Names{"GenMake: a.c " + Path("p.__c") + " " + Path("p.Debug.__f")});
    EXPECT_EQ(project.GetMakefilePath(), "makefile.p");
    EXPECT_TRUE(Read("makefile.p").ends_with("\nall: out.hex\n"));
    EXPECT_EQ(step->outputFiles, CStringList{"Debug\\out.hex"});
    EXPECT_EQ(step->tool, -1);
    EXPECT_EQ(step->project, Path("p.__c"));
    EXPECT_NE(dynamic_cast<CTextPostProcessMessage *>(project.GenMake(error, true).get()), nullptr);

    Recorder().makeFails = true;
    EXPECT_EQ(project.GenMake(error, false), nullptr);
    EXPECT_EQ(error, "no rule for this");
    std::filesystem::remove(Native("makefile.p"));
    std::filesystem::create_directory(Native("makefile.p"));
    Recorder().calls.clear();
    EXPECT_EQ(project.GenMake(error, false), nullptr);
    EXPECT_TRUE(Recorder().calls.empty()) << "no makefile, no call";
}

}  // namespace
