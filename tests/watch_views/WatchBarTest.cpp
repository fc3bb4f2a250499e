// The watch bar over the engine and a built example.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>

#include "app/StringIds.h"
#include "debug_views/DebugProgram.h"
#include "debugger/ValueFormat.h"
#include "debugger/WatchBar.h"
#include "debugger/WatchItem.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "platform/Profile.h"
#include "widgets/PropTree.h"

namespace {

class WatchBar : public DebugProgram {
protected:
    CWatchBar &Bar() { return static_cast<CWatchBar &>(*program.Frame().DebugBars().watch); }
    CPropTree &Tree() { return Bar().Tree(); }
    CWatchItem &Row(size_t place) { return static_cast<CWatchItem &>(*Tree().Items()[place]); }
    std::string Rows() {
        std::string text;
        for (const auto &row : Tree().Items()) text += row->Label() + "=" + row->Value() + ";";
        return text;
    }
    // As the user types over the value of a row.
    void TypeOver(size_t place, const QString &text, Qt::Key end = Qt::Key_Return) {
        Tree().setFocus();
        Tree().SelectItem(Tree().Items()[place].get());
        QTest::keyClick(&Tree(), Qt::Key_F2);
        auto *const editor = Tree().viewport()->findChild<QLineEdit *>();
        ASSERT_TRUE(editor) << Row(place).Label();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, end);
        program.Settle(5);
    }
    int Read(const std::string &name) {
        std::string text;
        return program.App().debugger.Evaluate(name, text, 0, nullptr) ? std::atoi(text.c_str()) : -1;
    }
    bool Says(int text, const std::string &name = {}) {
        return program.BuildText().find(LoadText(text, {name}).substr(4)) != std::string::npos;
    }
    void EndRun() {
        program.Command(ID_DEBUG_END);
        ASSERT_TRUE(program.WaitFor([&] { return !program.App().session.IsOpen(); }));
    }
    void Drop(const QString &text) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(Tree().viewport(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {}, QEvent::Drop);
        QApplication::sendEvent(Tree().viewport(), &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    }
    // Answers the dialog, which shows `shown`, with `typed`.
    void AnswerWatch(const std::string &shown, const QString &typed) {
        program.AnswerDialog([=](QWidget &dialog) {
            auto *const box = dialog.findChild<QComboBox *>();
            EXPECT_EQ(FromQString(box->currentText()), shown);
            EXPECT_GE(box->findText("ticks_left"), 0);
            box->setEditText(typed);
            static_cast<QDialog &>(dialog).accept();
        });
    }
    std::string Stored(const char *key) {
        return ReadProfileString("Watch", key, "none", scratch.Windows("blink/blink.__c"));
    }
};

}  // namespace

TEST_F(WatchBar, ValuesAreTypedOverAndTheTargetHasThem) {
    Debug("blink");
    Bar().AddWatch("  ticks_left ");
    Bar().AddWatch("$PORTB");
    Bar().AddWatch("$38");
    Bar().AddWatch("ticks_left + 1");
    TypeOver(0, "65");
    EXPECT_EQ(Read("ticks_left"), 65);
    EXPECT_EQ(Row(0).Value(), "65 'A'");
    EXPECT_EQ(Row(0).Look(), PropLook::changed);
    EXPECT_EQ(Row(3).Value(), "66 'B'");
    TypeOver(0, "7", Qt::Key_Escape);
    EXPECT_EQ(Read("ticks_left"), 65);
    Row(0).SetFormat(kHexadecimal);
    EXPECT_EQ(Row(0).Value(), "0x41 'A'");
    TypeOver(0, "0x1G");
    EXPECT_EQ(Read("ticks_left"), 1);
    EXPECT_TRUE(Says(IDS_NOT_HEXADECIMAL));
    TypeOver(0, "0x");
    for (const char *wide : {"0x1FFFFFFFFF", "0x10000000000000001", "0x102"}) TypeOver(0, wide);
    EXPECT_EQ(Read("ticks_left"), 1);
    EXPECT_TRUE(Says(IDS_WATCH_NOT_SET, "ticks_left"));
    EXPECT_EQ(Row(0).Value(), "0x1 'SOH'");
    const std::string byte = Row(2).Value();
    TypeOver(2, "300");
    EXPECT_EQ(Row(2).Value(), byte);
    EXPECT_TRUE(Says(IDS_WATCH_NOT_SET, "$38"));
    TypeOver(3, "9");
    EXPECT_EQ(Row(3).Value(), "2 'STX'");
    const std::string why = program.App().debugger.ErrorText();
    EXPECT_NE(why, "");
    EXPECT_NE(program.BuildText().find(LoadText(IDS_WATCH_NOT_SET, {"ticks_left + 1"}).substr(4) + " " + why),
              std::string::npos);

    TypeOver(1, "1");
    program.App().debugger.SetValue("ticks_left", 3);
    Bar().AddWatch("$STATUS");
    EXPECT_EQ(Row(1).Look(), PropLook::changed);  // at this stop, however often it is read
    Do(ID_DEBUG_STEP_INTO);
    Do(ID_DEBUG_STEP_INTO);
    EXPECT_EQ(Row(1).Look(), PropLook::normal);
    EXPECT_EQ(Row(0).Value(), "0x3 'ETX'");

    Tree().selectAll();
    Tree().setFocus();
    program.Command(ID_EDIT_COPY);  // what the bar with the keyboard shows, not the source
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("ticks_left\t0x3 'ETX'\n$PORTB\t"));
}

