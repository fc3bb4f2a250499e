// Builds that the user stops, and what children do that write much, or nothing.
#include <QElapsedTimer>
#include <QTimer>

#include "BuildProgram.h"
#include "build/BuildListBox.h"
#include "build/OutputBar.h"

namespace {

using namespace std::chrono_literals;

// The longest time in which the event loop came to no timer.
class LoopWatch {
public:
    LoopWatch() {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
            longest_ = std::max(longest_, clock_.restart());
            ++ticks_;
        });
        clock_.start();
        timer_.start(5);
    }
    qint64 Longest() const { return longest_; }  // milliseconds
    int Ticks() const { return ticks_; }

private:
    QTimer timer_;
    QElapsedTimer clock_;
    qint64 longest_ = 0;
    int ticks_ = 0;
};

#if defined(__SANITIZE_ADDRESS__)
constexpr int kSlowness = 10;
#else
constexpr int kSlowness = 1;
#endif
constexpr qint64 kLongestGap = 400 * kSlowness;  // milliseconds; roomy, for a machine that others use too

TEST_F(BuildProgram, AStoppedBuildLeavesNoProcessAndThenBuildsAgain) {
    const char *scripts[] = {
        "echo started\nsleep 4711.25\n",                                                        // waits politely
        "trap '' TERM INT HUP\necho started\nwhile :; do sleep 4711.25; done\n",                // ignores the signals
        "setsid sh -c 'trap \"\" TERM; echo started; sleep 4711.25; sleep 4711.25' &\nwait\n",  // a session of its own
        "echo started\nyes | head -c 1000000000\nsleep 4711.25\n",  // one that floods the list
        "while :; do echo started; done; sleep 4711.25\n",
    };
    WriteDemo();
    for (const char *script : scripts) {
        SCOPED_TRACE(script);
        scratch.Write("demo/prebuild.bat", script);
        Start("demo/demo.__c");
        program->Command(ID_BUILD);
        ASSERT_TRUE(WaitForLine("started"));
        QElapsedTimer clock;
        clock.start();
        program->Command(ID_BUILD_STOP);
        EXPECT_LT(clock.elapsed(), 4500 * kSlowness);
        ASSERT_TRUE(WaitForIdle(60));
        EXPECT_TRUE(ListHas("Build stopped."));
        EXPECT_FALSE(ListHas("Assembling")) << "the steps behind the stopped one ran";
        EXPECT_EQ(ProcessesWith("4711.25"), 0);
        EXPECT_EQ(ProcessesWith(scratch.Native("demo/prebuild.bat")), 0);

        std::filesystem::remove(scratch.Path() / "demo/prebuild.bat");
        ASSERT_TRUE(program->Build());
        EXPECT_FALSE(Failed()) << program->BuildText();
        EXPECT_TRUE(scratch.Exists("demo/Debug/demo.hex"));
        program.reset();
        std::filesystem::remove_all(scratch.Path() / "demo/Debug");
    }
}

TEST_F(BuildProgram, AStopAtAnyMomentLeavesAUsableProgram) {
    scratch.CopyExample("blink");
    Start("blink/blink.__c");
    for (const int delay : {0, 1, 5, 20, 60, 120, 200, 350}) {
        program->Command(ID_REBUILD);
        if (delay > 0) program->Settle(delay);
        if (program->IsEnabled(ID_BUILD_STOP)) program->Command(ID_BUILD_STOP);
        ASSERT_TRUE(WaitForIdle()) << delay << " ms";
    }
    ASSERT_TRUE(program->Build(ID_REBUILD));
    EXPECT_FALSE(Failed()) << program->BuildText();
    EXPECT_TRUE(scratch.Exists("blink/Debug/blink.hex"));
}

TEST_F(BuildProgram, LeavingTheProgramEndsItsBuild) {
    WriteDemoWithPrebuild("trap '' TERM\necho started\nwhile :; do sleep 4713.5; done\n");
    Start("demo/demo.__c");
    program->Command(ID_BUILD);
    ASSERT_TRUE(WaitForLine("started"));
    EXPECT_TRUE(program->Close());
    program.reset();
    EXPECT_EQ(ProcessesWith("4713.5"), 0);
}

