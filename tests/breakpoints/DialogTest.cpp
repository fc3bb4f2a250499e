// The two dialogs, without a run.
#include <QLineEdit>
#include <QListWidget>
#include <QSpinBox>
#include <QTest>

#include "breakpoints/BreakpointProgram.h"
#include "framework/Text.h"

TEST_F(Breakpoints, ActThroughTheirDialogs) {
    CIDEDoc *a = Open("a.c", "0\n1\n2\n3\n");
    ASSERT_TRUE(a);
    for (const int line : {3, 1}) Toggle(a, line);
    scratch.Write("b.c", "0\n1\n2\n");
    List().Add(scratch.Windows("b.c"), 2, 0);
    List().Add(scratch.Windows("gone.c"), 4, 0);
    Props("a.c", 3).useHit = 1;
    GoTo(a, 3);

    const auto rows = [](const QWidget &window) {
        const auto *list = window.findChild<QListWidget *>();
        std::string text;
        for (int i = 0; i < list->count(); ++i) text += FromQString(list->item(i)->text()) + '|';
        return text;
    };
    program.AnswerDialog([&](QWidget &window) {
        EXPECT_EQ(rows(window), "a.c:1|a.c:3 (hit)|b.c:2|gone.c:4|");
        EXPECT_EQ(window.findChild<QListWidget *>()->currentRow(), 1) << "the one at the caret";
        ClickLater(window, "Properties...");
    });
    program.AnswerDialog([](QWidget &window) {
        EXPECT_FALSE(ButtonOf(window, "Reset Count")->isEnabled());
        ButtonOf(window, "Condition:")->setChecked(true);
        EXPECT_FALSE(ButtonOf(window, "OK")->isEnabled()) << "a condition is missing";
        window.findChild<QLineEdit *>("condition")->setText(" x > 1 ");
        ButtonOf(window, "Stop when its value has changed")->click();
        window.findChild<QSpinBox *>()->setValue(12);
        ButtonOf(window, "Stop at each multiple of it")->click();
        ButtonOf(window, "OK")->click();
    });
    program.AnswerDialog([&](QWidget &window) {
        EXPECT_EQ(rows(window), "a.c:1|a.c:3 (hit,cond)|b.c:2|gone.c:4|");
        auto *list = window.findChild<QListWidget *>();
        list->setCurrentRow(2);
        QTest::keyClick(list, Qt::Key_Return);  // goes to it
        EXPECT_EQ(program.ActiveFile(), "b.c");
        EXPECT_EQ(program.ActiveView()->CaretLine(), 2);
        list->setCurrentRow(0);
        QTest::keyClick(list, Qt::Key_Delete);
        EXPECT_EQ(rows(window), "a.c:3 (hit,cond)|b.c:2|gone.c:4|");
        list->setCurrentRow(2);
        ClickLater(window, "Go To");  // the file is gone
    });
    program.Answer(IDOK);
    program.AnswerDialog([&](QWidget &window) {
        List().Remove(scratch.Windows("gone.c").c_str(), 4);
        ClickLater(window, "Remove");  // there is none any more: that ends the dialog
    });
    program.Answer(IDOK);
    program.Command(ID_BREAKPOINTS);
    const std::vector<std::string> boxes = {"The file " + scratch.Native("gone.c") + " can't be read.",
                                            "This breakpoint isn't there any more."};
    EXPECT_EQ(program.Boxes(), boxes);
    const CBreakpointProps &props = Props("a.c", 3);
    EXPECT_EQ(Listed("a.c"), "3(x > 1) ");
    EXPECT_EQ(Marked(a), "3 ");
    EXPECT_TRUE(props.useCond == 1 && props.condMode == 1 && props.useHit == 1 && props.hitVal == 12 &&
                props.hitMode == 2);

    program.AnswerDialog([](QWidget &window) {
        ButtonOf(window, "Remove All")->click();
        EXPECT_FALSE(ButtonOf(window, "Go To")->isEnabled());
        window.close();
    });
    program.Command(ID_BREAKPOINTS);
    EXPECT_TRUE(List().Markers().empty());
    EXPECT_EQ(Marked(a) + Marked(program.ActiveDocument()), "");
}
