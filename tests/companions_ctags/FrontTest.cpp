// The front with the real tag generator behind it.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <chrono>
#include <sstream>
#include <thread>

#include "companions_launch/Launched.h"

namespace {

const char kC[] =
    "#define LIMIT 3\nint total;\nstruct Point { int x; };\nenum Colour { red };\ntypedef int Word;\n"
    "int add(int a, int b) { return a + b; }\nint later(int a);\n";
const char kHeader[] =
    "class Shape {};\nunion Both { int a; };\nvoid draw(int with, int a, int very, int long_list, int of,"
    " int parameters, int that, int needs, int room);\n";
const char kAssembler[] = "RATE equ 1\nmain goto main\nx res 1\n";
const char kPascal[] =
    "program x;\nprocedure go(a: integer);\nbegin end;\nfunction sum(a: integer): integer;\n"
    "begin end;\nbegin end.\n";
const char kBasic[] = "Dim a, b As Integer\nType Rec\nEnd Type\nSub Go()\nEnd Sub\nagain:\ngoto again\n";

class Ctags : public testing::Test {
protected:
    void SetUp() override {
        scratch_.Write("a.c", kC);
        scratch_.Write("b.h", kHeader);
        scratch_.Write("main.asm", kAssembler);
        scratch_.Write("c.pas", kPascal);
        scratch_.Write("d.bas", kBasic);
        scratch_.Write("list", "a.c\nb.h\nmain.asm\nc.pas\nd.bas\n");
    }

    int Run(const Words &words, const std::vector<std::pair<std::string, std::string>> &environment = {}) {
        Words command = {CTAGS_FILE};
        command.insert(command.end(), words.begin(), words.end());
        CLaunched launched(command, {.directory = scratch_.Path(), .environment = environment});
        const int exitCode = launched.Wait();
        error_ = launched.error;
        return exitCode;
    }

    // "name:kind" of each tag in the output's order, with a blank between; of each whose file is `file`, if any is
    // named.
    std::string Tags(const std::string &file = {}, const std::string &output = "out") const {
        std::istringstream lines(scratch_.Read(output));
        std::string tags;
        for (std::string line; std::getline(lines, line);) {
            const size_t name = line.find('\t'), end = line.find('\t', name + 1);
            if (line.starts_with('!') || end == std::string::npos) continue;
            if (!file.empty() && line.substr(name + 1, end - name - 1) != file) continue;
            tags += (tags.empty() ? "" : " ") + line.substr(0, name) + ":" + line.substr(line.rfind('\t') + 1);
        }
        return tags;
    }

    CScratch scratch_;
    std::string error_;
};

}  // namespace

TEST_F(Ctags, FindsWhatTheProgramRoutesInEveryLanguage) {
    const struct {
        Words words;
        const char *file, *tags;
    } cases[] = {
        {{"--c-types=fvdcsuegt", "-f", "out", "-n", "-L", "list"},
         "a.c",
         "Colour:g LIMIT:d Point:s Word:t add:f red:e total:v"},
        {{"--c-types=fvdcsuegt", "-f", "out", "-n", "-L", "list"}, "b.h", "Both:u Shape:c"},
        {{"--c-types=fvdcsuegt", "-f", "out", "-n", "-L", "list"}, "main.asm", "RATE:d main:f x:v"},
        {{"--c-types=p", "-f", "out", "-N", "-L", "list"}, "", "Go:f draw:p go:p later:p sum:f"},
        {{"-n", "--c-types=fp", "-f", "out", "a.c"}, "", "add:f later:p"},
        {{"-n", "--c-types=fp", "-f", "out", "main.asm"}, "", "main:f"},
        {{"--pascal-types=fp", "-f", "out", "-n", "-L", "list"}, "c.pas", "go:p sum:f"},
        {{"--pascal-types=fp", "-f", "out", "-n", "-L", "list"}, "b.h", "Both:u Shape:c"},
        {{"--pascal-types=fvdcsuegt", "-f", "out", "-n", "c.pas", "a.c"}, "c.pas", "go:p sum:f"},
        {{"-n", "--pascal-types=fp", "-f", "out", "c.pas"}, "", "go:p sum:f"},
        {{"--pascal-types=p", "-f", "out", "-N", "-L", "list"}, "c.pas", "go:p sum:f"},
        {{"--basic-types=fsdt", "-f", "out", "-n", "-L", "list"}, "d.bas", "Go:f Rec:t a:d again:s b:d"},
        {{"--basic-types=fsdt", "-f", "out", "-n", "-L", "list"}, "a.c", "Colour:g add:f red:e"},
        {{"--basic-types=fsdt", "-f", "out", "-n", "-L", "list"}, "main.asm", "main:f x:d"},
        {{"-n", "--basic-types=fs", "-f", "out", "d.bas"}, "", "Go:f again:s"},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(Run(c.words), 0);
        EXPECT_EQ(error_, "");
        EXPECT_EQ(Tags(c.file), c.tags) << c.words[0] << " " << c.words[1] << " " << c.file;
    }
}

