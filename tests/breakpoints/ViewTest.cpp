// Breakpoints and the pop-up menu of source text, without a debug run.
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

#include "breakpoints/BreakpointProgram.h"
#include "framework/Text.h"

TEST_F(Breakpoints, FollowTheTextAndTheName) {
    CIDEDoc *document = Open("a.c", "0\n1\n2\n3\n4\n5\n");
    ASSERT_TRUE(document);
    Toggle(document, 2);
    Toggle(document, 4);
    EXPECT_EQ(Marked(document), "2 4 ");
    EXPECT_EQ(Listed("a.c"), "2 4 ");
    ViewOf(document).SendText(SCI_INSERTTEXT, 0, "new\n");
    EXPECT_EQ(Listed("a.c"), "3 5 ");
    Toggle(document, 3);
    EXPECT_EQ(Marked(document), "5 ");
    EXPECT_EQ(Listed("a.c"), "5 ");

    ASSERT_TRUE(document->DoSave(scratch.Windows("b.c")));
    EXPECT_EQ(Listed("a.c"), "5 ");
    EXPECT_EQ(Listed("b.c"), "5 ");
    Toggle(document, 5);
    EXPECT_EQ(Marked(document) + Listed("b.c"), "");

    // The second state is the list's own; both marks come back with the file.
    program.App().breakpoints.Add(scratch.Windows("c.c"), 1, true);
    program.App().breakpoints.Add(scratch.Windows("c.c"), 0, false);
    CIDEDoc *other = Open("c.c", "0\n1\n");
    ASSERT_TRUE(other);
    EXPECT_EQ(Marked(other), "0 ");
    EXPECT_EQ(Marked(other, kMarkerBreakpointSecond), "1 ");
    Toggle(other, 1);
    EXPECT_EQ(Listed("c.c") + Marked(other, kMarkerBreakpointSecond), "0 ");
}

TEST_F(Breakpoints, TellWhatDoesNotFit) {
    CIDEDoc *document = Open("a.c", "0\n1\n");
    ASSERT_TRUE(document);
    CIDEView &view = ViewOf(document);
    view.OnDebugToggleBreakpoint(-1, kToggleBreakpoint);
    EXPECT_TRUE(program.App().breakpoints.Markers().empty());
    program.Answer(IDOK);
    view.OnDebugToggleBreakpoint(1, kPlaceBreakpoint);
    program.Answer(IDOK);
    view.OnDebugToggleBreakpoint(1, kRemoveBreakpoint);
    const std::vector<std::string> expected = {"Internal error #2 in CIDEView::OnDebugToggleBreakpoint",
                                               "Internal error #1 in CIDEView::OnDebugToggleBreakpoint"};
    EXPECT_EQ(program.Boxes(), expected);

    program.Command(ID_FILE_NEW);
    EXPECT_FALSE(program.IsEnabled(ID_BREAKPOINT_TOGGLE));
}

TEST_F(Breakpoints, CanBeToggledInTheMenuOfALine) {
    scratch.Write("a.h", "");
    CIDEDoc *document = Open("a.c", "0\n1\n2\n3\n");
    ASSERT_TRUE(document);
    QWidget *sci = ViewOf(document).Sci().Widget();
    const auto open = [&](intptr_t line, const std::string &entry) {
        const intptr_t at = ViewOf(document).Send(SCI_POSITIONFROMLINE, static_cast<uintptr_t>(line));
        const QPoint point(static_cast<int>(ViewOf(document).Send(SCI_POINTXFROMPOSITION, 0, at)) + 2,
                           static_cast<int>(ViewOf(document).Send(SCI_POINTYFROMPOSITION, 0, at)) + 2);
        bool seen = false;
        QTimer::singleShot(0, [&] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu) return;
            for (QAction *action : menu->actions()) {
                if (FromQString(action->text().remove('&').section('\t', 0, 0)) != entry) continue;
                seen = action->isEnabled();
                if (seen) action->trigger();
            }
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, sci->mapToGlobal(point));
        QApplication::sendEvent(sci, &event);
        program.Settle();
        return seen;
    };
    EXPECT_TRUE(open(2, "Toggle Breakpoint in Line 3"));
    EXPECT_FALSE(open(1, "Breakpoint Properties..."));
    program.AnswerDialog([](QWidget &window) { window.close(); });
    EXPECT_TRUE(open(2, "Breakpoint Properties..."));
    EXPECT_EQ(Listed("a.c"), "2 ");
    EXPECT_FALSE(open(1, "Cut"));  // nothing is selected
    EXPECT_TRUE(open(1, "Select All"));
    EXPECT_TRUE(open(3, "Cut"));  // the pointer is in the selection, which stays
    EXPECT_EQ(document->GetText(), "");
    EXPECT_TRUE(open(0, "Open a.h"));
    EXPECT_EQ(program.ActiveFile(), "a.h");
}
