#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Launched.h"
#include "platform/ChildProcess.h"

namespace {

const char kStubborn[] = "trap '' TERM INT HUP; echo ready; while :; do sleep 1; done";

class PspawnStop : public testing::Test {
 protected:
    void SetUp() override {
        AdoptOrphans();
        ASSERT_GE(event_.Descriptor(), 0);
    }
    void TearDown() override { EXPECT_TRUE(NothingLeft()); }

    CLaunched::Options Inherit() const { return {.inherited = event_.Descriptor()}; }

    CStopEvent event_;
};

}  // namespace

TEST_F(PspawnStop, EndsEveryKindOfTree) {
    const struct {
        const char *name, *script;
        int exitCode;  // of the command's own process
    } cases[] = {
        {"quick to end", "echo ready; sleep 1000", 143},
        {"ignores the polite signal", kStubborn, 137},
        {"own sessions", "trap '' TERM; setsid sleep 1000 & setsid --fork setsid sleep 1000; echo ready; sleep 1000",
         137},
        {"orphans",
         "trap '' TERM; ( (sleep 1000; sleep 1000) & ) ; ( ( (sleep 1000) & ) & ); echo ready; wait; sleep 1000", 137},
        {"goes on forking", "trap '' TERM; echo ready; while :; do (sleep 1000 &); done", 137},
        {"forks anew from orphans", "trap '' TERM; f() { sleep 0.01; f & }; f & f & f & echo ready; sleep 1000", 137},
        {"stopped", "echo ready; (kill -STOP $$); sleep 1000", 143},
        {"writes all the time", "echo ready; yes", 143},
    };
    for (const auto &c : cases) {
        event_.Reset();
        CLaunched launched(Pspawn({"sh", "-c", c.script}, event_.Descriptor()), Inherit());
        launched.ReadUntil("ready");
        event_.Set();
        EXPECT_EQ(launched.Wait(), c.exitCode) << c.name;
        EXPECT_TRUE(NothingLeft()) << c.name;
    }
}

TEST_F(PspawnStop, EndsAChildThatIsBlockedOnAFullPipe) {
    CLaunched launched(Pspawn({"sh", "-c", "trap '' TERM; yes"}, event_.Descriptor()), Inherit());
    launched.ReadUntil("y\n");
    usleep(100'000);  // the pipe fills up; nobody reads until the launcher has ended
    event_.Set();
    int status = 0;
    EXPECT_EQ(waitpid(launched.Pid(), &status, 0), launched.Pid());
    EXPECT_GE(WEXITSTATUS(status), 128);
}

TEST_F(PspawnStop, LetsAPoliteCommandTidyUp) {
    const char script[] = "trap 'echo tidied; exit 3' TERM; echo ready; while :; do sleep 0.1; done";
    CLaunched launched(Pspawn({"sh", "-c", script}, event_.Descriptor()), Inherit());
    launched.ReadUntil("ready");
    event_.Set();
    EXPECT_EQ(launched.Wait(), 3);
    EXPECT_EQ(launched.output, "ready\ntidied\n");
}

TEST_F(PspawnStop, SeesAnEventThatWasSetBeforeAndEventsOfOtherKinds) {
    event_.Set();
    CLaunched early(Pspawn({"sleep", "1000"}, event_.Descriptor()), Inherit());
    EXPECT_EQ(early.Wait(), 143);

    for (const bool closeOnly : {false, true}) {
        int ends[2];
        ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
        CLaunched launched(Pspawn({"sh", "-c", "echo ready; sleep 1000"}, ends[0]), {.inherited = ends[0]});
        launched.ReadUntil("ready");
        EXPECT_TRUE(closeOnly || write(ends[1], "x", 1) == 1);
        close(ends[1]);
        EXPECT_EQ(launched.Wait(), 143);
        close(ends[0]);
    }
}

TEST_F(PspawnStop, TakesOtherNumbersForNoEvent) {
    const int file = open("/dev/null", O_RDONLY | O_CLOEXEC);
    for (const int number : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 900, file}) {
        CLaunched launched(Pspawn({"sh", "-c", "sleep 0.1; exit 6"}, number), {.inherited = file});
        launched.WriteInput("");
        EXPECT_EQ(launched.Wait(), 6) << number;
    }
    close(file);
}

TEST_F(PspawnStop, EndsTheTreeOnSignals) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        CLaunched launched(Pspawn({"sh", "-c", kStubborn}));
        launched.ReadUntil("ready");
        kill(launched.Pid(), number);
        EXPECT_EQ(launched.Wait(), 137) << number;
        EXPECT_TRUE(NothingLeft()) << number;
    }
}

TEST_F(PspawnStop, EndsTheCommandWhenTheLauncherIsKilled) {
    CLaunched launched(Pspawn({"sh", "-c", "trap '' TERM HUP; echo ready; read x"}));
    launched.ReadUntil("ready");
    kill(launched.Pid(), SIGKILL);
    launched.Wait();
    EXPECT_TRUE(NothingLeftSoon());
}

TEST_F(PspawnStop, EndsTheTreeWhenTheStartingProcessDies) {
    int ready[2];
    ASSERT_EQ(pipe2(ready, O_CLOEXEC), 0);
    const pid_t starter = fork();
    if (starter == 0) {
        CLaunched launched(Pspawn({"sh", "-c", kStubborn}, event_.Descriptor()), Inherit());
        if (launched.ReadUntil("ready") && write(ready[1], "x", 1) == 1) pause();
        _exit(1);
    }
    char byte;
    EXPECT_EQ(read(ready[0], &byte, 1), 1);
    kill(starter, SIGKILL);
    EXPECT_TRUE(NothingLeftSoon());
    close(ready[0]);
    close(ready[1]);
}
