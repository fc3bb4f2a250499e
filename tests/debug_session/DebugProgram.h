// The program with the blink example built, for debug runs: with the recording engine or with the real one.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "fixtures/engine/Recorder.h"
#include "platform/SharedLibrary.h"
#include "support/Program.h"
#include "support/ProgramDirectory.h"

class DebugProgram : public testing::Test {
protected:
    void TearDown() override;

    void Start(const std::string &project = "blink");  // opens and builds a copy of the example
    CDebugSession &Session() { return program->App().session; }
    bool WaitForStop() {
        const bool stands = program->WaitFor([this] { return Session().IsStanding(); });
        program->Settle();
        return stands && Session().IsStanding();
    }
    std::string ExecutionPlace();     // "main.asm:30" of the execution mark, line from 1; empty without one
    std::string Value(const std::string &name);  // of the target, "?" when it has none
    int LineOf(const std::string &file, const std::string &text);  // from 0
    bool ListHas(const std::string &text) { return program->BuildText().find(text) != std::string::npos; }
    CIDEView &Open(const std::string &file);  // of the project, in front

    CScratch scratch;
    std::string project_;
    std::unique_ptr<CProgram> program;
};

// With the recording engine in place of the real one.
class RecordedProgram : public DebugProgram {
protected:
    RecordedProgram();
    ~RecordedProgram() override;

    std::vector<std::string> TakeCalls();  // those since the last time
    void Tell(const EngineEvent &event);   // has it told, and everything done that follows
    void TellStop(int reason, int line = 0, int clk = -1);

    OwnProgramDirectory directory;
    CSharedLibrary engine;
    EngineRecorder *recorder;
};
