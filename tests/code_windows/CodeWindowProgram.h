// The program with the blink example open, and the listing bar's views on what a build leaves of its functions.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <chrono>
#include <filesystem>
#include <string>

#include "editor/CodeViewContainer.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "navigation/CallTreeView.h"
#include "navigation/FuncInfoView.h"
#include "support/Program.h"

class CodeWindowProgram : public testing::Test {
protected:
    void SetUp() override {
        scratch.CopyExample("blink");
        ASSERT_TRUE(program.Start());
        ASSERT_TRUE(program.App().OpenWorkspace(scratch.Windows("blink/blink.__c").c_str(), false));
        ASSERT_TRUE(FindView<CCallTreeView>() && FindView<CFuncInfoView>());
    }
    void TearDown() override {
        for (const std::string &box : program.Unexpected()) ADD_FAILURE() << "unexpected: " << box;
    }

    CListBar &Bar() { return program.Frame().ListBar(); }
    template <typename View>
    View *FindView() {
        for (QWidget *widget : Bar().findChildren<QWidget *>())
            if (auto *view = dynamic_cast<View *>(widget)) return view;
        return nullptr;
    }
    CTreeCtrlEx &Tree() { return FindView<CCallTreeView>()->Tree(); }
    CReportCtrl &List() { return FindView<CFuncInfoView>()->List(); }

    // Brings a view's tab to the front, with the keyboard in it.
    template <typename View>
    void Show() {
        if (!Bar().IsShowing()) program.Command(ID_VIEW_LISTING_BAR);
        Bar().Container().SetActiveTab(FindView<View>());
        program.Frame().activateWindow();
        Bar().FocusContent();
        ASSERT_TRUE(program.WaitFor([&] { return Bar().HoldsFocus(); }));
    }

    // As a build leaves it, `age` seconds ago.
    void Leave(const std::string &name, const std::string &text, int age = 0) {
        const std::string native = scratch.Write("blink/" + name, text);
        const auto now = std::filesystem::last_write_time(native);
        std::filesystem::last_write_time(native, age ? start_ - std::chrono::seconds(age) : now);
        Bar().LoadAll(false);
    }

    void KnowFunction(const std::string &name, const std::string &file, int line) {
        BrowseRecord record;
        record.name = name;
        record.file = scratch.Windows("blink/" + file);
        record.line = line;
        program.App().symbols.Maps().Functions[name] = record;
    }
    // "led.asm 12" for the line at the caret; closes the source.
    std::string TakePlace() {
        CIDEView *view = program.ActiveView();
        if (!view) return "none";
        const intptr_t position = view->Send(SCI_GETSELECTIONSTART);
        const intptr_t line = view->Send(SCI_LINEFROMPOSITION, static_cast<uintptr_t>(position));
        const std::string place = program.ActiveFile() + " " + std::to_string(line + 1);
        program.Command(ID_FILE_CLOSE);
        return place;
    }
    std::string LastLine() { return program.BuildLines().empty() ? std::string() : program.BuildLines().back(); }

    CScratch scratch;
    CProgram program{scratch};

private:
    const std::filesystem::file_time_type start_ = std::filesystem::file_time_type::clock::now();
};
