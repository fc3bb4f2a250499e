// Find and replace as the user has them: dialogs, commands, messages.
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "EditorProgram.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "editor/ViewSearch.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

class Search : public EditorProgram {
protected:
    CIDEView &OpenText(const std::string &text) { return ViewOf(Open("a.c", text)); }

    static std::string Selected(const CIDEView &view) {
        return std::to_string(view.Send(SCI_GETSELECTIONSTART)) + "-" + std::to_string(view.Send(SCI_GETSELECTIONEND));
    }

    template <class Control>
    static Control &ControlOf(QWidget &window, int text) {
        for (Control *each : window.findChildren<Control *>())
            if (each->text() == ToQString(LoadText(text))) return *each;
        throw std::runtime_error("no control " + LoadText(text));
    }

    static QComboBox &Field(QWidget &window, int index) { return *window.findChildren<QComboBox *>()[index]; }
    static void Type(QComboBox &field, const char *text) {
        field.lineEdit()->selectAll();
        QTest::keyClicks(field.lineEdit(), text);
    }
    static void Press(QWidget &window, int button) {
        QTest::keyClick(&ControlOf<QPushButton>(window, button), Qt::Key_Space);
    }

    bool HasLine(const std::string &line) { return program.BuildText().find(line + "\n") != std::string::npos; }
};

}  // namespace

