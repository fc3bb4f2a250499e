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

    bool IsHeader(intptr_t line) const {
        return component.sci.Send(SCI_GETFOLDLEVEL, static_cast<uintptr_t>(line)) & SC_FOLDLEVELHEADERFLAG;
    }
    // One letter for each line: hidden, shown, or a header that is open or closed, capital when it is shown.
    std::string State() const {
        std::string state;
        for (uintptr_t line = 0; line < 9; ++line) {
            const bool visible = component.sci.Send(SCI_GETLINEVISIBLE, line);
            const bool expanded = component.sci.Send(SCI_GETFOLDEXPANDED, line);
            const char letter = !IsHeader(static_cast<intptr_t>(line)) ? '.' : expanded ? 'o' : 'c';
            state += visible ? static_cast<char>(letter == '.' ? ',' : letter - 32) : letter;
        }
        return state;
    }
    void Close(unsigned headers) const {
        component.sci.Send(SCI_SHOWLINES, 0, 8);
        constexpr uintptr_t kHeaders[] = {0, 1, 5};
        for (const uintptr_t header : kHeaders) component.sci.Send(SCI_SETFOLDEXPANDED, header, 1);
        for (int i = 2; i >= 0; --i)
            if (headers & 1u << i) component.sci.Send(SCI_TOGGLEFOLD, kHeaders[i]);
    }

    // The block's lines one by one, each with its own level: what a click has to come to, whatever was closed inside.
    void Expand(intptr_t &line, bool expand, bool force, int levels, intptr_t level) const {
        const auto send = [&](unsigned message, intptr_t first, intptr_t second = 0) {
            return component.sci.Send(message, static_cast<uintptr_t>(first), second);
        };
        const intptr_t last = send(SCI_GETLASTCHILD, line, level & SC_FOLDLEVELNUMBERMASK);
        for (++line; line <= last;) {
            if (force || expand) send(!force || levels > 0 ? SCI_SHOWLINES : SCI_HIDELINES, line, line);
            const intptr_t own = level == -1 ? send(SCI_GETFOLDLEVEL, line) : level;
            if (!(own & SC_FOLDLEVELHEADERFLAG)) {
                ++line;
                continue;
            }
            if (force || expand) send(SCI_SETFOLDEXPANDED, line, !force || levels > 1);
            Expand(line, expand, force, levels - 1, -1);
        }
    }

    CTestComponent component;
};

}  // namespace

TEST_F(Folding, ComesToTheSameAsLineByLine) {
    const auto level = [&] { return component.sci.Send(SCI_GETFOLDLEVEL, 0); };
    for (unsigned closed = 0; closed < 8; ++closed) {
        for (const int modifiers : {int{SCMOD_SHIFT}, int{SCMOD_CTRL}}) {
            Close(closed);
            const bool contract = modifiers == SCMOD_CTRL && component.sci.Send(SCI_GETFOLDEXPANDED, 0);
            component.sci.Send(SCI_SETFOLDEXPANDED, 0, !contract);
            intptr_t line = 0;
            Expand(line, !contract, true, contract ? 0 : 100, level());
            const std::string expected = State();
            Close(closed);
            FoldClick(component.sci, 0, modifiers);
            EXPECT_EQ(State(), expected) << closed << ' ' << modifiers;
        }
        Close(closed | 1);
        for (intptr_t line : {0, 5}) {
            component.sci.Send(SCI_SETFOLDEXPANDED, static_cast<uintptr_t>(line), 1);
            Expand(line, true, false, 0, component.sci.Send(SCI_GETFOLDLEVEL, static_cast<uintptr_t>(line)));
        }
        const std::string expected = State();
        Close(closed | 1);
        FoldAll(component.sci, false);
        EXPECT_EQ(State(), expected) << closed;
    }
}

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
