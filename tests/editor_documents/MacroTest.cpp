// Keyboard macros as the user has them.
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "EditorProgram.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "editor/UserMacros.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

class Macros : public EditorProgram {
protected:
    void Record(CIDEView &view, const char *keys) {
        program.Command(ID_MACRO_RECORD);
        QTest::keyClicks(view.Sci().Widget(), keys);
        program.Command(ID_MACRO_STOP);
    }

    void SaveAs(const char *name) {
        program.AnswerDialog([name](QWidget &window) {
            window.findChild<QLineEdit *>()->setText(name);
            qobject_cast<QDialog *>(&window)->accept();
        });
        program.Command(ID_MACRO_SAVE);
    }
};

}  // namespace

TEST_F(Macros, AreRecordedInAllViewsPausedAndPlayed) {
    CIDEView &first = ViewOf(Open("a.txt", ""));
    EXPECT_FALSE(program.IsEnabled(ID_MACRO_PLAY));
    program.Command(ID_MACRO_RECORD);
    EXPECT_TRUE(program.Frame().IsMacroBarShown());
    QTest::keyClicks(first.Sci().Widget(), "ab");
    program.Command(ID_MACRO_PAUSE);
    QTest::keyClicks(first.Sci().Widget(), "-");
    EXPECT_FALSE(program.IsEnabled(ID_MACRO_PLAY));
    program.Command(ID_MACRO_RESUME);
    CIDEView &later = ViewOf(Open("b.txt", ""));  // joins the recording
    QTest::keyClicks(later.Sci().Widget(), "c");
    QTest::keyClick(later.Sci().Widget(), Qt::Key_Home);
    program.Command(ID_MACRO_RECORD);
    EXPECT_FALSE(program.Frame().IsMacroBarShown());

    program.Command(ID_MACRO_PLAY);
    EXPECT_EQ(later.Sci().GetText(), "abcc");
    EXPECT_EQ(later.Send(SCI_GETCURRENTPOS), 0);
}

TEST_F(Macros, AreSavedUnderANamePlayedFromTheMenuAndDeleted) {
    CIDEView &view = ViewOf(Open("a.txt", ""));
    for (const char *name : {"one", "two", "three"}) {
        Record(view, name);
        SaveAs(name);
    }
    SaveAs("two");
    SaveAs("");
    EXPECT_NE(program.BuildText().find(LoadText(IDS_MACRO_NAME_EMPTY).substr(2)), std::string::npos);
    EXPECT_EQ(UserMacroCount(), 3);

    program.AnswerDialog([](QWidget &window) {
        window.findChild<QListWidget *>()->setCurrentRow(1);
        for (QPushButton *button : window.findChildren<QPushButton *>())
            if (button->text() == ToQString(LoadText(IDS_MACRO_DELETE))) button->click();
        qobject_cast<QDialog *>(&window)->accept();
    });
    program.Command(ID_MACRO_LIST);
    EXPECT_EQ(UserMacroCount(), 2);
    EXPECT_EQ(UserMacroName(1), "three");
    view.Send(SCI_CLEARALL);
    program.Command(ID_USER_MACROS + 1);
    EXPECT_EQ(view.Sci().GetText(), "three");
    EXPECT_FALSE(program.IsEnabled(ID_USER_MACROS + 2));
}

// A message that takes a buffer, a count that promises more than there is.
TEST_F(Macros, OfDamagedSettingsDoNoHarm) {
    CIDEView &view = ViewOf(Open("a.txt", "text"));
    const std::vector<CMacroCommand> steps = {
        {0, SCI_GETTEXT, 100000, ""}, {1, SCI_SELECTALL, 0, ""}, {0, SCI_ADDTEXT, 1000000, "x"}, {0, -1, -1, ""}};
    ASSERT_EQ(SaveUserMacro("odd", steps), MacroSaved::done);
    WriteUserInt("UsrMacro\\0", "Count", 2000000000);
    program.Command(ID_USER_MACROS);
    EXPECT_EQ(view.Sci().GetText(), "xtext");
}