TEST_F(BuildProgram, ClosingTheWorkspaceWhileItBuildsIsSafe) {
    WriteDemoWithPrebuild("echo started\nsleep 1\n");
    scratch.Write("demo/postbuild.bat", "echo behind\n");
    Start("demo/demo.__c");
    program->Command(ID_BUILD);
    ASSERT_TRUE(WaitForLine("started"));
    program->Command(ID_WORKSPACE_CLOSE);
    ASSERT_TRUE(WaitForIdle());
    EXPECT_FALSE(program->IsEnabled(ID_BUILD));
    ASSERT_TRUE(program->App().OpenWorkspace(scratch.Windows("demo/demo.__c").c_str(), false));
    std::filesystem::remove(scratch.Path() / "demo/prebuild.bat");
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(Failed()) << program->BuildText();
}

TEST_F(BuildProgram, AChildThatSaysNothingLeavesTheWindowAlive) {
    WriteDemoWithPrebuild("sleep 4714.5\n");
    Start("demo/demo.__c");
    program->Command(ID_BUILD);
    LoopWatch watch;
    program->Settle(1500);
    EXPECT_GT(watch.Ticks(), 50 / kSlowness);
    EXPECT_LT(watch.Longest(), kLongestGap);
    EXPECT_FALSE(program->App().build.IsIdle());
    program->Command(ID_BUILD_STOP);
    ASSERT_TRUE(WaitForIdle());
    EXPECT_EQ(ProcessesWith("4714.5"), 0);
}

TEST_F(BuildProgram, AMillionLinesArriveInOrder) {
    constexpr int kLines = 1000000 / kSlowness;
    WriteDemoWithPrebuild("seq 1 " + std::to_string(kLines) + "\n");
    Start("demo/demo.__c");
    program->Command(ID_BUILD);
    LoopWatch watch;
    ASSERT_TRUE(WaitForIdle(120));
    EXPECT_LT(watch.Longest(), kLongestGap);
    EXPECT_FALSE(Failed());
    const CBuildListBox &list = program->Frame().OutputBar().BuildList();
    int first = 0;
    while (first < list.GetCount() && list.GetText(first) != "1") ++first;
    ASSERT_LT(first + kLines, list.GetCount());
    for (int i = 0; i < kLines; i += 997) ASSERT_EQ(list.GetText(first + i), std::to_string(i + 1));
    EXPECT_EQ(list.GetText(first + kLines - 1), std::to_string(kLines));
    EXPECT_TRUE(ListHas("Assembling main.asm"));
}

TEST_F(BuildProgram, AHundredMegabytesWithoutALineEndArriveWhole) {
    constexpr size_t kBytes = 100'000'000 / kSlowness;
    WriteDemoWithPrebuild("head -c " + std::to_string(kBytes) + " /dev/zero | tr '\\000' x\n");
    Start("demo/demo.__c");
    program->Command(ID_BUILD);
    LoopWatch watch;
    ASSERT_TRUE(WaitForIdle(120));
    EXPECT_LT(watch.Longest(), kLongestGap);
    const CBuildListBox &list = program->Frame().OutputBar().BuildList();
    size_t bytes = 0;
    for (int i = 0; i < list.GetCount(); ++i)
        if (list.GetText(i).starts_with("xxxx")) bytes += list.GetText(i).size();
    EXPECT_EQ(bytes, kBytes);
    EXPECT_EQ(list.GetText(list.GetCount() - 2), "Done.");
}

TEST_F(BuildProgram, OutputThatIsNoTextIsShownAsFarAsItGoes) {
    WriteDemoWithPrebuild(
        "printf 'a\\0b\\nc\\r\\n\\377\\376 bad bytes\\n\\n\\n!E: own mark\\nno end' ; printf 'on error\\n' >&2\n");
    Start("demo/demo.__c");
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(ListHas("\377\376 bad bytes")) << program->BuildText();
    EXPECT_TRUE(ListHas("Error: own mark"));
    EXPECT_TRUE(ListHas("no end"));
    EXPECT_TRUE(ListHas("on error"));
    EXPECT_FALSE(Failed());
}

}  // namespace
