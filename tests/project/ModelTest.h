// Scratch projects and workspaces, and the stand-in toolsuites.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fixtures/toolsuites/Recorder.h"
#include "support/ScratchDirectory.h"
#include "platform/SharedLibrary.h"

class ModelTest : public testing::Test {
protected:
    ModelTest();
    ~ModelTest() override;

    std::string Path(const std::string &name) const { return scratch_.Windows(name); }
    std::string Read(const std::string &name) const { return scratch_.Read(name); }
    void Write(const std::string &name, const std::string &text) const { scratch_.Write(name, text); }
    bool Exists(const std::string &name) const { return std::filesystem::exists(scratch_.Native(name)); }
    std::string Native(const std::string &name) const { return scratch_.Native(name); }

    // Writes a project of the recording toolsuite; returns its full name.
    std::string WriteProject(const std::string &name, const std::string &files = {}, const std::string &settings = {});

    RecorderState &Recorder() { return *recorder_; }

private:
    CScratchDirectory scratch_;
    CSharedLibrary library_;
    RecorderState *recorder_;
};
