#include "editor/ViewSetup.h"

#include <gtest/gtest.h>

#include <QTest>

#include "Component.h"
#include "editor/EditorProperties.h"
#include "editor/Keywords.h"

TEST(ViewSetup, GivesEachKindItsLexerAndFoldingMargin) {
    CTestComponent component;
    ASSERT_TRUE(component.sci);
    const struct {
        FileKind kind;
        intptr_t lexer;
        intptr_t foldWidth;  // with folding on
    } cases[] = {
        {FileKind::c, SCLEX_CPP, 14},        {FileKind::assembler, SCLEX_ASM, 0}, {FileKind::pascal, SCLEX_PASCAL, 14},
        {FileKind::basic, SCLEX_PASCAL, 14}, {FileKind::other, SCLEX_NULL, 0},
    };
    CEditorProperties properties;
    for (const bool fold : {false, true}) {
        properties.fold = fold;
        for (const auto &c : cases) {
            SetLexerOf(component.sci, c.kind, fold);
            EXPECT_EQ(component.sci.Send(SCI_GETLEXER), c.lexer) << static_cast<int>(c.kind);
            EXPECT_EQ(component.sci.Send(SCI_GETMARGINWIDTHN, 2), fold ? c.foldWidth : 0);
            properties.ApplyProperties(component.sci, 1);  // agrees with it
            EXPECT_EQ(component.sci.Send(SCI_GETMARGINWIDTHN, 2), fold ? c.foldWidth : 0);
        }
    }
}

TEST(ViewSetup, ColoursTheWordsOfTheKind) {
    CTestComponent component;
    ASSERT_TRUE(component.sci);
    const auto styleOfFirst = [&](FileKind kind, const char *text) {
        SetLexerOf(component.sci, kind, false);
        component.Fill(text);
        component.sci.Send(SCI_COLOURISE, 0, -1);
        return component.sci.Send(SCI_GETSTYLEAT, 0);
    };
    EXPECT_EQ(styleOfFirst(FileKind::c, "while "), 5);
    EXPECT_NE(styleOfFirst(FileKind::c, "gosub "), 5);
    const intptr_t opcode = styleOfFirst(FileKind::assembler, "movlw 1\n");
    EXPECT_EQ(styleOfFirst(FileKind::assembler, "MOVLW 1\n"), opcode);
    EXPECT_NE(styleOfFirst(FileKind::assembler, "tblrd 1\n"), opcode);

    const std::string builtIn = KeywordsOf(FileKind::assembler);
    SetKeywords(FileKind::assembler, "");
    EXPECT_EQ(KeywordsOf(FileKind::assembler), builtIn);
    SetKeywords(FileKind::assembler, "tblrd tblwt");
    EXPECT_EQ(styleOfFirst(FileKind::assembler, "tblrd 1\n"), opcode);
    EXPECT_NE(styleOfFirst(FileKind::assembler, "movlw 1\n"), opcode);
    SetKeywords(FileKind::assembler, builtIn);
}

TEST(ViewSetup, LetsNoControlCharacterIn) {
    CTestComponent component;
    ASSERT_TRUE(component.sci);
    SetUpWindow(component.sci);
    SetLexerOf(component.sci, FileKind::other, false);
    component.Fill("text");
    for (const int key : {Qt::Key_Q, Qt::Key_W, Qt::Key_E, Qt::Key_R, Qt::Key_K})
        QTest::keyClick(component.sci.Widget(), static_cast<Qt::Key>(key), Qt::ControlModifier);
    for (const char *key = "QWERYOASDGKZXCVBN"; *key; ++key)
        QTest::keyClick(component.sci.Widget(), static_cast<Qt::Key>(*key), Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(component.sci.GetText(), "text");
}

TEST(ViewSetup, KnowsTheBraces) {
    for (const char brace : {'(', ')', '{', '}', '[', ']', '<', '>'}) EXPECT_TRUE(IsBrace(brace));
    for (const intptr_t other : {0, int{'a'}, -1, 256 + '('}) EXPECT_FALSE(IsBrace(other)) << other;
}
