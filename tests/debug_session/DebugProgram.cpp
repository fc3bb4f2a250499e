#include "DebugProgram.h"

#include "app/Path.h"
#include "editor/IDEDoc.h"

#include "editor/IDEView.h"
#include "framework/MessageTarget.h"
#include "platform/NativePath.h"

void DebugProgram::TearDown() {
    if (!program) return;
    EXPECT_EQ(program->Unexpected(), std::vector<std::string>());
    program.reset();
}

void DebugProgram::Start(const std::string &project) {
    project_ = project;
    scratch.CopyExample(project);
    program = std::make_unique<CProgram>(scratch, std::vector{scratch.Native(project + "/" + project + ".__c")});
    ASSERT_TRUE(program->Start());
    ASSERT_TRUE(program->Build());
    ASSERT_TRUE(scratch.Exists(project + "/Debug/" + project + ".cof")) << program->BuildText();
    ASSERT_TRUE(program->WaitFor([this] { return program->Frame().ArePluginsReady(); }));
}

std::string DebugProgram::ExecutionPlace() {
    std::string place;
    for (CDocument *each : program->App().GetDocuments()) {
        const auto *document = dynamic_cast<CIDEDoc *>(each);
        if (!document) continue;
        for (const CIDEView *view : document->GetCodeViews())
            if (const intptr_t line = view->Send(SCI_MARKERNEXT, 0, 1); line >= 0)
                place += (place.empty() ? "" : " ") + CPath(document->GetPathName()).GetFileName() + ":" +
                         std::to_string(line + 1);
    }
    return place;
}

std::string DebugProgram::Value(const std::string &name) {
    std::string text;
    return program->App().debugger.Evaluate(name, text, 0, nullptr) ? text : "?";
}

int DebugProgram::LineOf(const std::string &file, const std::string &text) {
    const std::string source = scratch.Read(project_ + "/" + file);
    return static_cast<int>(std::count(source.begin(), source.begin() + static_cast<long>(source.find(text)), '\n'));
}

CIDEView &DebugProgram::Open(const std::string &file) {
    const std::string path = FromNativePath(scratch.Native(project_ + "/" + file));
    auto *document = dynamic_cast<CIDEDoc *>(program->App().OpenDocumentFile(path));
    EXPECT_NE(document, nullptr);
    return *document->GetFirstCodeView();
}

RecordedProgram::RecordedProgram()
    : directory(scratch, {"debugger.dll", "dbgpars.dll"}),
      engine(FromNativePath(std::string(ENGINE_MODULES) + "/debugger.dll")),
      recorder(engine.Get<EngineGetRecorderFn>("engineRecorder")()) {
    for (const char *module : {"debugger.dll", "dbgpars.dll"})
        directory.Add(std::filesystem::path(ENGINE_MODULES) / module);
}

RecordedProgram::~RecordedProgram() {
    program.reset();
}

std::vector<std::string> RecordedProgram::TakeCalls() {
    const std::lock_guard guard(recorder->lock);
    return std::exchange(recorder->calls, {});
}

void RecordedProgram::Tell(const EngineEvent &event) {
    engine.Get<EngineTellFn>("engineTell")(event);
    const auto isTold = [this] {
        const std::lock_guard guard(recorder->lock);
        return recorder->eventsToTell == 0;
    };
    EXPECT_TRUE(program->WaitFor([&] { return isTold() && WaitingMessages() == 0; }));
    program->Settle(30);
}

void RecordedProgram::TellStop(int reason, int line, int clk) {
    EngineEvent event{reason, line, "", clk};
    if (line > 0) event.file = FromNativePath(scratch.Native(project_ + "/main.asm"));
    Tell(event);
}