// With Ctrl held, text under the pointer is watched without a question, and formats are for all rows.
TEST_F(WatchBar, DoesMoreWithCtrlHeld) {
    Debug("blink");
    CIDEView &view = *program.ActiveView();
    view.Send(SCI_GOTOPOS, view.Sci().GetText().find("ticks_left") + 1);
    QTimer::singleShot(100, &view, [] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        const QString wanted = ToQString(LoadText(IDS_MENU_ADD_WATCH, {"ticks_left"}));
        QTest::keyPress(menu, Qt::Key_Control, Qt::ControlModifier);
        for (QAction *entry : menu->actions())
            if (entry->text() == wanted) entry->trigger();
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&view, &event);
    EXPECT_TRUE(Rows().starts_with("ticks_left=")) << Rows();
    Bar().AddWatch("$STATUS");
    EXPECT_EQ(Tree().SelectedItems().size(), 1u);
    Tree().setCurrentIndex({});
    program.Command(ID_WATCH_FORMAT_FIRST + int{kOctal});
    QTest::keyRelease(&Tree(), Qt::Key_Control);
    EXPECT_EQ(Row(0).Format(), kOctal);
    EXPECT_EQ(Row(1).Format(), kOctal);
}

TEST_F(WatchBar, TakesExpressionsFromSourceDialogAndDropAndKeepsThem) {
    Debug("blink");
    const std::string nonsense(2000, 'x');
    CIDEView &view = *program.ActiveView();
    const std::string text = view.Sci().GetText();
    const auto at = text.find("ticks_left");
    view.Send(SCI_SETSEL, at, static_cast<intptr_t>(at + 2));
    AnswerWatch("ti", "ticks_left");
    program.Command(ID_WATCH_AT_CARET);
    view.Send(SCI_GOTOPOS, at + 3);
    AnswerWatch("ticks_left", ToQString(nonsense));
    program.Command(ID_WATCH_AT_CARET);
    Drop(" a == b \r\nsecond");
    Drop("\nsecond");
    EXPECT_EQ(program.AnswersLeft(), 0u);
    ASSERT_EQ(Tree().Items().size(), 3u) << Rows();
    EXPECT_EQ(Row(1).Look(), PropLook::error);
    EXPECT_EQ(Row(2).Label(), "a == b");
    EXPECT_FALSE(Tree().BeginEdit(&Row(1)));
    Tree().SelectItem(&Row(2));
    program.Command(ID_WATCH_FORMAT_FIRST + int{kBinary});
    AnswerWatch("a == b", "$PCL & 0");
    program.Command(ID_WATCH_EDIT);
    EXPECT_EQ(Row(2).Value(), "0 'NUL'");
    EXPECT_EQ(Row(2).Look(), PropLook::normal);

    const std::string before = Rows();
    Tree().BeginEdit(&Row(0));
    const QModelIndex edited = Tree().currentIndex().siblingAtColumn(1);
    QTest::keyClicks(Tree().indexWidget(edited), "9");
    EndRun();
    EXPECT_FALSE(Tree().indexWidget(edited));
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(Row(0).Look(), PropLook::normal);
    EXPECT_FALSE(Says(IDS_WATCH_NOT_SET, "ticks_left"));
    EXPECT_EQ(Stored("Count"), "3");
    EXPECT_EQ(Stored("$PCL & 0_fmt"), "1");
    EXPECT_EQ(Row(2).Value(), "0 'NUL'");
    Drop("more");
    EXPECT_TRUE(Says(IDS_WATCH_NOT_DEBUGGING));
    EXPECT_FALSE(program.IsEnabled(ID_WATCH_ADD));
    EXPECT_FALSE(program.IsEnabled(ID_WATCH_REMOVE));

    program.Command(ID_DEBUG_START);
    EXPECT_EQ(Rows(), "ticks_left=;" + nonsense + "=;$PCL & 0=;");
    ASSERT_TRUE(program.WaitFor([&] { return Row(0).Value() != ""; }));
    EXPECT_EQ(Row(0).Look(), PropLook::normal);
    EXPECT_EQ(Row(2).Format(), kBinary);
    Tree().SelectItem(&Row(0));
    QTest::keyClick(&Tree(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&Tree(), Qt::Key_Delete);
    ASSERT_EQ(Tree().Items().size(), 1u);
    EXPECT_EQ(Tree().GetCurrentItem(), &Row(0));
    program.Command(ID_WATCH_REMOVE_ALL);
    EXPECT_TRUE(Tree().Items().empty());
}
