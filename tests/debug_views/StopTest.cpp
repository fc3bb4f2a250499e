// What the listing and the call stack show where the target stands.
#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "DebugProgram.h"
#include "app/StringIds.h"
#include "framework/Language.h"

class Examples : public DebugProgram, public testing::WithParamInterface<const char *> {};

// The linker's own listing, an instruction at a time: words on one chip, bytes on the other.
TEST_P(Examples, ListingShowsEachInstruction) {
    ASSERT_NO_FATAL_FAILURE(Debug(GetParam()));
    if (!program.Frame().ListBar().IsShowing()) program.Command(ID_VIEW_LISTING_BAR);
    ASSERT_TRUE(program.Frame().ListBar().IsShowing());
    std::set<int> seen;
    for (int step = 0; step < 60; ++step) {
        const std::string line = MarkedLine(Listing());
        ASSERT_FALSE(line.empty()) << "no line for " << Pc() << "\n" << program.BuildText();
        EXPECT_EQ(std::strtol(line.c_str(), nullptr, 16), Pc()) << line;
        EXPECT_EQ(Listing().CaretLine(), Listing().Send(SCI_MARKERNEXT, 0, 1 << kMarkerExecution));
        seen.insert(Pc());
        ASSERT_NO_FATAL_FAILURE(Do(ID_DEBUG_STEP_INTO));
    }
    EXPECT_GT(seen.size(), 20u);
    EXPECT_EQ(program.BuildText().find(LoadText(IDS_NOT_IN_LISTING, {""})), std::string::npos);
    Do(ID_DEBUG_END);
    EXPECT_EQ(MarkedLine(Listing()), "");
}

INSTANTIATE_TEST_SUITE_P(Stop, Examples, testing::Values("blink", "greeting"));

TEST_F(DebugProgram, StackLeadsToTheCallers) {
    ASSERT_NO_FATAL_FAILURE(Debug("greeting"));
    if (!Stack().IsShowing()) program.Command(ID_VIEW_STACK_BAR);
    CStackListBox &list = Stack().List();
    EXPECT_EQ(list.GetCount(), 0);
    const auto rows = [&] {
        std::string text;
        for (int row = 0; row < list.GetCount(); ++row) text += std::string(list.GetText(row)) + " ";
        return text;
    };
    const auto stepTo = [&](const char *line) {  // by source line
        for (int step = 0; step < 20 && MarkedLine(*program.ActiveView()).find(line) == std::string::npos; ++step)
            Do(ID_DEBUG_STEP_INTO);
    };
    if (program.Frame().ListBar().IsShowing()) program.Command(ID_VIEW_LISTING_BAR);
    stepTo("BAUD_DIVIDER");
    // The call of start_serial_line and the one of serial_start in it.
    EXPECT_EQ(rows(), "0x000E 0x001C ");
    EXPECT_EQ(list.GetCurSel(), 1);
    ASSERT_EQ(program.ActiveFile(), "serial.asm");
    const CIDEView &serial = *program.ActiveView();

    list.SetCurSel(0);
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "0x000E");
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.RowRect(1).center());
    EXPECT_EQ(program.ActiveFile(), "main.asm");
    EXPECT_NE(program.ActiveView()->Sci().GetLine(program.ActiveView()->CaretLine()).find("upper text_greeting"),
              std::string::npos);
    EXPECT_NE(MarkedLine(serial).find("BAUD_DIVIDER"), std::string::npos);
    EXPECT_EQ(Listing().Sci().GetLine(Listing().CaretLine()).substr(0, 6), "00001c");
    QTest::keyClick(&list, Qt::Key_Home);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(Listing().Sci().GetLine(Listing().CaretLine()).substr(0, 6), "00000e");

    Do(ID_DEBUG_STEP_OUT);
    EXPECT_EQ(rows(), "0x000E ");
    Do(ID_DEBUG_END);
    EXPECT_FALSE(list.isVisible()) << "the rows of a run that is over";
    Stack().Refresh();
    EXPECT_EQ(rows(), LoadText(IDS_NO_STACK) + " ");
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(program.BuildLines().back(), LoadText(IDS_FRAME_NO_SOURCE, {LoadText(IDS_NO_STACK)}));
}