TEST_F(Ctags, WritesLinesAsTheProgramReadsThem) {
    scratch_.Write("list", "main.asm\na.c\n");
    mkdir(scratch_.Path(".ctags.d").c_str(), 0777);
    scratch_.Write(".ctags.d/own.ctags", "--fields=+Kz\n--sort=no\n");
    Run({"--c-types=fd", "-f", "out", "-n", "-L", "list"}, {{"HOME", scratch_.Path()}});
    const std::string text = scratch_.Read("out");
    EXPECT_TRUE(text.starts_with("!_TAG_FILE_FORMAT\t2\t")) << text;
    EXPECT_TRUE(
        text.ends_with("LIMIT\ta.c\t1;\"\td\nRATE\tmain.asm\t1;\"\td\nadd\ta.c\t6;\"\tf\nmain\tmain.asm\t2;\"\tf\n"))
        << text;

    Run({"--c-types=p", "-f", "out", "-N", "-L", "list"});
    EXPECT_NE(scratch_.Read("out").find("later\ta.c\t/^int later(int a);$/;\"\tp\n"), std::string::npos);
    Run({"--c-types=p", "-f", "out", "-N", "b.h"});
    EXPECT_NE(scratch_.Read("out").find("int room);$/;\"\tp\n"), std::string::npos) << "long prototypes are whole";
}

TEST_F(Ctags, IndexesTheExamples) {
    const std::string blink = std::string(EXAMPLES_DIRECTORY) + "/blink/";
    EXPECT_EQ(Run({"--c-types=fvdcsuegt", "-f", "out", "-n", "--recurse=yes", blink + "*"}), 0);
    EXPECT_EQ(Tags(blink + "main.asm"), "main:f ticks_left:v wait_for_tick:f");
    EXPECT_EQ(Tags(blink + "timer.asm"), "saved_status:v saved_w:v ticks:v timer_start:f timer_take_tick:f");
    EXPECT_EQ(Tags(blink + "led.asm"), "led_start:f led_toggle:f port_image:v");
    EXPECT_EQ(Tags(blink + "board.inc"), "BLINK_TICKS:d LED_MASK:d board_inc:d");
}

TEST_F(Ctags, WalksALocationOnceWhateverLeadsToIt) {
    for (const char *name : {"lo c", "lo c/in", "lo c/deep", "lo c/.git"}) mkdir(scratch_.Path(name).c_str(), 0777);
    scratch_.Write("lo c/one.asm", "one\n");
    scratch_.Write("lo c/in/TWO.ASM", "two\n");
    scratch_.Write("lo c/deep/three.c", "int three;\n");
    scratch_.Write("lo c/in/use.inc", "#define four 4\n");
    scratch_.Write("lo c/.git/hidden.c", "int hidden;\n");
    scratch_.Write("lo c/huge.c", "int huge;\n");
    std::filesystem::resize_file(scratch_.Path("lo c/huge.c"), 30'000'000);
    for (int i = 0; i < 12; ++i) {
        ASSERT_EQ(symlink("../deep", scratch_.Path("lo c/in/l" + std::to_string(i)).c_str()), 0);
        ASSERT_EQ(symlink("../in", scratch_.Path("lo c/deep/m" + std::to_string(i)).c_str()), 0);
    }
    ASSERT_EQ(symlink(".", scratch_.Path("lo c/zelf").c_str()), 0);
    ASSERT_EQ(symlink("nothing", scratch_.Path("lo c/nowhere.asm").c_str()), 0);
    ASSERT_EQ(mkfifo(scratch_.Path("lo c/fifo.asm").c_str(), 0666), 0);
    ASSERT_EQ(mkfifo(scratch_.Path("lo c/fifo.c").c_str(), 0666), 0);
    for (const char *location : {"lo c/*", "lo c"}) {
        EXPECT_EQ(Run({"--c-types=fvdcsuegt", "-f", "out", "-n", "--recurse=yes", location}), 0);
        EXPECT_EQ(Tags(), "four:d one:f three:v two:f") << location;
        EXPECT_EQ(Tags("lo c/deep/three.c"), "three:v") << location;
    }
    EXPECT_EQ(Run({"--c-types=fvdcsuegt", "-f", "out", "-n", "lo c/*"}), 0);
    EXPECT_EQ(Tags(), "one:f") << "without the directories in it";

    Run({"--c-types=fvdcsuegt", "-f", "out", "-n", "-a", "main.asm"});
    Run({"--c-types=fvdcsuegt", "-f", "out", "-n", "-a", "b.h"});
    EXPECT_EQ(Tags(), "Both:u RATE:d Shape:c main:f one:f x:v");
}

