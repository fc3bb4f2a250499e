// What the views of a debug run cost on a chip with all the data memory that there is, every byte of it changing: at a
// stop, against a frame of the screen, and while the target runs, against the run without them.
#include <QCoreApplication>
#include <iostream>
#include <thread>

#include "bench/Benchmarks.h"
#include "bench/DebugWindow.h"
#include "bench/Measure.h"
#include "debugger/DebugNotices.h"
#include "debugger/WatchList.h"
#include "support/Program.h"

namespace {

constexpr int kStops = 40, kRuns = 9, kWatches = 50;
constexpr double kFrame = 1000.0 / 60;  // milliseconds
constexpr int kSnapshotInterval = 100;  // milliseconds
constexpr std::chrono::milliseconds kRun{1000};

constexpr const char *kSource = R"(
        include "p18f4620.inc"
        config  OSC = INTIO67, WDT = OFF, LVP = OFF
        global  main
start   code    0
        goto    main
        code
main    lfsr    0, 0x080
again   incf    POSTINC0, F, A
        movlw   0x0F
        cpfseq  FSR0H, A
        bra     again
        bra     main
        end
)";

std::string MakeProject(const CScratch &scratch) {
    scratch.Write("fill/main.asm", kSource);
    const std::string file = scratch.Write("fill/fill.__c",
                                           "[Settings]\r\nActive Compiler=Assembler\r\nActive Config=Debug\r\n"
                                           "Target=PIC18F4620\r\n[Files]\r\nCount=1\r\nFile0=main.asm\r\n");
    std::vector<StoredWatch> watches;
    for (int i = 0; i < kWatches; ++i) watches.push_back({"$" + std::to_string(0x100 + 32 * i), i % 4});
    Require(StoreWatches(scratch.Windows("fill/fill.__c"), watches), "the watches can't be stored");
    return file;
}

void RunOn(CProgram &program) {
    program.Command(ID_DEBUG_CONTINUE);
    Require(program.App().session.IsRunning(), "the target doesn't run");
}

// Runs until memory has changed, then stops. The time from the notice of the stop to the last pixel.
double Stop(CProgram &program) {
    RunOn(program);
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    CDebugNotices &notices = *program.App().debugger.Notices();
    program.App().session.Stop();
    while (!notices.HasStop()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return Elapsed([&] {
               TurnEventsUntil([&] { return Stands(program); });
               QCoreApplication::processEvents();
           })
        .count();
}

// Cycles of the target in a second.
double Speed(CProgram &program, bool snapshots) {
    CDebugSession &session = program.App().session;
    if (session.IsSnapshotOn() != snapshots) session.ToggleSnapshot();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { session.OnTimer(); });
    RunOn(program);
    if (snapshots) timer.start(kSnapshotInterval);
    const int64_t before = session.Clock().CurrentTick();
    const auto begin = std::chrono::steady_clock::now();
    TurnEventsUntil([&] { return std::chrono::steady_clock::now() - begin >= kRun; });
    program.App().session.Stop();
    TurnEventsUntil([&] { return Stands(program); });
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
    const auto cycles = static_cast<uint32_t>(session.Clock().CurrentTick()) - static_cast<uint32_t>(before);
    return cycles / time.count();
}

}  // namespace

void BenchDebugBars() {
    const CScratch scratch;
    CProgram program(scratch, {MakeProject(scratch)});
    Require(program.Start() && program.Build() && scratch.Exists("fill/Debug/fill.cof"), "the project doesn't build");
    program.Frame().resize(2560, 1440);
    StartDebugRun(program);
    ShowAllBars(program);

    const uint64_t calls = program.App().debugger.CallCount();
    Stop(program);
    std::cerr << "calls to the engine at a stop: " << program.App().debugger.CallCount() - calls << std::endl;
    Report("all views of a debug run shown anew at a stop",
           Compare(
               kStops, [&] { return Stop(program); }, [] { return kFrame; }),
           "ms", "a frame of the screen");
    Report("cycles a second with all views shown ten times a second",
           Compare(
               kRuns, [&] { return Speed(program, true); }, [&] { return Speed(program, false); }),
           "1/s", "the same without these views' refresh");
    program.Command(ID_DEBUG_END);
}
