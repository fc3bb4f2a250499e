// Measures the program against what its work costs without it: thornwell-bench [part of a benchmark's name]. Results go
// to the standard output as JSON lines.
#include <QApplication>
#include <iostream>
#include <string>

#include "bench/Benchmarks.h"
#include "support/Program.h"

int main(int argc, char **argv) {
    const std::string filter = argc > 1 ? argv[1] : "";
    PrepareTestProcess();
    setenv("QT_LOGGING_RULES", "*.warning=false", 0);  // the toolkit's remarks on the off-screen platform
    QApplication application(argc, argv);
    const struct {
        const char *name;
        void (*run)();
    } benchmarks[] = {
        {"start-up", BenchStartUp},
        {"open-project", BenchOpenProject},
        {"flood", BenchFlood},
        {"no-change-build", BenchNoChangeBuild},
        {"symbols", BenchSymbols},
        {"debug-start", BenchDebugStart},
        {"debug-step", BenchDebugStep},
        {"debug-bars", BenchDebugBars},
        {"engine-run", BenchEngineRun},
#ifdef THORNWELL_BENCH_PEER
        {"peer-start-up", BenchPeerStartUp},
        {"peer-big-source", BenchPeerBigSource},
#endif
    };
    int run = 0;
    for (const auto &benchmark : benchmarks) {
        if (std::string(benchmark.name).find(filter) == std::string::npos) continue;
        std::cerr << "bench: " << benchmark.name << std::endl;
        benchmark.run();
        ++run;
    }
    if (run == 0) std::cerr << "bench: there is no benchmark \"" << filter << "\"\n";
    return run == 0;
}
