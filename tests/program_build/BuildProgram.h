// The program with projects that are built by the real toolsuite.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/Program.h"
#include "support/ProgramDirectory.h"

class BuildProgram : public testing::Test {
protected:
    void TearDown() override;

    // Starts the program on a project or workspace of the scratch directory; without a name on none.
    void Start(const std::string &name = {});
    void Start(const CScratch &home, std::vector<std::string> arguments);

    // A project file with its sources' names as the file holds them.
    void WriteProject(const std::string &name, const std::vector<std::string> &sources,
                      const std::string &target = "PIC16F628A", const std::string &compiler = "Assembler");
    // The project "demo/demo.__c" with one source that builds without a message.
    void WriteDemo();
    // The same, and a "prebuild.bat" with this text, which makes any step of a build possible.
    void WriteDemoWithPrebuild(const std::string &batch);

    bool ListHas(const std::string &text) { return program->BuildText().find(text) != std::string::npos; }
    int ListCount(const std::string &text);  // lines that hold the text
    int LineWith(const std::string &text);   // index of the first line that holds it, -1
    bool WaitForLine(const std::string &text, int seconds = 30);
    bool WaitForIdle(int seconds = 30);
    bool Failed() { return ListHas("Build failed."); }

    void DoubleClickLine(int index);  // in the build list
    int SelectedLine();               // of the active view, from 1, when exactly that line is selected; else 0
    std::string SelectedText();

    CScratch scratch;
    std::unique_ptr<CProgram> program;
};

// Number of processes whose command line holds `text`.
int ProcessesWith(const std::string &text);

inline bool Contains(const std::string &text, const std::string &part) {
    return text.find(part) != std::string::npos;
}

// A source that assembles and links for the PIC16F628A without a message.
inline constexpr const char *kGoodSource =
    "\tinclude \"p16f628a.inc\"\n"
    "start\tcode\t0\n"
    "\tgoto\tmain\n"
    "body\tcode\n"
    "main\tnop\n"
    "\tgoto\tmain\n"
    "\tend\n";
