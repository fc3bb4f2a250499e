#include "editor/SciLexer.h"

#include <gtest/gtest.h>

#include <QTest>

#include "Component.h"
#include "support/ScratchDirectory.h"

TEST(CSciLexer, RefusesWhatIsNoModule) {
    const CScratchDirectory scratch;
    scratch.Write("text.dll", "no library");
    for (const char *name : {"missing.dll", "text.dll"}) {
        CSciLexer lexer;
        EXPECT_FALSE(lexer.Load(scratch.Windows(name))) << name;
        QWidget parent;
        const CSciWindow window = lexer.Create(&parent);
        EXPECT_FALSE(window);
        EXPECT_EQ(window.Send(SCI_GETLINECOUNT), 0);
        EXPECT_EQ(window.GetText(), "");
    }
}

TEST(CSciLexer, KeepsAllBytesButZero) {
    CTestComponent component;
    ASSERT_TRUE(component.sci);
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    bytes += "\xC3\r\n\xF0\x9F\n\xED\xA0\x80 \xC3\xA4\r\xFF";  // cut, surrogate and valid sequences, all line ends
    component.Fill(bytes.c_str());
    EXPECT_EQ(component.sci.GetText(), bytes);

    component.sci.Send(SCI_SETSEL, 0, 3);
    EXPECT_EQ(component.sci.GetSelectedText(), bytes.substr(0, 3));
    component.Fill("one\r\ntwo");
    EXPECT_EQ(component.sci.GetLine(0), "one\r\n");
    EXPECT_EQ(component.sci.GetLine(1), "two");
    EXPECT_EQ(component.sci.GetLine(2), "");
}

TEST(CSciLexer, TellsWhatHappens) {
    CTestComponent component;
    ASSERT_TRUE(component.sci);
    component.Fill("first\n");
    component.sci.Send(SCI_SETSAVEPOINT);
    component.told.clear();

    component.sci.Send(SCI_GOTOPOS, 5);
    QTest::keyClicks(component.sci.Widget(), "x");
    ASSERT_TRUE(component.LastOf(SCN_CHARADDED));
    EXPECT_EQ(component.LastOf(SCN_CHARADDED)->notification.ch, 'x');
    EXPECT_EQ(component.CountOf(SCN_SAVEPOINTLEFT), 1u);
    bool inserted = false;
    for (const auto &each : component.told)
        if (each.notification.code == SCN_MODIFIED && (each.notification.modificationType & SC_MOD_INSERTTEXT)) {
            inserted = true;
            EXPECT_EQ(each.notification.position, 5);
            EXPECT_EQ(each.text, "x");
        }
    EXPECT_TRUE(inserted);

    component.sci.Send(SCI_UNDO);
    EXPECT_EQ(component.CountOf(SCN_SAVEPOINTREACHED), 1u);

    component.sci.Send(SCI_SETREADONLY, 1);
    QTest::keyClicks(component.sci.Widget(), "y");
    EXPECT_GE(component.CountOf(SCN_MODIFYATTEMPTRO), 1u);
    EXPECT_EQ(component.sci.GetText(), "first\n");
}

TEST(CSciLexer, RecordsEdits) {
    CTestComponent component;
    ASSERT_TRUE(component.sci);
    component.sci.Send(SCI_STARTRECORD);
    component.sci.Send(SCI_SELECTALL);
    ASSERT_TRUE(component.LastOf(SCN_MACRORECORD));
    EXPECT_EQ(component.LastOf(SCN_MACRORECORD)->notification.message, SCI_SELECTALL);
}

TEST(CSciLexer, FallsSilentWithoutListener) {
    CTestComponent component;
    ASSERT_TRUE(component.sci);
    component.lexer.SetNotify(component.sci, nullptr, nullptr);
    component.told.clear();
    component.Fill("text");
    EXPECT_TRUE(component.told.empty());

    delete component.sci.Widget();
    EXPECT_EQ(component.sci.Send(SCI_GETTEXTLENGTH), 0);
}

TEST(CSciLexer, ZoomsWithCtrlAndTheWheel) {
    CTestComponent component;
    ASSERT_TRUE(component.sci);
    const intptr_t before = component.sci.Send(SCI_TEXTHEIGHT, 0);
    QWidget *viewport = component.sci.Widget()->findChild<QWidget *>("qt_scrollarea_viewport");
    ASSERT_TRUE(viewport);
    for (int turn = 0; turn < 3; ++turn) {
        QWheelEvent wheel(QPointF(10, 10), QPointF(10, 10), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(viewport, &wheel);
    }
    EXPECT_GT(component.sci.Send(SCI_TEXTHEIGHT, 0), before);
}
