// The program with the blink example open, and its listing bar.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "editor/IDEDoc.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "editor/ViewSetup.h"
#include "framework/CommandReplay.h"
#include "support/Program.h"

class ListingProgram : public testing::Test {
protected:
    void SetUp() override {
        scratch.CopyExample("blink");
        ASSERT_TRUE(program.Start());
        ASSERT_TRUE(program.App().OpenWorkspace(scratch.Windows("blink/blink.__c").c_str(), false));
    }
    void TearDown() override {
        for (const std::string &box : program.Unexpected()) ADD_FAILURE() << "unexpected: " << box;
    }

    CListBar &Bar() { return program.Frame().ListBar(); }
    CListingView &Listing() { return Bar().ListingView(); }
    std::string Text() { return Listing().Sci().GetText(); }
    std::string Path() { return Listing().GetDocument()->GetPathName(); }
    bool Has(intptr_t line, int marker) {
        return Listing().Send(SCI_MARKERGET, static_cast<uintptr_t>(line)) & (1 << marker);
    }

    // As the debugger and the user of the bar get it, with the focus in the listing.
    void ShowBar() {
        if (!Bar().IsShowing()) program.Command(ID_VIEW_LISTING_BAR);
        program.Frame().activateWindow();
        Bar().FocusContent();
        ASSERT_TRUE(program.WaitFor([&] { return Bar().HoldsFocus(); }));
    }
    CIDEView &OpenSource(const char *name = "main.asm") {
        auto *document =
            dynamic_cast<CIDEDoc *>(program.App().OpenDocumentFile(scratch.Windows(std::string("blink/") + name)));
        program.Settle();
        return *document->GetFirstCodeView();
    }
    void SelectConfig(const char *name) {
        CXTFlatComboBox &box = program.Frame().ConfigBox();
        box.SetCurSel(box.FindStringExact(name));
        program.Command(ID_CONFIG_SELECT);
    }

    CScratch scratch;
    CProgram program{scratch};
};