TEST_F(Ctags, ReplacesItsOwnFilesOnly) {
    const struct {
        const char *name, *before;
        Words further;
        int exitCode;
        const char *tags;  // null: the file is as before
    } cases[] = {
        {"p.brws", "garbage\n", {"main.asm"}, 0, "RATE:d main:f x:v"},
        {"q.brws", "\x7f\x01\tb", {"a.c"}, 0, "LIMIT:d Point:s Word:t add:f total:v"},
        {"r.gbrws", "garbage\n", {"-a", "main.asm"}, 0, "RATE:d main:f x:v"},
        {"antTMP", "", {"main.asm"}, 0, "RATE:d main:f x:v"},
        {"tags", "!_TAG_FILE_FORMAT\t2\t//\nold\ta.c\t1;\"\tf\n", {"main.asm"}, 0, "RATE:d main:f x:v"},
        {"text.txt", "garbage\n", {"main.asm"}, 1, nullptr},
        {"text.txt", "garbage\n", {"-a", "main.asm", "a.c"}, 1, nullptr},
    };
    for (const auto &c : cases) {
        scratch_.Write(c.name, c.before);
        Words words = {"--c-types=fvdst", "-n", "-f", c.name};
        words.insert(words.end(), c.further.begin(), c.further.end());
        EXPECT_EQ(Run(words), c.exitCode) << c.name;
        if (c.tags)
            EXPECT_EQ(Tags({}, c.name), c.tags) << c.name;
        else
            EXPECT_EQ(scratch_.Read(c.name), c.before) << c.name;
    }
}

TEST_F(Ctags, PassesOtherCommandLinesOn) {
    CLaunched version({CTAGS_FILE, "--version"});
    EXPECT_EQ(version.Wait(), 0);
    EXPECT_NE(version.output.find("Universal Ctags"), std::string::npos);
    EXPECT_EQ(Run({"--no-such-option"}), 1);
    EXPECT_EQ(Run({"--c-types=fp", "-n", "-f", "out", "gone.c"}), 0);
    EXPECT_EQ(Run({"--c-types=fp", "-n", "-L", "gone", "-f", "out"}), 0);
    EXPECT_EQ(Tags(), "");
}

TEST_F(Ctags, SaysWhatIsMissing) {
    scratch_.Write("ctags.exe", "");
    const std::string before = scratch_.Read("out");
    EXPECT_EQ(Run({"--c-types=f", "-n", "-f", "out", "main.asm"}, {{"PATH", scratch_.Path()}}), 127);
    EXPECT_NE(error_.find("universal-ctags"), std::string::npos) << error_;
    EXPECT_NE(access(scratch_.Path("out").c_str(), F_OK), 0) << "nothing is written";

    // Its own file under the generator's name is not taken for it.
    ASSERT_EQ(symlink(CTAGS_FILE, scratch_.Path("ctags").c_str()), 0);
    EXPECT_EQ(Run({"--version"}, {{"PATH", scratch_.Path()}}), 127);
    EXPECT_EQ(Run({"--version"}, {{"PATH", scratch_.Path() + ":/usr/bin"}}), 0);
}

TEST_F(Ctags, EndsWithTheGenerator) {
    AdoptOrphans();
    scratch_.Write("ctags-universal", "#!/bin/sh\necho started\nexec sleep 100\n", 0755);
    CLaunched launched({CTAGS_FILE, "--c-types=f", "-f", "out", "main.asm"},
                       {.directory = scratch_.Path(), .environment = {{"PATH", scratch_.Path() + ":/usr/bin:/bin"}}});
    EXPECT_TRUE(launched.ReadUntil("started"));
    kill(launched.Pid(), SIGKILL);
    EXPECT_EQ(launched.Wait(), -1);
    EXPECT_TRUE(NothingLeftSoon());
}
