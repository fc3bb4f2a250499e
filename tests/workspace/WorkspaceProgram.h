// The program with two examples beside it.
#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>

#include "framework/Text.h"
#include "support/Program.h"

class WorkspaceProgram : public testing::Test {
protected:
    void SetUp() override {
        scratch.CopyExample("blink");
        scratch.CopyExample("greeting");
        ASSERT_TRUE(program.Start());
    }
    void TearDown() override {
        EXPECT_TRUE(program.Unexpected().empty()) << program.Unexpected().front();
        EXPECT_EQ(program.AnswersLeft(), 0u);
    }

    bool Open(const std::string &name, bool multiple = false) {
        return program.App().OpenWorkspace(scratch.Windows(name).c_str(), multiple);
    }
    bool OpenBoth() {
        scratch.Write("all.__w", "[Workspace]\nCount=2\nProj0=blink\\blink.__c\nProj1=greeting\\greeting.__c\n");
        return Open("all.__w", true);
    }

    // Types the name over the one that the dialog offers, which loses its selection in the list by that.
    void PickFile(const std::string &name) {
        const QString path = ToQString(scratch.Native(name));
        program.AnswerDialog([path](QWidget &dialog) {
            auto *edit = dialog.findChild<QLineEdit *>("fileNameEdit");
            ASSERT_NE(edit, nullptr);
            edit->setText(path);
            Q_EMIT edit->textEdited(path);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }

    CScratch scratch;
    CProgram program{scratch};
};
