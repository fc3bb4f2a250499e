// The program against Geany on one virtual display, from outside: time to a usable window, time to open a large source,
// memory in both states. Each has a home of its own with the settings of its first run.
#include <X11/keysym.h>

#include "bench/Benchmarks.h"
#include "bench/Measure.h"
#include "bench/peer/BigSource.h"
#include "bench/peer/Candidate.h"
#include "platform/UserStore.h"

namespace {

constexpr const char *kPeer = "Geany";
constexpr int kStartRounds = 15, kOpenRounds = 5;

struct Stage {
    CVirtualDisplay display;
    CCandidate ours{display, THORNWELL_TEST_PROGRAM_DIR "/thornwell-ide"};
    CCandidate peer{display, "geany"};

    Stage() {
        // A tip of the day stands in front of the window until it is read, which is no matter of speed.
        CUserStore(ours.Home("config/ThornwellIDE/ThornwellIDE.db")).WriteInt("Tip", "Show", 0);
        ours.WarmUp();
        peer.WarmUp();
    }
};

// What each round gives of one program. A round of both is measured in turns.
struct Sample {
    double shown, answered, resident, anonymous;
};

void CompareSamples(int rounds, const std::function<Sample()> &ours, const std::function<Sample()> &peer,
                    const std::vector<std::tuple<std::string, double Sample::*, std::string>> &results) {
    std::vector<Sample> ourSamples, peerSamples;
    for (int round = 0; round < rounds; ++round) {
        ourSamples.push_back(ours());
        peerSamples.push_back(peer());
    }
    const auto median = [](const std::vector<Sample> &samples, double Sample::*member) {
        std::vector<double> values;
        for (const Sample &sample : samples) values.push_back(sample.*member);
        return Median(values);
    };
    for (const auto &[name, member, unit] : results) {
        const Comparison result{median(ourSamples, member), median(peerSamples, member)};
        Report(name, result, unit, kPeer);
    }
}

Sample WithMemory(CCandidate &program, Milliseconds shown, Milliseconds answered) {
    const CProcess::Memory memory = program.MemoryAtRest();
    program.Kill();
    return {shown.count(), answered.count(), memory.resident / 1e6, memory.anonymous / 1e6};
}

}  // namespace

void BenchPeerStartUp() {
    Stage stage;
    const auto measure = [](CCandidate &program) {
        program.Start();
        const Milliseconds shown = program.AwaitWindow(), answered = program.AwaitMenu();
        return WithMemory(program, shown, answered);
    };
    CompareSamples(
        kStartRounds, [&] { return measure(stage.ours); }, [&] { return measure(stage.peer); },
        {{"start to the painted window", &Sample::shown, "ms"},
         {"start to a usable window: painted, and the File menu open", &Sample::answered, "ms"},
         {"resident memory, nothing open", &Sample::resident, "MB"},
         {"memory of its own, nothing open", &Sample::anonymous, "MB"}});
}

void BenchPeerBigSource() {
    Stage stage;
    const CScratchDirectory directory;
    const std::string file = directory.Write("big.c", BigSource(20'000'000));
    const auto measure = [&](CCandidate &program) {
        program.Start({file});
        program.AwaitWindow();
        const Milliseconds shown = program.AwaitText(true);
        program.Press(XK_Page_Down);
        const Milliseconds answered = program.AwaitText(false);
        return WithMemory(program, shown, answered);
    };
    CompareSamples(
        kOpenRounds, [&] { return measure(stage.ours); }, [&] { return measure(stage.peer); },
        {{"start with a C source of 20 MB to its first page", &Sample::shown, "ms"},
         {"start with a C source of 20 MB to its second page by key", &Sample::answered, "ms"},
         {"resident memory, a C source of 20 MB open", &Sample::resident, "MB"},
         {"memory of its own, a C source of 20 MB open", &Sample::anonymous, "MB"}});
}
