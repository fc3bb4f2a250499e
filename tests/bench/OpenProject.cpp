// Opening a project of 1,000 source files against ten openings of one with 100: the time is to grow with the files, not
// faster.
#include <QCoreApplication>

#include "app/IDEApp.h"
#include "bench/Benchmarks.h"
#include "bench/Measure.h"
#include "support/Program.h"

namespace {

constexpr int kRounds = 9;
constexpr int kManyFiles = 1000, kFewFiles = 100;

// Returns the project's name in the Windows form.
std::string MakeProject(const CScratch &scratch, const std::string &name, int files) {
    std::string project =
        "[Settings]\r\nActive Compiler=Assembler\r\nActive Config=Debug\r\nTarget=PIC16F628A\r\n[Files]\r\n";
    project += "Count=" + std::to_string(files) + "\r\n";
    for (int i = 0; i < files; ++i) {
        const std::string file = "sources/unit" + std::to_string(i) + ".asm";
        scratch.Write(name + "/" + file, "        end\r\n");
        project += "File" + std::to_string(i) + "=sources\\unit" + std::to_string(i) + ".asm\r\n";
    }
    scratch.Write(name + "/" + name + ".__c", project);
    return scratch.Windows(name + "/" + name + ".__c");
}

}  // namespace

void BenchOpenProject() {
    const CScratch scratch;
    const std::string many = MakeProject(scratch, "many", kManyFiles), few = MakeProject(scratch, "few", kFewFiles);
    CProgram program(scratch);
    Require(program.Start(), "the program doesn't start");
    // With the painting of the tree that it leads to.
    const auto open = [&](const std::string &project) {
        return Elapsed([&] {
            Require(program.App().OpenWorkspace(project.c_str(), false), "a project doesn't open");
            program.Frame().repaint();
            QCoreApplication::processEvents();
        });
    };
    const auto ours = [&] { return open(many).count(); };
    const auto peer = [&] {
        Milliseconds sum{0};
        for (int i = 0; i < kManyFiles / kFewFiles; ++i) sum += open(few);
        return sum.count();
    };
    Report("open a project of 1000 files", Compare(kRounds, ours, peer), "ms",
           "ten openings of a project of 100 files");
}
