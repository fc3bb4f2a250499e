#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include "Launched.h"
#include "platform/NativePath.h"

TEST(Pspawn, GivesTheCommandsExitCodeOrSaysWhyThereIsNone) {
    CScratch scratch;
    const std::string text = scratch.Write("readme.txt", "text\n");
    const std::string orphan = scratch.Write("orphan", "#!/no/such/interpreter\n", 0755);
    const std::string foreign = scratch.Write("foreign.exe", "MZ no program of this system", 0755);
    const struct {
        Words command;
        int exitCode;
        std::string error;  // part of the one line on standard error; empty: no line
    } cases[] = {
        {Pspawn({"true"}), 0, ""},
        {Pspawn({"sh", "-c", "exit 7"}), 7, ""},
        {Pspawn({"sh", "-c", "kill -KILL $$"}), 137, ""},
        {Pspawn({"sh", "-c", "kill -TERM $$"}), 143, ""},
        {Pspawn({"no-such-program-anywhere", "x"}), 127, "no-such-program-anywhere: no such program"},
        {Pspawn({"\\no\\such\\program", "x"}), 127, "/no/such/program: no such program"},
        {Pspawn({text, "x"}), 126, "readme.txt: may not be run"},
        {Pspawn({scratch.Path(), "x"}), 126, "is a directory"},
        {Pspawn({orphan, "x"}), 126, "interpreter that it names is missing"},
        {Pspawn({foreign, "x"}), 126, "foreign.exe: can't be run"},
        {Pspawn({"", "x"}), 127, "name is empty"},
        {Pspawn({"  "}), 2, "command is empty"},
        {Pspawn({}), 2, "usage"},
        {{PSPAWN_FILE, "7", "stop", "true"}, 2, "usage"},
    };
    for (const auto &c : cases) {
        CLaunched launched(c.command);
        EXPECT_EQ(launched.Wait(), c.exitCode) << c.command.back();
        EXPECT_EQ(launched.output, "");
        if (c.error.empty()) {
            EXPECT_EQ(launched.error, "");
            continue;
        }
        EXPECT_NE(launched.error.find(c.error), std::string::npos) << launched.error;
        EXPECT_EQ(launched.error.find('\n'), launched.error.size() - 1) << launched.error;
    }
}

TEST(Pspawn, SplitsARawLineAndLeavesWordsAlone) {
    const struct {
        Words command;
        std::string output;
    } cases[] = {
        {{R"(printf "[%s]" one "two words" "" "say \"x\"" back\slash "c:\dir\")"},
         R"([one][two words][][say "x"][back\slash][c:\dir"])"},
        {{"printf", "[%s]", "two words", "", "say \"x\"", "back\\slash", "$HOME"},
         R"([two words][][say "x"][back\slash][$HOME])"},
    };
    for (const auto &c : cases) {
        CLaunched launched(Pspawn(c.command));
        EXPECT_EQ(launched.Wait(), 0);
        EXPECT_EQ(launched.output, c.output);
    }
}

TEST(Pspawn, PassesManyAndLongArguments) {
    std::string line = R"(sh -c "echo $#; shift 199; echo \"$1\"" name)";
    for (int i = 1; i <= 200; ++i) line += " argument" + std::to_string(i) + std::string(500, 'x');
    CLaunched launched(Pspawn({line}));
    EXPECT_EQ(launched.Wait(), 0);
    EXPECT_EQ(launched.output, "200\nargument200" + std::string(500, 'x') + "\n");
}

TEST(Pspawn, FindsProgramsByWindowsPathAndBareName) {
    CScratch scratch;
    scratch.Write("Tool.exe", "#!/bin/sh\nprintf 'tool %s\\n' \"$1\"\n", 0755);
    CScratch programs;  // stands for the program directory, which goes before PATH
    programs.Write("true", "#!/bin/sh\nexit 5\n", 0755);

    const struct {
        Words command;
        int exitCode;
        std::string output;
    } cases[] = {
        {{FromNativePath(scratch.Path("TOOL.EXE")), "\\a\\b"}, 0, "tool \\a\\b\n"},
        {{"\"" + FromNativePath(scratch.Path("Tool.exe")) + "\" \"x y\""}, 0, "tool x y\n"},
        {{".\\tool.exe", "z"}, 0, "tool z\n"},
        {{"true", "x"}, 5, ""},
        {{"false.exe", "x"}, 1, ""},
    };
    for (const auto &c : cases) {
        CLaunched launched(Pspawn(c.command),
                           {.directory = scratch.Path(), .environment = {{"THORNWELL_PROGRAM_DIR", programs.Path()}}});
        EXPECT_EQ(launched.Wait(), c.exitCode) << c.command[0] << launched.error;
        EXPECT_EQ(launched.output, c.output);
    }
}

TEST(Pspawn, GivesItsStandardHandlesAndNoOthers) {
    CLaunched cat(Pspawn({"sh", "-c", "cat; echo problem >&2"}));
    cat.WriteInput("a line\nand a half");
    EXPECT_EQ(cat.Wait(), 0);
    EXPECT_EQ(cat.output, "a line\nand a half");
    EXPECT_EQ(cat.error, "problem\n");

    int stop[2];
    ASSERT_EQ(pipe2(stop, O_CLOEXEC), 0);
    const int leak = open("/dev/null", O_RDONLY);  // as a careless parent has them
    const std::string list = "ls /proc/$$/fd; ";
    CLaunched launched(Pspawn({"sh", "-c", list + "sh -c '" + list + "true'; true"}, stop[0]), {.inherited = stop[0]});
    EXPECT_EQ(launched.Wait(), 0);
    EXPECT_EQ(launched.output, "0\n1\n2\n0\n1\n2\n");
    close(leak);
    close(stop[0]);
    close(stop[1]);
}

TEST(Pspawn, StartsTheCommandWithOrdinarySignals) {
    sigset_t blocked, before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigprocmask(SIG_BLOCK, &blocked, &before);
    signal(SIGPIPE, SIG_IGN);
    signal(SIGCHLD, SIG_IGN);
    CLaunched launched(Pspawn({"sh", "-c", "grep -E 'Sig(Blk|Ign)' /proc/self/status; exit 3"}));
    signal(SIGCHLD, SIG_DFL);
    signal(SIGPIPE, SIG_DFL);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    EXPECT_EQ(launched.Wait(), 3);
    EXPECT_EQ(launched.output, "SigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n");
}

TEST(Pspawn, LeavesAloneWhatAnEndedCommandLeftRunning) {
    AdoptOrphans();
    CLaunched launched(Pspawn({"sh", "-c", "sleep 1000 >/dev/null 2>&1 & exit 4"}));
    EXPECT_EQ(launched.Wait(), 4);
    EXPECT_FALSE(NothingLeft());
}
