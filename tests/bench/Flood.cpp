// A build step that writes a million short lines: its time, the window's longest silence meanwhile, and the memory of
// the list.
#include <malloc.h>
#include <unistd.h>

#include <QCoreApplication>
#include <fstream>
#include <thread>

#include "app/IDEApp.h"
#include "bench/Benchmarks.h"
#include "bench/Measure.h"
#include "build/BuildListBox.h"
#include "build/Message.h"
#include "build/OutputBar.h"
#include "support/Program.h"

namespace {

constexpr int kRounds = 5;
constexpr int kLines = 1'000'000;
constexpr const char *kCommand = "seq -f 'file.c: line %.0f' 1000000";

double ResidentBytes() {
    malloc_trim(0);
    std::ifstream file("/proc/self/statm");
    long all = 0, resident = 0;
    file >> all >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

struct Flood {
    double time, gap;
};

Flood RunFlood(CProgram &program, const CScratch &scratch) {
    CIDEApp &app = program.App();
    app.AddOutputLine(nullptr);
    auto step = std::make_unique<CMessage>(scratch.Windows("blink/blink.__c"), -1);
    step->command = scratch.Windows("blink/flood.bat");
    app.messageList.AddTail(std::move(step));
    Flood flood;
    flood.time = Elapsed([&] {
                     CGapProbe probe;
                     Require(app.messageList.StartNext(), "the step doesn't start");
                     TurnEventsUntil([&] { return app.build.IsIdle() && WaitingMessages() == 0; });
                     flood.gap = probe.Longest();
                 }).count();
    Require(program.Frame().OutputBar().BuildList().GetCount() >= kLines, "lines are missing");
    return flood;
}

// How long the machine itself keeps this process away, while the command runs without the program.
Flood RunPeer() {
    const std::string command = std::string(kCommand) + " | cat >/dev/null";
    CGapProbe probe;
    Flood flood;
    bool ended = false;
    flood.time = Elapsed([&] {
                     std::thread worker([&] {
                         RunToEnd({"sh", "-c", command});
                         QMetaObject::invokeMethod(QCoreApplication::instance(), [&] { ended = true; });
                     });
                     TurnEventsUntil([&] { return ended; });
                     worker.join();
                 }).count();
    flood.gap = probe.Longest();
    return flood;
}

}  // namespace

void BenchFlood() {
    const CScratch scratch;
    scratch.CopyExample("blink");
    scratch.Write("blink/flood.bat", std::string(kCommand) + "\n");
    CProgram program(scratch, {scratch.Native("blink/blink.__c")});
    Require(program.Start(), "the program doesn't start");

    program.App().AddOutputLine(nullptr);
    const double before = ResidentBytes();
    RunFlood(program, scratch);
    const double grown = (ResidentBytes() - before) / kLines;
    const CBuildListBox &list = program.Frame().OutputBar().BuildList();
    double text = 0;
    for (int i = 0; i < list.GetCount(); ++i) text += static_cast<double>(list.GetText(i).size());

    std::vector<double> ourGaps, peerGaps;
    const auto ours = [&] {
        const Flood flood = RunFlood(program, scratch);
        ourGaps.push_back(flood.gap);
        return flood.time;
    };
    const auto peer = [&] {
        const Flood flood = RunPeer();
        peerGaps.push_back(flood.gap);
        return flood.time;
    };
    const Comparison times = Compare(kRounds, ours, peer);
    Report("flood of 1000000 lines through a build step", times, "ms", "the same command piped to cat");
    Report("flood, longest gap of the event loop", {Median(ourGaps), Median(peerGaps)}, "ms",
           "the gap of an idle event loop beside the command piped to cat");
    Report("flood, memory per line", {grown, text / kLines}, "bytes", "the bytes of the line's text");
}
