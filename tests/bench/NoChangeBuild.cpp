// A build with nothing to do, from the command to its last line, against make by hand on the same makefile.
#include "app/IDEApp.h"
#include "bench/Benchmarks.h"
#include "bench/Measure.h"
#include "support/Program.h"

namespace {

constexpr int kRounds = 25;

}  // namespace

void BenchNoChangeBuild() {
    const CScratch scratch;
    scratch.CopyExample("blink");
    CProgram program(scratch, {scratch.Native("blink/blink.__c")});
    Require(program.Start(), "the program doesn't start");
    const auto build = [&] {
        return Elapsed([&] {
                   program.Command(ID_BUILD);
                   TurnEventsUntil([&] { return program.App().build.IsIdle() && WaitingMessages() == 0; });
               }).count();
    };
    build();
    Require(scratch.Exists("blink/Debug/blink.hex"), "the example doesn't build");
    const auto make = [&] {
        return Elapsed([&] { RunToEnd({"make", "-f", "makefile.blink", "all"}, scratch.Native("blink")); }).count();
    };
    Report("build without a change", Compare(kRounds, build, make), "ms", "make by hand on the same makefile");
}
