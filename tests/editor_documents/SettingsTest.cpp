// The editor's settings sheet, from the command to the open views and the next start.
#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QMenu>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include "EditorProgram.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "editor/EditorSettingsSheet.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "widgets/ColourButton.h"

namespace {

const char *const kSection = "UserColorScheme";
constexpr unsigned SCI_GETCARETFORE = 2138, SCI_STYLEGETBOLD = 2483;  // the program never asks
const char *const kText = "int f(void)\r\n{\r\n\treturn 1;\r\n}\r\nint g;\r\n";

class EditorSettings : public EditorProgram {
protected:
    // Opens the sheet, acts on it and ends it.
    void InSheet(const std::function<void(CEditorSettingsSheet &)> &act, QDialogButtonBox::StandardButton end) {
        program.AnswerDialog([&act, end](QWidget &window) {
            auto &sheet = dynamic_cast<CEditorSettingsSheet &>(window);
            act(sheet);
            sheet.findChild<QDialogButtonBox *>()->button(end)->click();
        });
        program.Command(ID_EDITOR_SETTINGS);
        EXPECT_EQ(program.AnswersLeft(), 0u);
    }
};

QCheckBox &Box(QWidget &sheet, int text) {
    for (auto *box : sheet.findChildren<QCheckBox *>())
        if (box->text() == ToQString(LoadText(text))) return *box;
    throw std::runtime_error("no such box");
}

QComboBox &Schemes(QWidget &sheet) {
    for (auto *box : sheet.findChildren<QComboBox *>())
        if (box->findText("Midnight") >= 0) return *box;
    throw std::runtime_error("no schemes");
}

void ChooseScheme(QWidget &sheet, const char *name) {
    QComboBox &schemes = Schemes(sheet);
    QTest::keyClick(&schemes, Qt::Key_Home);
    for (int steps = schemes.findText(name); steps > 0; --steps) QTest::keyClick(&schemes, Qt::Key_Down);
    EXPECT_EQ(schemes.currentText(), name);
}

QListWidget &Rows(QWidget &sheet) {
    return *sheet.findChild<QListWidget *>();
}

void ShowRow(QWidget &sheet, const char *name) {
    sheet.findChild<QTabWidget *>()->setCurrentIndex(1);
    Rows(sheet).setCurrentItem(Rows(sheet).findItems(name, Qt::MatchExactly).value(0));
}

bool WaitUntilHidden(QWidget &window) {
    return QTest::qWaitFor([&window] { return !window.isVisible(); });
}

CColourButton &Picker(QWidget &sheet, int which) {
    return *sheet.findChildren<CColourButton *>().value(which);
}

}  // namespace

TEST_F(EditorSettings, ReachTheViewsAndTheNextStart) {
    CIDEView &view = ViewOf(Open("main.c", kText));
    InSheet(
        [](CEditorSettingsSheet &sheet) {
            ChooseScheme(sheet, "Midnight");
            EXPECT_FALSE(Box(sheet, IDS_LINE_NUMBERS).isChecked());
            QTest::keyClick(&Box(sheet, IDS_LINE_NUMBERS), Qt::Key_Space);
            QTest::keyClick(&Box(sheet, IDS_SMART_INDENT), Qt::Key_Space);
            QTest::keyClick(sheet.findChildren<QSpinBox *>().value(1), Qt::Key_Up);
            ShowRow(sheet, "Word");
            QTest::keyClick(&Box(sheet, IDS_STYLE_BOLD), Qt::Key_Space);
        },
        QDialogButtonBox::Ok);
    EXPECT_EQ(view.Send(SCI_STYLEGETBACK, STYLE_DEFAULT), 0);
    EXPECT_EQ(view.Send(SCI_STYLEGETBACK, 13), 0);
    EXPECT_EQ(view.Send(SCI_GETCARETFORE), 0xFFFFFF);
    EXPECT_EQ(view.Send(SCI_GETTABWIDTH), 5);
    EXPECT_EQ(view.Send(SCI_STYLEGETBOLD, 5), 1);
    EXPECT_EQ(view.Send(SCI_GETMARGINTYPEN, 0), SC_MARGIN_NUMBER);
    EXPECT_EQ(GetUserString(kSection, "Font", ""), "Courier New");  // installed here or not
    EXPECT_EQ(GetUserInt(kSection, "SmartIndentation", 0), 1);

    ASSERT_TRUE(program.Close());
    CProgram second(scratch, {scratch.Native("main.c")});
    ASSERT_TRUE(second.Start());
    ASSERT_TRUE(second.ActiveView());
    EXPECT_EQ(second.ActiveView()->Send(SCI_STYLEGETFORE, 5), 0xFF0000);
    EXPECT_EQ(second.ActiveView()->Send(SCI_STYLEGETBOLD, 5), 1);
    EXPECT_EQ(second.ActiveView()->Send(SCI_STYLEGETBACK, STYLE_DEFAULT), 0);
}

