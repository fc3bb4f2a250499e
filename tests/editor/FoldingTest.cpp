#include "editor/Folding.h"

#include <gtest/gtest.h>

#include <string>

#include "Component.h"
#include "editor/ViewSetup.h"

namespace {

// Lines 0 to 4 are one block with another inside, 5 to 7 a second.
const char *const kSource = "void f() {\n\tif (a) {\n\t\tb();\n\t}\n}\nvoid g() {\n\tc();\n}\nint d;\n";

class Folding : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(component.sci);
        SetLexerOf(component.sci, FileKind::c, true);
        component.Fill(kSource);
        component.sci.Send(SCI_COLOURISE, 0, -1);
    }

    std::string VisibleLines() const {
        std::string lines;
        for (uintptr_t line = 0; line < 9; ++line)
            if (component.sci.Send(SCI_GETLINEVISIBLE, line)) lines += static_cast<char>('0' + line);
        return lines;
    }

    CTestComponent component;
};

}  // namespace

TEST_F(Folding, TurnsAllBlocksByTheFirstOne) {
    FoldAll(component.sci, false);
    EXPECT_EQ(VisibleLines(), "058");
    FoldClick(component.sci, 5, 0);  // the first block still decides
    EXPECT_EQ(VisibleLines(), "05678");
    FoldClick(component.sci, 8, SCMOD_SHIFT + SCMOD_CTRL);  // anywhere in the margin
    EXPECT_EQ(VisibleLines(), "012345678");
    FoldAll(component.sci, true);
    EXPECT_EQ(VisibleLines(), "012345678");
}

TEST_F(Folding, TurnsOneBlock) {
    FoldClick(component.sci, 1, 0);
    EXPECT_EQ(VisibleLines(), "0145678");
    FoldClick(component.sci, 0, 0);
    EXPECT_EQ(VisibleLines(), "05678");
    FoldClick(component.sci, 0, 0);  // the inner block stays as it was
    EXPECT_EQ(VisibleLines(), "0145678");
    FoldClick(component.sci, 0, SCMOD_SHIFT);  // opens what is inside, too
    EXPECT_EQ(VisibleLines(), "012345678");
    FoldClick(component.sci, 0, SCMOD_CTRL);
    FoldClick(component.sci, 0, 0);  // Ctrl closed the inner one with it
    EXPECT_EQ(VisibleLines(), "0145678");
    FoldClick(component.sci, 2, 0);  // no header
    EXPECT_EQ(VisibleLines(), "0145678");
}
