#include "platform/ChildProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/ScratchDirectory.h"

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

struct Outcome {
    std::string output, error;
    std::optional<int> exitCode;
};

Outcome Finish(CChildProcess &child) {
    Outcome outcome;
    char buffer[4096];
    const auto drain = [&] {
        bool any = false;
        while (const size_t count = child.Read(CChildProcess::Pipe::output, buffer, sizeof buffer))
            outcome.output.append(buffer, count), any = true;
        while (const size_t count = child.Read(CChildProcess::Pipe::error, buffer, sizeof buffer))
            outcome.error.append(buffer, count), any = true;
        return any;
    };
    while (!child.HasEnded()) {
        child.WaitForData(milliseconds(100));
        drain();
    }
    drain();
    outcome.exitCode = child.WaitForExit();
    return outcome;
}

Outcome Shell(const std::string &script, const std::string &directory = "", int inherited = -1) {
    CChildProcess child;
    if (!child.Start({"sh", "-c", script}, directory, inherited)) return {"", "not started", {}};
    return Finish(child);
}

TEST(ChildProcess, TellsOutputErrorAndExitCode) {
    const Outcome outcome = Shell("echo out; echo err >&2; exit 3");
    EXPECT_EQ(outcome.output, "out\n");
    EXPECT_EQ(outcome.error, "err\n");
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_EQ(Shell("kill -9 $$").exitCode, 128 + 9);
    EXPECT_EQ(Shell("head -c 3000000 /dev/zero").output.size(), 3'000'000u);
}

TEST(ChildProcess, PassesWordsAndDirectory) {
    const CScratchDirectory scratch;
    scratch.Write("Sub Dir/x", "");
    CChildProcess child;
    ASSERT_TRUE(child.Start({"printf", "%s|", "a b", "\"", "", "$x", "c\\"}, ""));
    EXPECT_EQ(Finish(child).output, "a b|\"||$x|c\\|");
    EXPECT_EQ(Shell("pwd", scratch.Windows("sub dir")).output, scratch.Native("Sub Dir") + "\n");
}

TEST(ChildProcess, SaysWhenItCannotStart) {
    const CScratchDirectory scratch;
    scratch.Write("text", "no program");
    std::filesystem::permissions(scratch.Native("text"), std::filesystem::perms::all);
    struct { std::vector<std::string> arguments; std::string directory; } cases[] = {
        {{}, ""}, {{"no such program"}, ""}, {{"sh"}, scratch.Windows("none")}, {{scratch.Windows("text")}, ""},
    };
    for (const auto &c : cases) {
        CChildProcess child;
        EXPECT_FALSE(child.Start(c.arguments, c.directory));
        EXPECT_TRUE(child.HasEnded());
        EXPECT_FALSE(child.WaitForExit());
    }
}

// Files of this process that were opened without care, its ignored and blocked signals: none of it is the child's.
TEST(ChildProcess, InheritsOnlyWhatItIsGiven) {
    const int leaked = open("/dev/null", O_RDONLY);
    ASSERT_GE(leaked, 0);
    CStopEvent event;
    ASSERT_GE(event.Descriptor(), 3);
    sigset_t blocked, before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigprocmask(SIG_BLOCK, &blocked, &before);
    const auto handler = signal(SIGPIPE, SIG_IGN);
    const Outcome outcome = Shell(
        "ls -1 /proc/$$/fd; grep -E 'SigBlk|SigIgn' /proc/$$/status | tr -d '\\n'; echo; "
        "cut -d' ' -f1,6 /proc/$$/stat", "", event.Descriptor());
    signal(SIGPIPE, handler);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    close(leaked);
    // No pipe of the shell's own may be open while its descriptors are listed.
    const std::string expected = "0\n1\n2\n" + std::to_string(event.Descriptor()) +
                                 "\nSigBlk:\t0000000000000000SigIgn:\t0000000000000000\n";
    EXPECT_EQ(outcome.output.substr(0, expected.size()), expected) << outcome.output << outcome.error;
    const std::string ids = outcome.output.substr(std::min(expected.size(), outcome.output.size()));
    EXPECT_EQ(ids.substr(0, ids.find(' ')) + "\n", ids.substr(ids.find(' ') + 1)) << "a session of its own: " << ids;
}

TEST(ChildProcess, SeesTheStopEventUntilReset) {
    const char *wait = "from select import select; import sys; print(bool(select([int(sys.argv[1])], [], [], 20)[0]))";
    CStopEvent event;
    for (int round = 0; round < 2; ++round) {
        CChildProcess child;
        if (!child.Start({"python3", "-c", wait, std::to_string(event.Descriptor())}, "", event.Descriptor()))
            GTEST_SKIP() << "no python3";
        child.WaitForData(milliseconds(200));
        EXPECT_FALSE(child.HasEnded());
        event.Set();
        EXPECT_EQ(Finish(child).output, "True\n");
        event.Reset();
    }
}

TEST(ChildProcess, NeverBlocksOnASilentChild) {
    CChildProcess child;
    ASSERT_TRUE(child.Start({"sleep", "60"}, ""));
    const auto start = Clock::now();
    char byte;
    EXPECT_EQ(child.Read(CChildProcess::Pipe::output, &byte, 1), 0u);
    child.WaitForData(milliseconds(50));
    EXPECT_FALSE(child.HasEnded());
    const auto waited = Clock::now() - start;
    EXPECT_GE(waited, milliseconds(45));
    EXPECT_LT(waited, milliseconds(5000));
    kill(child.Pid(), SIGKILL);
    EXPECT_EQ(child.WaitForExit(), 128 + SIGKILL);
}

TEST(ChildProcess, LeavesNoZombieBehind) {
    pid_t pid;
    {
        CChildProcess child;
        ASSERT_TRUE(child.Start({"sleep", "0.2"}, ""));
        pid = child.Pid();
    }
    EXPECT_EQ(kill(pid, 0), 0) << "ended by the destructor";
    const auto limit = Clock::now() + std::chrono::seconds(10);
    while (kill(pid, 0) == 0 && Clock::now() < limit) usleep(10'000);
    EXPECT_NE(kill(pid, 0), 0) << "still a zombie";
}

TEST(CommandLine, SplitsAndQuotes) {
    struct { const char *line; std::vector<std::string> words; } cases[] = {
        {"", {}}, {"  a\t b ", {"a", "b"}}, {"\"a b\"c d", {"a bc", "d"}}, {"\"\" x", {"", "x"}},
        {"c:\\dir\\x.c \"c:\\my dir\\x\"", {"c:\\dir\\x.c", "c:\\my dir\\x"}}, {"\"a \\\"b\\\" c\"", {"a \"b\" c"}},
        {"\"open end ", {"open end "}}, {"a\\\"b c\"", {"a\\b c"}},
    };
    for (const auto &c : cases) EXPECT_EQ(SplitCommandLine(c.line), c.words) << c.line;

    std::string line;
    const std::vector<std::string> words = {"plain",   "",          "a b",  "c:\\my dir\\", "\\",
                                            "\\\\ ", "say \"x\"", "\\\"", "\"\\",           "a\tb"};
    for (const auto &word : words) line += QuoteWord(word) + " ";
    EXPECT_EQ(SplitCommandLine(line), words) << line;
    EXPECT_EQ(QuoteWord("c:\\x.c"), "c:\\x.c");
}

}  // namespace