TEST_F(EditorSettings, CancelDropsThem) {
    CIDEView &view = ViewOf(Open("main.c", kText));
    InSheet([](CEditorSettingsSheet &sheet) { ChooseScheme(sheet, "Borland"); }, QDialogButtonBox::Cancel);
    EXPECT_EQ(view.Send(SCI_STYLEGETBACK, STYLE_DEFAULT), 0xFFFFFF);
    EXPECT_FALSE(program.App().editorProperties.lineNumbers);
    EXPECT_FALSE(HasUserSection(kSection));
}

TEST_F(EditorSettings, ShowInTheSampleAtOnce) {
    InSheet(
        [](CEditorSettingsSheet &sheet) {
            const CSciWindow &sample = sheet.Sample();
            EXPECT_EQ(sample.Send(SCI_GETLEXER), SCLEX_CPP);
            EXPECT_EQ(sample.GetSelectedText(), "\"Text\";\nint i; //counter\n#ifdef ABC");
            EXPECT_EQ(sample.Send(SCI_MARKERNEXT, 0, 1), 6);
            EXPECT_EQ(sample.Send(SCI_GETREADONLY), 1);
            EXPECT_EQ(sample.Send(SCI_GETFIRSTVISIBLELINE), 0);
            QTest::keyClick(&Box(sheet, IDS_FOLDING), Qt::Key_Space);
            EXPECT_EQ(sample.Send(SCI_GETMARGINWIDTHN, 2), 0);
            ChooseScheme(sheet, "Borland");
            EXPECT_EQ(sample.Send(SCI_STYLEGETBACK, 0), 0x800000);
            EXPECT_EQ(sample.Send(SCI_MARKERNEXT, 0, 1), 6);

            // The colours by keyboard: from the row's own to the neighbours in the grid.
            ShowRow(sheet, "Comment block");
            CColourButton &text = Picker(sheet, 0);
            QTimer::singleShot(50, &text, [&text] {
                QWidget *palette = text.menu()->focusWidget();  // where a menu sends its keys
                ASSERT_TRUE(palette);
                for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Down, Qt::Key_Return}) QTest::keyClick(palette, key);
            });
            text.showMenu();
            EXPECT_TRUE(WaitUntilHidden(*text.menu()));
            EXPECT_EQ(sample.Send(SCI_STYLEGETFORE, 1), 0x008000);
        },
        QDialogButtonBox::Cancel);
}

TEST_F(EditorSettings, OwnColoursLeaveTheScheme) {
    InSheet(
        [](CEditorSettingsSheet &sheet) {
            EXPECT_EQ(Schemes(sheet).currentIndex(), -1);
            const auto click = [&](int box) { QTest::keyClick(&Box(sheet, box), Qt::Key_Space); };
            const struct {
                std::function<void()> change;
                bool leaves;
            } cases[] = {
                {[&] { click(IDS_INDENT_GUIDES); }, false},
                {[&] { click(IDS_USE_TABS); }, false},
                {[&] { click(IDS_FOLDING); }, false},
                {[&] { ShowRow(sheet, "Default"); }, false},
                {[&] { click(IDS_LINE_NUMBERS); }, true},
                {[&] { click(IDS_STYLE_ITALIC); }, true},
                {[&] { Picker(sheet, 1).onChange(0x112233); }, true},
            };
            for (const auto &c : cases) {
                ChooseScheme(sheet, "Visual C++");
                c.change();
                EXPECT_EQ(Schemes(sheet).currentIndex() < 0, c.leaves) << &c - cases;
            }
        },
        QDialogButtonBox::Cancel);
}

