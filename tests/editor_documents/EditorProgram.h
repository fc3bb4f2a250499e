// The program, started without a project, with files of a scratch directory to edit.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "support/Program.h"

class EditorProgram : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }
    void TearDown() override {
        for (const std::string &box : program.Unexpected()) ADD_FAILURE() << "unexpected: " << box;
        EXPECT_EQ(program.AnswersLeft(), 0u);
    }

    CIDEDoc *Open(const std::string &name) {
        auto *document = dynamic_cast<CIDEDoc *>(program.App().OpenDocumentFile(scratch.Windows(name)));
        program.Settle();
        return document;
    }
    CIDEDoc *Open(const std::string &name, const std::string &text) {
        scratch.Write(name, text);
        return Open(name);
    }
    static CIDEView &ViewOf(CIDEDoc *document) { return *document->GetFirstCodeView(); }

    static bool HasStar(const CIDEDoc *document) { return document->GetTitle().ends_with(" *"); }

    CScratch scratch;
    CProgram program{scratch};
};
