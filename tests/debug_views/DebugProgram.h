// The program with one of the examples built and a debug run of it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "debugger/DebugBars.h"
#include "debugger/StackBar.h"
#include "debugger/StackListBox.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "editor/ViewSetup.h"
#include "framework/MessageTarget.h"
#include "support/Program.h"

class DebugProgram : public testing::Test {
protected:
    // Up to the stop at main.
    void Debug(const std::string &example) {
        scratch.CopyExample(example);
        ASSERT_TRUE(program.Start());
        ASSERT_TRUE(program.App().OpenWorkspace(scratch.Windows(example + "/" + example + ".__c").c_str(), false));
        ASSERT_TRUE(program.Build());
        Do(ID_DEBUG_START);
        ASSERT_TRUE(program.WaitFor([&] { return program.ActiveView() && !MarkedLine(*program.ActiveView()).empty(); }))
            << program.BuildText();
    }
    void TearDown() override {
        if (program.App().session.IsOpen()) program.App().session.EndAtOnce();
        for (const std::string &box : program.Unexpected()) ADD_FAILURE() << "unexpected: " << box;
    }

    // Gives a command and waits until the stop behind it is shown.
    void Do(int command) {
        program.Command(command);
        const CDebugSession &session = program.App().session;
        const auto stands = [&] { return (!session.IsOpen() || session.IsStanding()) && WaitingMessages() == 0; };
        ASSERT_TRUE(program.WaitFor(stands))
            << command;
    }

    CListingView &Listing() { return program.Frame().ListBar().ListingView(); }
    CStackBar &Stack() { return static_cast<CStackBar &>(*program.Frame().DebugBars().stack); }
    int Pc() {
        std::string text;
        return program.App().debugger.Evaluate("$pc", text, 0, nullptr) ? std::atoi(text.c_str()) : -1;
    }
    // The text of the line that has the execution mark; empty without one.
    static std::string MarkedLine(const CIDEView &view) {
        const intptr_t line = view.Send(SCI_MARKERNEXT, 0, 1 << kMarkerExecution);
        return line < 0 ? std::string() : view.Sci().GetLine(line);
    }

    CScratch scratch;
    CProgram program{scratch};
};