TEST_F(EditorSettings, EachRowHasItsControls) {
    InSheet(
        [](CEditorSettingsSheet &sheet) {
            const struct {
                const char *row;
                bool text, back, flags, noChange;
            } cases[] = {{"Comment block", true, true, true, false},
                         {"Whitespace", true, true, true, false},
                         {"Execution Line", false, true, false, false},
                         {"Selection", false, true, false, true},  // it keeps the text's colours
                         {"Caret", true, false, false, false}};
            for (const auto &c : cases) {
                ShowRow(sheet, c.row);
                EXPECT_EQ(Picker(sheet, 0).isEnabled(), c.text) << c.row;
                EXPECT_EQ(Picker(sheet, 1).isEnabled(), c.back) << c.row;
                for (const int box : {IDS_STYLE_BOLD, IDS_STYLE_ITALIC, IDS_STYLE_UNDERLINE})
                    EXPECT_EQ(Box(sheet, box).isEnabled(), c.flags) << c.row;
                EXPECT_EQ(Box(sheet, IDS_STYLE_NO_CHANGE).isEnabled(), c.noChange) << c.row;
            }
            ShowRow(sheet, "Selection");
            QTest::keyClick(&Box(sheet, IDS_STYLE_NO_CHANGE), Qt::Key_Space);
            EXPECT_TRUE(Picker(sheet, 0).isEnabled());
            ChooseScheme(sheet, "Borland");
            EXPECT_EQ(Picker(sheet, 1).Colour(), 0xC0C0C0u);  // the row follows the scheme
        },
        QDialogButtonBox::Cancel);
}

TEST_F(EditorSettings, FoldingThatGoesOffUnfolds) {
    CIDEView &view = ViewOf(Open("main.c", kText));
    const auto toggle = [](CEditorSettingsSheet &sheet) { QTest::keyClick(&Box(sheet, IDS_FOLDING), Qt::Key_Space); };
    InSheet(toggle, QDialogButtonBox::Ok);
    EXPECT_EQ(view.Send(SCI_GETMARGINWIDTHN, 2), 14);
    view.Send(SCI_COLOURISE, 0, -1);
    view.Send(SCI_TOGGLEFOLD, 1);
    ASSERT_EQ(view.Send(SCI_GETLINEVISIBLE, 2), 0);
    InSheet([](CEditorSettingsSheet &) {}, QDialogButtonBox::Ok);
    EXPECT_EQ(view.Send(SCI_GETLINEVISIBLE, 2), 0);
    InSheet(toggle, QDialogButtonBox::Ok);
    EXPECT_EQ(view.Send(SCI_GETLINEVISIBLE, 2), 1);
    EXPECT_EQ(view.Send(SCI_GETMARGINWIDTHN, 2), 0);
}

TEST(EditorSettingsStore, ThatTakesNothingStillLetsThemHold) {
    CScratch scratch;
    scratch.Write("config", "a file where the settings' directory should be");
    CProgram program(scratch);
    ASSERT_TRUE(program.Start());
    program.AnswerDialog([](QWidget &sheet) {
        ChooseScheme(sheet, "Midnight");
        sheet.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    program.Answer(IDOK);
    program.Command(ID_EDITOR_SETTINGS);
    EXPECT_EQ(program.Boxes().size(), 1u);
    EXPECT_EQ(program.App().editorProperties.styles[11].backColour, 0u);
    EXPECT_TRUE(program.Unexpected().empty());
}
