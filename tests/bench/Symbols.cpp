// The symbol index of a large project: building it, showing it, and what a save makes the user wait for.
#include <QCoreApplication>
#include <string>
#include <thread>

#include "app/IDEApp.h"
#include "bench/Benchmarks.h"
#include "bench/Measure.h"
#include "bench/SymbolProject.h"
#include "navigation/SymbolIndex.h"
#include "navigation/WorkspaceBar.h"
#include "support/Program.h"

namespace {

using namespace std::chrono_literals;

constexpr int kRounds = 5;
constexpr auto kAfterglow = 300ms;  // in which a rebuilt tree is painted

size_t CountSymbols(const SymbolMaps &maps) {
    size_t count = 0;
    for (const SymbolCategory &category : kSymbolCategories) count += (maps.*category.map).size();
    return count;
}

// What the index costs without the program: the same command lines by hand. The generator warns about a kind of C++.
void RunGenerator(const SymbolProject &project) {
    for (const char *run : {"--c-types=fvdcsuegt -f bare.brws -n", "--c-types=p -f bare.proto -N"})
        RunToEnd({"sh", "-c", "exec ctags " + std::string(run) + " -L list 2>/dev/null"}, project.directory);
}

double GapOf(const std::function<void()> &work, const std::function<bool()> &done) {
    CGapProbe probe;
    work();
    TurnEventsUntil(done);
    const auto end = std::chrono::steady_clock::now() + kAfterglow;
    TurnEventsUntil([&] { return std::chrono::steady_clock::now() > end; });
    return probe.Longest();
}

double IdleGapBesideGenerator(const SymbolProject &project) {
    bool ended = false;
    std::thread worker;
    const auto start = [&] {
        worker = std::thread([&] {
            RunGenerator(project);
            QMetaObject::invokeMethod(QCoreApplication::instance(), [&] { ended = true; });
        });
    };
    const double gap = GapOf(start, [&] { return ended; });
    worker.join();
    return gap;
}

// The least that showing them costs.
double WalkOf(SymbolMaps &maps) {
    size_t length = 0;
    const Milliseconds time = Elapsed([&] {
        for (const SymbolCategory &category : kSymbolCategories)
            for (const auto &[name, record] : maps.*category.map) length += name.size() + record.file.size();
    });
    Require(length > 0, "there are no symbols");
    return time.count();
}

void BenchTree(CProgram &program) {
    CWorkspaceBar &bar = program.Frame().WorkspaceBar();
    bar.ShowTab(CWorkspaceBar::kTabSymbols);
    const struct {
        int grouping;
        const char *name;
    } groupings[] = {
        {1, "browse tree of 200000 symbols by category, longest gap of the event loop"},
        {2, "browse tree of 200000 symbols by file, longest gap of the event loop"},
    };
    for (const auto &each : groupings) {
        bar.ApplyGrouping(each.grouping);
        Require(bar.Grouping() == each.grouping, "the grouping stays");
        const auto ours = [&] { return GapOf([&] { bar.RebuildBrowseTree(); }, [] { return true; }); };
        const auto peer = [&] { return WalkOf(program.App().symbols.Maps()); };
        Report(each.name, Compare(kRounds, ours, peer), "ms", "a walk of the symbols");
    }
}

void BenchSave(CProgram &program, const SymbolProject &project) {
    CSymbolIndex &symbols = program.App().symbols;
    Require(
        program.App().OpenDocumentFile(FromNativePath(project.directory + "/" + SymbolProject::Source(500))) != nullptr,
        "a source doesn't open");
    TurnEventsUntil([&] { return !symbols.IsUpdating(); });
    const auto save = [&] {
        program.Type(" ");
        return GapOf([&] { program.Command(ID_FILE_SAVE); }, [&] { return !symbols.IsUpdating(); });
    };
    const auto idle = [&] { return IdleGapBesideGenerator(project); };
    Report("save in a project of 200000 symbols, longest gap of the event loop", Compare(kRounds, save, idle), "ms",
           "the gap of an idle event loop beside the same two runs of ctags");
    Require(CountSymbols(symbols.Maps()) == SymbolProject::kSymbols, "symbols are missing after a save");
}

}  // namespace

void BenchSymbols() {
    const CScratch scratch;
    const SymbolProject project = MakeSymbolProject(scratch);
    CProgram program(scratch, {project.file});
    Require(program.Start(), "the program doesn't start");
    CSymbolIndex &symbols = program.App().symbols;
    const auto ours = [&] { return Elapsed([&] { symbols.UpdateBrowseInfo(); }).count(); };
    const auto peer = [&] { return Elapsed([&] { RunGenerator(project); }).count(); };
    const Comparison update = Compare(kRounds, ours, peer);
    Require(CountSymbols(symbols.Maps()) == SymbolProject::kSymbols, "symbols are missing");
    Report("index of 1000 files with 200000 symbols", update, "ms", "the same two runs of ctags by hand");
    BenchTree(program);
    BenchSave(program, project);
}
