#include "BuildProgram.h"

#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "build/BuildListBox.h"
#include "build/OutputBar.h"
#include "editor/IDEView.h"

namespace fs = std::filesystem;

void BuildProgram::TearDown() {
    if (!program) return;
    EXPECT_TRUE(program->Unexpected().empty()) << program->Unexpected().front();
    EXPECT_EQ(program->AnswersLeft(), 0u);
}

void BuildProgram::Start(const std::string &name) {
    Start(scratch, name.empty() ? std::vector<std::string>() : std::vector{scratch.Native(name)});
}

void BuildProgram::Start(const CScratch &home, std::vector<std::string> arguments) {
    program = std::make_unique<CProgram>(home, std::move(arguments));
    ASSERT_TRUE(program->Start());
    program->Frame().resize(1100, 800);
}

void BuildProgram::WriteProject(const std::string &name, const std::vector<std::string> &sources,
                                const std::string &target, const std::string &compiler) {
    std::string text = "[Settings]\nActive Compiler=" + compiler + "\nActive Config=Debug\nTarget=" + target +
                       "\n[Files]\nCount=" + std::to_string(sources.size()) + "\n";
    for (size_t i = 0; i < sources.size(); ++i) text += "File" + std::to_string(i) + "=" + sources[i] + "\n";
    scratch.Write(name, text);
}

void BuildProgram::WriteDemo() {
    WriteProject("demo/demo.__c", {"main.asm"});
    scratch.Write("demo/main.asm", kGoodSource);
}

void BuildProgram::WriteDemoWithPrebuild(const std::string &batch) {
    WriteDemo();
    scratch.Write("demo/prebuild.bat", batch);
}

int BuildProgram::ListCount(const std::string &text) {
    const std::vector<std::string> lines = program->BuildLines();
    return static_cast<int>(std::ranges::count_if(lines, [&](const auto &line) { return Contains(line, text); }));
}

int BuildProgram::LineWith(const std::string &text) {
    const std::vector<std::string> lines = program->BuildLines();
    const auto found = std::ranges::find_if(lines, [&](const auto &line) { return Contains(line, text); });
    return found == lines.end() ? -1 : static_cast<int>(found - lines.begin());
}

bool BuildProgram::WaitForLine(const std::string &text, int seconds) {
    return program->WaitFor([&] { return ListHas(text); }, std::chrono::seconds(seconds));
}

bool BuildProgram::WaitForIdle(int seconds) {
    return program->WaitFor([&] { return program->App().build.IsIdle() && WaitingMessages() == 0; },
                            std::chrono::seconds(seconds));
}

void BuildProgram::DoubleClickLine(int index) {
    CBuildListBox &list = program->Frame().OutputBar().BuildList();
    list.SetCurSel(index);
    ASSERT_TRUE(program->WaitFor([&] { return !list.RowRect(index).isEmpty(); })) << "line " << index;
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, list.RowRect(index).center());
    program->Settle();
}

int BuildProgram::SelectedLine() {
    const CIDEView *view = program->ActiveView();
    if (!view) return 0;
    const auto position = [&](unsigned message) { return static_cast<uintptr_t>(view->Send(message)); };
    const uintptr_t begin = position(SCI_GETSELECTIONSTART), end = position(SCI_GETSELECTIONEND);
    const intptr_t line = view->Send(SCI_LINEFROMPOSITION, begin);
    const bool whole = view->Send(SCI_POSITIONFROMLINE, static_cast<uintptr_t>(line)) == static_cast<intptr_t>(begin) &&
                       static_cast<intptr_t>(end) >= view->Send(SCI_GETLINEENDPOSITION, static_cast<uintptr_t>(line));
    return whole ? static_cast<int>(line) + 1 : 0;
}

std::string BuildProgram::SelectedText() {
    const CIDEView *view = program->ActiveView();
    if (!view) return {};
    std::string text(static_cast<size_t>(view->Send(SCI_GETSELTEXT)) + 1, '\0');
    view->Send(SCI_GETSELTEXT, 0, reinterpret_cast<intptr_t>(text.data()));
    return text.c_str();
}

int ProcessesWith(const std::string &text) {
    int count = 0;
    std::error_code ignored;
    for (const auto &entry : fs::directory_iterator("/proc", ignored)) {
        const std::string name = entry.path().filename().string();
        if (!std::ranges::all_of(name, [](unsigned char c) { return std::isdigit(c); })) continue;
        std::ostringstream words;
        words << std::ifstream(entry.path() / "cmdline", std::ios::binary).rdbuf();
        if (Contains(words.str(), text) && name != std::to_string(getpid())) ++count;
    }
    return count;
}
