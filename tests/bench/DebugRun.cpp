// A debug run as the user waits for it, against the gpsim program on the same image at its own command line: from the
// command to the first stop, and from a step to all bars of the run shown anew.
#include <QCoreApplication>
#include <QProcess>
#include <filesystem>

#include "bench/Benchmarks.h"
#include "bench/DebugWindow.h"
#include "bench/Measure.h"
#include "support/Program.h"

namespace {

constexpr int kStarts = 15, kSteps = 200;
constexpr int kWaitForPeer = 10000;  // milliseconds

// The simulator's program between two prompts.
class CPeer {
public:
    explicit CPeer(const std::string &image) {
        gpsim_.setProcessChannelMode(QProcess::MergedChannels);
        gpsim_.start("gpsim", {"-i", "-s", QString::fromStdString(image)});
        AwaitPrompt();
    }
    ~CPeer() {
        gpsim_.write("quit\n");
        if (!gpsim_.waitForFinished(kWaitForPeer)) gpsim_.kill();
    }

    void Step() {
        gpsim_.write("step\n");
        AwaitPrompt();
    }

private:
    void AwaitPrompt() {
        QByteArray text;
        while (!text.trimmed().endsWith("**gpsim>")) {
            Require(gpsim_.waitForReadyRead(kWaitForPeer), "gpsim gives no prompt");
            text += gpsim_.readAll();
        }
    }

    QProcess gpsim_;
};

// What has changed, no more.
void Paint() {
    QCoreApplication::processEvents();
}

// Opens the example and builds it. Returns the native name of what the simulator's program loads.
std::string Prepare(const CScratch &scratch, CProgram &program) {
    Require(program.Start(), "the program doesn't start");
    program.Frame().resize(2560, 1440);
    Require(program.Build(), "the example doesn't build");
    const std::string image = scratch.Native("greeting/Debug/greeting.cod");
    Require(std::filesystem::exists(image), "the example leaves no image");
    return image;
}

}  // namespace

void BenchDebugStart() {
    const CScratch scratch;
    scratch.CopyExample("greeting");
    CProgram program(scratch, {scratch.Native("greeting/greeting.__c")});
    const std::string image = Prepare(scratch, program);
    const auto start = [&] {
        const double time = Elapsed([&] {
                                StartDebugRun(program);
                                Paint();
                            }).count();
        program.Command(ID_DEBUG_END);
        Require(!program.App().session.IsOpen(), "the run doesn't end");
        Paint();
        return time;
    };
    const auto peer = [&] { return Elapsed([&] { CPeer gpsim(image); }).count(); };
    start();
    Report("start of a debug run to the stop at main", Compare(kStarts, start, peer), "ms",
           "gpsim from its start to its end, the image loaded");
}

void BenchDebugStep() {
    const CScratch scratch;
    scratch.CopyExample("greeting");
    CProgram program(scratch, {scratch.Native("greeting/greeting.__c")});
    const std::string image = Prepare(scratch, program);
    StartDebugRun(program);
    ShowAllBars(program);
    Paint();
    const auto step = [&] {
        return Elapsed([&] {
                   program.Command(ID_DEBUG_STEP_INTO);
                   TurnEventsUntil([&] { return Stands(program); });
                   Paint();
               })
            .count();
    };
    CPeer gpsim(image);
    const auto peer = [&] { return Elapsed([&] { gpsim.Step(); }).count(); };
    step();
    Report("step of a debug run to all bars refreshed", Compare(kSteps, step, peer), "ms",
           "a step of gpsim to its next prompt");
    program.Command(ID_DEBUG_END);
}
