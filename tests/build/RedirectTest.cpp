#include <gtest/gtest.h>

#include <signal.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "support/ScratchDirectory.h"
#include "app/MainFrame.h"
#include "build/MyRedirect.h"
#include "build/XRedirect.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Lines = std::vector<std::string>;

bool WaitFor(const std::function<bool()> &condition, std::chrono::milliseconds limit = 20s) {
    const auto deadline = Clock::now() + limit;
    while (!condition()) {
        if (Clock::now() > deadline) return false;
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

class Recorder : public CXRedirect {
public:
    ~Recorder() override { Stop(); }

    Lines Written() {
        std::lock_guard lock(mutex_);
        return lines_;
    }
    bool WaitForEnd() {
        return WaitFor([this] { return ends > 0; });
    }
    // The shell's words for `script`, quoted for a command line.
    bool Run(const std::string &script) { return Start("/bin/sh -c " + QuoteWord(script), "", -1); }

    std::atomic<int> ends{0}, begins{0};
    std::atomic<size_t> bytes{0}, longest{0};
    bool keepLines = true;
    std::string launcherCommand;

protected:
    void OnChildStarted(const std::string &command) override {
        launcherCommand = command;
        ++begins;
    }
    void OnChildWrite(std::string_view line) override {
        bytes += line.size();
        longest = std::max<size_t>(longest, line.size());
        if (!keepLines) return;
        std::lock_guard lock(mutex_);
        lines_.emplace_back(line);
    }
    void OnChildTerminate() override {
        CXRedirect::OnChildTerminate();
        ++ends;
    }

private:
    std::mutex mutex_;
    Lines lines_;
};

class Redirect : public testing::Test {
protected:
    void SetUp() override { setenv("THORNWELL_PROGRAM_DIR", PROGRAM_DIRECTORY, 1); }
    void TearDown() override { unsetenv("THORNWELL_PROGRAM_DIR"); }

    // A launcher of this test's own, a shell script.
    void UseLauncher(const std::string &script) {
        chmod(scratch_.Write("pspawn.exe", "#!/bin/sh\n" + script).c_str(), 0755);
        setenv("THORNWELL_PROGRAM_DIR", scratch_.Native().c_str(), 1);
    }

    CScratchDirectory scratch_;
};

TEST_F(Redirect, DeliversOutputErrorsAndExitCode) {
    const struct {
        const char *script;
        Lines lines;
        int exitCode;
    } cases[] = {
        {"echo one; echo two", {"one", "two"}, 0},
        {"echo wrong >&2; exit 3", {"wrong"}, 3},
        {"printf 'no line end'", {"no line end"}, 0},
        {"printf 'a\\n\\n\\nb\\r\\n'", {"a", "b"}, 0},
        {"exit 7", {}, 7},
        {"printf '%s\\n' \"a b\"", {"a b"}, 0},
        {"kill -TERM $$", {}, 128 + SIGTERM},
    };
    for (const auto &c : cases) {
        Recorder redirect;
        EXPECT_EQ(redirect.ExitCode(), 999);
        ASSERT_TRUE(redirect.Run(c.script)) << c.script;
        ASSERT_TRUE(redirect.WaitForEnd()) << c.script;
        EXPECT_EQ(redirect.Written(), c.lines) << c.script;
        EXPECT_EQ(redirect.Stop(), c.exitCode) << c.script;  // the last one, without a child
        EXPECT_EQ(redirect.ends, 1) << c.script;
    }
}

TEST_F(Redirect, PassesParameterEventAndDirectoryToTheLauncher) {
    UseLauncher("echo \"$1|$3\"; pwd; test -e /proc/$$/fd/$2 && echo event\n");
    Recorder redirect;
    ASSERT_TRUE(redirect.Start("make  \"a b\" all", scratch_.Native(), 42));
    ASSERT_TRUE(redirect.WaitForEnd());
    EXPECT_EQ(redirect.Written(), (Lines{"42|make  \"a b\" all", scratch_.Native(), "event"}));
    EXPECT_TRUE(redirect.launcherCommand.starts_with("pspawn.exe 42 ")) << redirect.launcherCommand;
    EXPECT_TRUE(redirect.launcherCommand.ends_with(" make  \"a b\" all")) << redirect.launcherCommand;
}

TEST_F(Redirect, RefusesASecondStartAndAnEmptyCommand) {
    Recorder redirect;
    EXPECT_FALSE(redirect.Start("", "", 0));
    EXPECT_EQ(redirect.Stop(), 999);
    ASSERT_TRUE(redirect.Run("sleep 0.2; echo first"));
    EXPECT_FALSE(redirect.Run("echo second"));
    ASSERT_TRUE(redirect.WaitForEnd());
    EXPECT_EQ(redirect.Written(), Lines{"first"});
    ASSERT_TRUE(redirect.Run("echo third"));  // the ended worker is in nobody's way
    ASSERT_TRUE(WaitFor([&] { return redirect.ends == 2; }));
    EXPECT_EQ(redirect.Written(), (Lines{"first", "third"}));
}

TEST_F(Redirect, StopsAChildWithItsLastLines) {
    for (const char *script :
         {"echo begun; sleep 100", "trap '' TERM INT HUP; echo begun; while :; do sleep 1; done"}) {
        Recorder redirect;
        ASSERT_TRUE(redirect.Run(script));
        ASSERT_TRUE(WaitFor([&] { return !redirect.Written().empty(); }));
        const auto start = Clock::now();
        EXPECT_GE(redirect.Stop(), 128) << script;
        EXPECT_LT(Clock::now() - start, 2900ms) << script;  // by the event, not by giving up
        EXPECT_EQ(redirect.ends, 1) << script;
    }
}

TEST_F(Redirect, LeavesALauncherThatDoesNotReact) {
    UseLauncher("echo $$; exec sleep 100\n");
    Recorder redirect;
    ASSERT_TRUE(redirect.Start("anything", "", 0));
    ASSERT_TRUE(WaitFor([&] { return !redirect.Written().empty(); }));
    const auto start = Clock::now();
    EXPECT_EQ(redirect.Stop(), 1);
    EXPECT_GE(Clock::now() - start, 2900ms);
    EXPECT_LT(Clock::now() - start, 4500ms);
    EXPECT_EQ(redirect.ends, 1);
    const int pid = std::stoi(redirect.Written().front());
    EXPECT_EQ(kill(pid, 0), 0);
    kill(pid, SIGKILL);
    UseLauncher("echo fresh\n");
    ASSERT_TRUE(redirect.Start("anything", "", 0));
    ASSERT_TRUE(WaitFor([&] { return redirect.ends == 2; }));
    EXPECT_EQ(redirect.Written().back(), "fresh");
}

TEST_F(Redirect, TellsAMissingLauncherAndEndsTheStep) {
    setenv("THORNWELL_PROGRAM_DIR", scratch_.Native().c_str(), 1);
    Recorder redirect;
    ASSERT_TRUE(redirect.Run("echo x"));
    ASSERT_TRUE(redirect.WaitForEnd());
    ASSERT_EQ(redirect.Written().size(), 1u);
    EXPECT_NE(redirect.Written().front().find("pspawn.exe"), std::string::npos);
    EXPECT_EQ(redirect.ExitCode(), 1);
    EXPECT_EQ(redirect.begins, 0);
    setenv("THORNWELL_PROGRAM_DIR", PROGRAM_DIRECTORY, 1);
    EXPECT_TRUE(redirect.Run("echo y"));
}

TEST_F(Redirect, TakesAHundredMegabytesWithoutALineEnd) {
    constexpr size_t kBytes = 100 * 1024 * 1024;
    Recorder redirect;
    redirect.keepLines = false;
    ASSERT_TRUE(redirect.Run("head -c 104857600 /dev/zero"));
    ASSERT_TRUE(WaitFor([&] { return redirect.ends == 1; }, 60s));
    EXPECT_EQ(redirect.bytes, kBytes);
    EXPECT_LE(redirect.longest, 8191u);
    EXPECT_EQ(redirect.ExitCode(), 0);
}

TEST_F(Redirect, DoesNotWaitForWhatOutlivesTheChild) {
    Recorder redirect;
    ASSERT_TRUE(redirect.Run("(sleep 30; echo late) & echo $!"));
    ASSERT_TRUE(WaitFor([&] { return redirect.ends == 1; }, 10s));
    ASSERT_EQ(redirect.Written().size(), 1u);
    kill(std::stoi(redirect.Written().front()), SIGKILL);
}

class Receiver : public CMessageTarget {
public:
    Receiver() {
        OnTextMessage(kMsgOutputText, [this](std::string text) {
            ++lines;
            last = std::move(text);
        });
        OnMessage(kMsgChildEnded, [this](intptr_t, intptr_t) {
            ++ends;
            if (whenEnded) whenEnded();
        });
    }
    bool PumpUntilEnds(int count, int milliseconds = 30000) {
        QElapsedTimer clock;
        clock.start();
        while (ends < count && clock.elapsed() < milliseconds)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        return ends >= count;
    }

    size_t lines = 0;
    int ends = 0;
    std::string last;
    std::function<void()> whenEnded;
};

TEST_F(Redirect, PostsAllLinesBeforeTheEndAndStartsAgainFromThere) {
    Receiver receiver;
    CMyRedirect redirect;
    redirect.SetPort(receiver.Port());
    size_t linesAtEnd = 0;
    bool busyAtEnd = true, restarted = false;
    receiver.whenEnded = [&] {
        if (receiver.ends > 1) return;
        linesAtEnd = receiver.lines;
        busyAtEnd = redirect.IsBusy();
        restarted = redirect.RunCommand("/bin/echo again", "", -1);
    };
    ASSERT_TRUE(redirect.RunCommand("/usr/bin/seq 100000", "", -1));
    ASSERT_TRUE(receiver.PumpUntilEnds(2));
    EXPECT_EQ(linesAtEnd, 100000u);
    EXPECT_FALSE(busyAtEnd);
    EXPECT_TRUE(restarted);
    EXPECT_EQ(receiver.last, "again");
}

TEST_F(Redirect, BoundsWhatWaitsForABusyReceiver) {
    Receiver receiver;
    CMyRedirect redirect;
    redirect.SetPort(receiver.Port());
    ASSERT_TRUE(redirect.RunCommand("/usr/bin/yes", "", -1));
    ASSERT_TRUE(WaitFor([] { return WaitingMessages() > 20000; }));
    EXPECT_TRUE(redirect.IsBusy());
    std::this_thread::sleep_for(200ms);
    EXPECT_LT(WaitingMessages(), 21000u);
    const auto start = Clock::now();
    redirect.Stop();  // while nobody delivers
    EXPECT_LT(Clock::now() - start, 2900ms);
    EXPECT_LT(WaitingMessages(), 21000u);
    ASSERT_TRUE(receiver.PumpUntilEnds(1));
    EXPECT_FALSE(redirect.IsBusy());

    ASSERT_TRUE(redirect.RunCommand("/usr/bin/head -c 50000000 /dev/zero", "", -1));
    ASSERT_TRUE(WaitFor([] { return WaitingMessages() > 1000; }));
    std::this_thread::sleep_for(200ms);
    EXPECT_LT(WaitingMessages(), 4000u);  // long lines count for more
    ASSERT_TRUE(receiver.PumpUntilEnds(2));
}

}  // namespace