TEST_F(Search, FindsByTheDialogAndOnByKey) {
    CIDEView &view = OpenText("int foo;\nint Foo;\nint foo;\n");
    program.Command(ID_EDIT_FIND_NEXT);  // no text yet
    EXPECT_EQ(Selected(view), "0-0");

    view.Send(SCI_GOTOPOS, 5);  // in the word
    program.AnswerDialog([&](QWidget &window) {
        QLineEdit *edit = Field(window, 0).lineEdit();
        EXPECT_EQ(edit->selectedText(), "foo");
        EXPECT_EQ(window.focusWidget(), &Field(window, 0));
        QTest::keyClick(&ControlOf<QCheckBox>(window, IDS_FIND_MATCH_CASE), Qt::Key_Space);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    program.Command(ID_EDIT_FIND);
    EXPECT_EQ(Selected(view), "22-25");  // behind the caret
    EXPECT_EQ(GetUserInt("Find", "MatchCase", 0), 1);
    EXPECT_EQ(program.Frame().focusWidget(), view.Sci().Widget());

    const struct {
        int command;
        const char *selected;
    } steps[] = {{ID_EDIT_FIND_NEXT, "4-7"},
                 {ID_EDIT_FIND_NEXT, "22-25"},
                 {ID_EDIT_FIND_PREVIOUS, "4-7"},
                 {ID_EDIT_FIND_PREVIOUS, "22-25"}};
    for (const auto &step : steps) {
        program.Command(step.command);
        EXPECT_EQ(Selected(view), step.selected);
    }

    view.Send(SCI_SETSEL, 0, 3);
    program.AnswerDialog([&](QWidget &window) {
        EXPECT_EQ(Field(window, 0).currentText(), "int");
        EXPECT_EQ(Field(window, 0).itemText(0), "foo");  // what was looked for before
        Type(Field(window, 0), "nowhere");
        QTest::keyClick(Field(window, 0).lineEdit(), Qt::Key_Return);
    });
    program.Command(ID_EDIT_FIND);
    EXPECT_EQ(Selected(view), "0-3");
    EXPECT_TRUE(HasLine("Not found: 'nowhere'"));

    program.AnswerDialog([](QWidget &window) {
        Type(Field(window, 0), "kept back");
        ControlOf<QCheckBox>(window, IDS_FIND_REG_EXPR).setChecked(true);
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    program.Command(ID_EDIT_FIND);
    EXPECT_EQ(GetUserInt("Find", "RegExpr", 0), 0);
    EXPECT_EQ(program.App().find.text, "nowhere");
}

TEST_F(Search, ReplacesManyTimesInOneDialog) {
    CIDEView &view = OpenText("one foo\r\ntwo foo foo\r\nthree Foo\r\n");
    view.Send(SCI_SETSEL, 13, 16);  // the first of line 2
    program.AnswerDialog([&](QWidget &window) {
        const auto text = [&] { return view.Sci().GetText(); };
        Type(Field(window, 1), "number");
        Press(window, IDS_REPLACE_ONE);
        EXPECT_EQ(text(), "one foo\r\ntwo number foo\r\nthree Foo\r\n");
        EXPECT_EQ(Selected(view), "20-23");
        Press(window, IDS_FIND_NEXT);
        EXPECT_EQ(Selected(view), "31-34");
        Press(window, IDS_REPLACE_ONE);  // "Foo" isn't "foo": only goes on
        EXPECT_EQ(Selected(view), "4-7");
        EXPECT_TRUE(window.isVisible());

        view.Send(SCI_SETSEL, 29, 32);
        const int undone = view.Send(SCI_GETTEXTLENGTH);
        Press(window, IDS_REPLACE_ALL);
        EXPECT_EQ(text(), "one number\r\ntwo number number\r\nthree number\r\n");
        EXPECT_EQ(program.Frame().GetStatusText(kPaneHelp), "Replacements made: 3");
        EXPECT_EQ(view.CaretLine(), 2);  // where the selection was, by its line
        EXPECT_EQ(view.Send(SCI_GETSELECTIONEND) - view.Send(SCI_GETSELECTIONSTART), 3);
        view.Send(SCI_UNDO);
        EXPECT_EQ(view.Send(SCI_GETTEXTLENGTH), undone);

        Type(Field(window, 0), "nowhere");
        Press(window, IDS_REPLACE_ALL);
        EXPECT_EQ(program.Frame().GetStatusText(kPaneHelp), "Not found: 'nowhere'");
        Press(window, IDS_FIND_NEXT);
        EXPECT_EQ(program.Frame().GetStatusText(kPaneHelp), LoadText(IDS_SEARCH_READY));
        Type(Field(window, 0), "[o");
        ControlOf<QCheckBox>(window, IDS_FIND_REG_EXPR).setChecked(true);
        Press(window, IDS_REPLACE_ALL);
        EXPECT_EQ(program.Frame().GetStatusText(kPaneHelp), "Not a regular expression: '[o'");

        Type(Field(window, 0), "o");
        ControlOf<QRadioButton>(window, IDS_FIND_UP).setChecked(true);
        view.Send(SCI_SETREADONLY, 1);
        const std::string before = text();
        Press(window, IDS_REPLACE_ALL);
        EXPECT_EQ(program.Frame().GetStatusText(kPaneHelp), LoadText(IDS_REPLACE_READ_ONLY));
        view.Send(SCI_SETSEL, 0, 1);
        Press(window, IDS_REPLACE_ONE);
        EXPECT_EQ(text(), before);
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    program.Command(ID_EDIT_REPLACE);
    EXPECT_EQ(GetUserInt("Find", "Direction", 1), 0);
    EXPECT_EQ(program.App().find.replaceHistory.Texts().size(), 1u);
}

TEST_F(Search, OpensFoldsAndGoesSideways) {
    CIDEView &view = OpenText("void f() {\r\n\t" + std::string(600, 'x') + "needle\r\n}\r\n");
    view.Send(SCI_COLOURISE, 0, -1);
    view.Send(SCI_TOGGLEFOLD, 0);
    ASSERT_FALSE(view.Send(SCI_GETLINEVISIBLE, 1));
    intptr_t position = kFindFromStart;
    EXPECT_TRUE(FindInView("needle", view, &position));
    EXPECT_EQ(position, 613);
    EXPECT_TRUE(view.Send(SCI_GETLINEVISIBLE, 1));
    const intptr_t x = view.Send(SCI_POINTXFROMPOSITION, 0, position);
    EXPECT_GE(x, 0);
    EXPECT_LT(x, view.width());
}

TEST_F(Search, CountsHitsFromTheStart) {
    CIDEView &view = OpenText("foo foofoo foo");
    view.Send(SCI_SETSEL, 5, 6);
    intptr_t position = kFindFromStart;
    for (const intptr_t hit : {0, 4, 7, 11, 0}) {
        EXPECT_TRUE(FindInView("foo", view, &position));
        EXPECT_EQ(position, hit);
    }
    EXPECT_FALSE(FindInView("bar", view, &position));
    EXPECT_EQ(position, -1);
}

// Undoing them one notification at a time takes minutes.
TEST_F(Search, UndoesManyReplacementsAtOnce) {
    std::string text;
    for (int line = 0; line < 50000; ++line) text += "unsigned foo;\r\n";
    CIDEView &view = OpenText(text);
    program.App().find.text = "foo";
    EXPECT_EQ(ReplaceAll(view, "number"), 50000);
    EXPECT_TRUE(HasStar(view.GetIDEDoc()));
    program.Command(ID_EDIT_UNDO);
    EXPECT_EQ(view.Sci().GetText(), text);
    EXPECT_FALSE(HasStar(view.GetIDEDoc()));
}
