// What the code view shows and how its commands move in the text.
#include <QDialog>
#include <QSpinBox>

#include "EditorProgram.h"
#include "editor/ViewSetup.h"

namespace {

std::string Lines(int count) {
    std::string text;
    for (int line = 0; line < count; ++line) text += "int i" + std::to_string(line) + ";\n";
    return text;
}

}  // namespace

TEST_F(EditorProgram, ShowsALineNearTheMiddle) {
    CIDEDoc *document = Open("a.c", Lines(500));
    ASSERT_TRUE(document);
    CIDEView &view = ViewOf(document);
    for (const intptr_t line : {0, 200, 203, 499, 10}) {
        view.ShowViewLine(line, true);
        program.Settle();
        const intptr_t first = view.Send(SCI_GETFIRSTVISIBLELINE), count = view.Send(SCI_LINESONSCREEN);
        EXPECT_GE(line, first) << line;
        EXPECT_LT(line, first + count) << line;
        if (line == 200) {
            EXPECT_NEAR(static_cast<double>(line - first), static_cast<double>(count) / 2, 1.5);
        }
        EXPECT_EQ(view.Sci().GetSelectedText(), "int i" + std::to_string(line) + ";");
    }
    view.Send(SCI_SETSEL, 3, 9);
    view.ShowViewLine(300, false);
    EXPECT_EQ(view.Send(SCI_GETSELECTIONSTART), 3);
    EXPECT_EQ(view.Send(SCI_GETSELECTIONEND), 9);
}

TEST_F(EditorProgram, TellsTheCaretsPlace) {
    CIDEDoc *document = Open("a.c", "a\tb\nsecond\n");
    ASSERT_TRUE(document);
    const struct {
        uintptr_t position;
        const char *text;
    } cases[] = {{0, "Ln 1, Col 0"}, {2, "Ln 1, Col 4"}, {6, "Ln 2, Col 2"}};
    for (const auto &c : cases) {
        ViewOf(document).Send(SCI_GOTOPOS, c.position);
        program.Settle(150);
        EXPECT_EQ(program.Frame().GetStatusText(kPanePosition), c.text);
    }
}

TEST_F(EditorProgram, GoesRoundTheBookmarks) {
    CIDEDoc *document = Open("a.c", Lines(20));
    ASSERT_TRUE(document);
    CIDEView &view = ViewOf(document);
    for (const uintptr_t line : {2, 7}) {
        view.Send(SCI_GOTOLINE, line);
        program.Command(ID_BOOKMARK_TOGGLE);
    }
    const struct {
        int command;
        intptr_t line;
    } steps[] = {{ID_BOOKMARK_NEXT, 2}, {ID_BOOKMARK_NEXT, 7}, {ID_BOOKMARK_PREVIOUS, 2}, {ID_BOOKMARK_PREVIOUS, 7}};
    for (const auto &step : steps) {
        program.Command(step.command);
        EXPECT_EQ(view.CaretLine(), step.line);
    }
    program.Command(ID_BOOKMARK_TOGGLE);  // off
    program.Command(ID_BOOKMARK_NEXT);
    view.Send(SCI_SETSEL, static_cast<uintptr_t>(view.Send(SCI_GETCURRENTPOS)) + 3, view.Send(SCI_GETCURRENTPOS) + 3);
    const intptr_t caret = view.Send(SCI_GETCURRENTPOS);
    program.Command(ID_BOOKMARK_NEXT);  // the only one, on this line
    EXPECT_EQ(view.Send(SCI_GETCURRENTPOS), caret);
    program.Command(ID_BOOKMARK_CLEAR);
    EXPECT_EQ(view.Send(SCI_MARKERNEXT, 0, 1 << kMarkerBookmark), -1);
}

TEST_F(EditorProgram, KeepsMarksOfAClosedFile) {
    CIDEDoc *document = Open("a.c", Lines(20));
    ASSERT_TRUE(document);
    ViewOf(document).Send(SCI_GOTOLINE, 5);
    program.Command(ID_BOOKMARK_TOGGLE);
    document->OnCloseDocument();
    program.Settle();
    document = Open("a.c");
    ASSERT_TRUE(document);
    EXPECT_EQ(ViewOf(document).Send(SCI_MARKERNEXT, 0, 1 << kMarkerBookmark), 5);
}

TEST_F(EditorProgram, GoesToALineAskedFor) {
    CIDEDoc *document = Open("a.c", Lines(30));
    ASSERT_TRUE(document);
    ViewOf(document).Send(SCI_GOTOLINE, 4);
    program.AnswerDialog([](QWidget &window) {
        auto *spin = window.findChild<QSpinBox *>();
        ASSERT_TRUE(spin);
        EXPECT_EQ(spin->value(), 5);
        EXPECT_EQ(spin->maximum(), 31);
        spin->setValue(21);
        static_cast<QDialog &>(window).accept();
    });
    program.Command(ID_GOTO_LINE);
    EXPECT_EQ(ViewOf(document).Sci().GetSelectedText(), "int i20;");
}

TEST_F(EditorProgram, FindsBracesAndTheLastEdit) {
    CIDEDoc *document = Open("a.c", "f(a[1], (b))\n)" + Lines(300));
    ASSERT_TRUE(document);
    CIDEView &view = ViewOf(document);
    view.Send(SCI_GOTOPOS, 2);
    program.Type("z");  // f(za[1], (b))
    view.Send(SCI_GOTOPOS, 1);
    program.Command(ID_MATCH_BRACE);
    EXPECT_EQ(view.Send(SCI_GETCURRENTPOS), 12);
    view.Send(SCI_GOTOPOS, 14);  // without a partner
    program.Command(ID_MATCH_BRACE);
    EXPECT_EQ(view.Send(SCI_GETCURRENTPOS), 14);
    view.ShowViewLine(250, false);
    program.Command(ID_LAST_EDIT);
    EXPECT_EQ(view.CaretLine(), 0);
    EXPECT_EQ(view.Send(SCI_GETFIRSTVISIBLELINE), 0);
}

TEST_F(EditorProgram, FindsFunctionsAfterEditsAndWithoutMarks) {
    CIDEDoc *document = Open("a.c", Lines(50));
    ASSERT_TRUE(document);
    CIDEView &view = ViewOf(document);
    CFunctionData function;
    function.name = "i10";
    function.line = 11;
    function.SetMark(&view, view.Send(SCI_MARKERADD, 10, kMarkerFunction));
    document->functions.push_back(function);
    view.SendText(SCI_INSERTTEXT, 0, "// one\n// two\n");
    program.Command(36000);
    EXPECT_EQ(view.Sci().GetSelectedText(), "int i10;");

    document->functions[0].DropMark(&view);
    program.Command(36000);
    EXPECT_EQ(view.CaretLine(), 10);
    program.Command(36001);  // no such function
    EXPECT_EQ(view.CaretLine(), 10);
}

TEST_F(EditorProgram, OpensTheCounterpart) {
    scratch.Write("a.h", "");
    ASSERT_TRUE(Open("a.c", "\n"));
    program.Command(ID_OPEN_COUNTERPART);
    EXPECT_EQ(program.ActiveFile(), "a.h");
    program.Command(ID_OPEN_COUNTERPART);
    EXPECT_EQ(program.ActiveFile(), "a.c");
}
