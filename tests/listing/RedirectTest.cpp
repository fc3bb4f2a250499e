// Commands given while the keyboard is in the listing bar.
#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QTest>

#include "ListingProgram.h"

namespace {

class Redirect : public ListingProgram {
protected:
    void SetUp() override {
        ListingProgram::SetUp();
        std::string text;
        for (int line = 0; line < 30; ++line) text += std::to_string(1000 + line) + " 0001 nop\r\n";
        scratch.Write("blink/Debug/blink.lst", text);
        Bar().LoadAll(false);
    }
    // Until posted commands have arrived.
    void Give(int command) {
        program.Command(command);
        program.Settle();
    }
    bool IsMarked(const CIDEView &view) { return view.Send(SCI_MARKERNEXT, 0, 0x1E) >= 0; }
};

}  // namespace

TEST_F(Redirect, GoesToTheListingWithADocumentAndWithout) {
    for (const bool withDocument : {true, false}) {
        SCOPED_TRACE(withDocument);
        CIDEView *source = withDocument ? &OpenSource() : nullptr;
        if (!withDocument) program.App().CloseAllDocuments();
        ASSERT_NO_FATAL_FAILURE(ShowBar());
        for (const int line : {3, 9}) {
            Listing().Send(SCI_GOTOLINE, static_cast<uintptr_t>(line));
            Give(ID_BOOKMARK_TOGGLE);
            EXPECT_TRUE(Has(line, kMarkerBookmark));
        }
        const struct {
            int command;
            intptr_t line;
        } steps[] = {
            {ID_BOOKMARK_NEXT, 3}, {ID_BOOKMARK_NEXT, 9}, {ID_BOOKMARK_PREVIOUS, 3}, {ID_BOOKMARK_PREVIOUS, 9}};
        for (const auto &step : steps) {
            Give(step.command);
            EXPECT_EQ(Listing().CaretLine(), step.line);
        }
        Give(ID_BREAKPOINT_TOGGLE);
        EXPECT_FALSE(Has(9, kMarkerBreakpoint));
        EXPECT_TRUE(program.App().breakpoints.Markers().empty());

        EXPECT_FALSE(program.IsEnabled(ID_EDIT_COPY));
        if (source) source->Send(SCI_SETSEL, 0, 2);
        EXPECT_FALSE(program.IsEnabled(ID_EDIT_COPY));
        Listing().Send(SCI_SETSEL, 0, 4);
        EXPECT_TRUE(program.IsEnabled(ID_EDIT_COPY));
        for (const int command : {ID_EDIT_CUT, ID_EDIT_PASTE}) EXPECT_FALSE(program.IsEnabled(command));
        QApplication::clipboard()->setText("before");
        Give(ID_EDIT_COPY);
        EXPECT_EQ(QApplication::clipboard()->text(), "1000");

        EXPECT_FALSE(source && IsMarked(*source));
        EXPECT_EQ(program.IsEnabled(ID_FILE_SAVE_AS), withDocument);
        Listing().Send(SCI_MARKERDELETEALL, static_cast<uintptr_t>(-1));
    }
}

TEST_F(Redirect, EndsWithTheFocusAndWithTheBar) {
    CIDEView &source = OpenSource();
    source.Send(SCI_GOTOLINE, 2);
    ASSERT_NO_FATAL_FAILURE(ShowBar());
    program.Frame().menuBar()->setFocus();  // as F10 does
    EXPECT_TRUE(Bar().HoldsFocus());

    source.setFocus();
    EXPECT_FALSE(Bar().HoldsFocus());
    Give(ID_BOOKMARK_TOGGLE);
    EXPECT_TRUE(IsMarked(source));
    EXPECT_FALSE(IsMarked(Listing()));
    EXPECT_TRUE(program.IsEnabled(ID_EDIT_PASTE) || QApplication::clipboard()->text().isEmpty());

    ASSERT_NO_FATAL_FAILURE(ShowBar());
    program.Command(ID_VIEW_LISTING_BAR);
    EXPECT_FALSE(Bar().HoldsFocus());
    Give(ID_BOOKMARK_TOGGLE);
    EXPECT_FALSE(IsMarked(source));
}

TEST_F(Redirect, KeysWriteNothingAndLeaveTheStatusOfTheSource) {
    CIDEView &source = OpenSource();
    source.Send(SCI_GOTOLINE, 4);
    program.Settle(200);
    const std::string place = program.Frame().GetStatusText(kPanePosition);
    Bar().LoadAll(false);
    if (!Bar().IsShowing()) program.Command(ID_VIEW_LISTING_BAR);
    source.setFocus();
    Bar().LoadAll(false);
    program.Settle(200);
    EXPECT_EQ(program.Frame().GetStatusText(kPanePosition), place);

    ASSERT_NO_FATAL_FAILURE(ShowBar());
    const std::string text = Text();
    program.Type("x");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
    EXPECT_EQ(Text(), text);
    EXPECT_FALSE(Listing().GetIDEDoc()->IsModified());
}
