// The register bar over the engine and a built example.
#include <QHeaderView>
#include <QLineEdit>
#include <QTest>

#include "app/Settings.h"
#include "app/StringIds.h"
#include "debug_views/DebugProgram.h"
#include "debugger/RegisterBar.h"
#include "debugger/RegisterItem.h"
#include "debugger/ValueFormat.h"
#include "framework/Language.h"
#include "platform/Profile.h"
#include "widgets/PropTree.h"

namespace {

class RegisterBar : public DebugProgram {
protected:
    CRegisterBar &Bar() { return static_cast<CRegisterBar &>(*program.Frame().DebugBars().registers); }
    CPropTree &Tree() { return Bar().Tree(); }
    // The row of this label, at any level; null without one.
    CPropTreeItem *Find(const std::string &label) {
        const auto find = [&](auto &self, const auto &rows) -> CPropTreeItem * {
            for (const auto &row : rows) {
                if (row->Label() == label) return row.get();
                if (CPropTreeItem *below = self(self, row->Children())) return below;
            }
            return nullptr;
        };
        return find(find, Tree().Items());
    }
    CRegisterItem &Register(const std::string &name) { return static_cast<CRegisterItem &>(*Find(name)); }
    void TypeOver(const std::string &label, const QString &text) {
        CPropTreeItem *const row = Find(label);
        ASSERT_TRUE(row) << label;
        for (CPropTreeItem *above = row->Parent(); above; above = above->Parent()) Tree().Expand(above, true);
        ASSERT_TRUE(Tree().BeginEdit(row)) << label;
        auto *const editor = Tree().viewport()->findChild<QLineEdit *>();
        ASSERT_TRUE(editor);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        program.Settle(5);
    }
    int Read(const std::string &name) {
        std::string text;
        return program.App().debugger.Evaluate("$" + name, text, 0, nullptr) ? std::atoi(text.c_str()) : -1;
    }
    void EndRun() {
        program.Command(ID_DEBUG_END);
        ASSERT_TRUE(program.WaitFor([&] { return !program.App().session.IsOpen(); }));
    }
    bool Says(int text, const std::string &name = {}) {
        return program.BuildText().find(LoadText(text, {name}).substr(4)) != std::string::npos;
    }
    std::string Stored(const std::string &key) {
        return ReadProfileString("Register", key, "none", scratch.Windows("blink/blink.__c"));
    }
};

}  // namespace

TEST_F(RegisterBar, RegistersAndBitsAreTypedOver) {
    Debug("blink");
    TypeOver("TRISB", "129");
    EXPECT_EQ(Read("TRISB"), 129);
    EXPECT_EQ(Register("TRISB").Value(), "129");
    EXPECT_EQ(Find("TRISB7")->Value() + Find("TRISB6")->Value(), "10");
    Register("TRISB").SetFormat(kBinary);
    EXPECT_EQ(Register("TRISB").Value(), "10000001");
    TypeOver("TRISB", "101");
    EXPECT_EQ(Read("TRISB"), 5);
    TypeOver("TRISB1", "1");
    TypeOver("TRISB3", "1");
    EXPECT_EQ(Read("TRISB"), 15);  // the second bit doesn't take the first one back
    EXPECT_EQ(Find("TRISB3")->Value(), "1");
    TypeOver("TRISB0", "2");
    EXPECT_TRUE(Says(IDS_BIT_NOT_BINARY));
    EXPECT_EQ(Read("TRISB"), 15);
    EXPECT_EQ(Find("TRISB0")->Value(), "1");
    TypeOver("PR2", "zz");
    EXPECT_TRUE(Says(IDS_NOT_DECIMAL));
    TypeOver("PR2", "300");
    EXPECT_TRUE(Says(IDS_REGISTER_NOT_SET, "PR2"));
    EXPECT_EQ(Read("PR2"), 255);
    TypeOver("PR2", "12abc");
    EXPECT_EQ(Read("PR2"), 12);
    const int w = Read("W");
    TypeOver("W", "300");  // has no address
    EXPECT_TRUE(Says(IDS_REGISTER_NOT_SET, "W"));
    EXPECT_EQ(Read("W"), w);
    Do(ID_DEBUG_STEP_INTO);
    EXPECT_EQ(Register("TRISB").Value(), "1111");
    EXPECT_EQ(Register("TRISB").Look(), PropLook::changed);
    EXPECT_EQ(Find("TRISB0")->Look(), PropLook::changed);
    Do(ID_DEBUG_STEP_INTO);
    EXPECT_EQ(Register("TRISB").Look(), PropLook::normal);
    const PropLook look = Register("PCL").Look();
    Register("PCL").SetFormat(kHexadecimal);
    EXPECT_EQ(Register("PCL").Look(), look);
    EXPECT_FALSE(Tree().BeginEdit(Tree().Items()[0].get()));
    Bar().BlankValues();
    TypeOver("TRISB7", "2");
    EXPECT_EQ(Find("TRISB7")->Value(), "");
    TypeOver("TRISB7", "1");
    EXPECT_EQ(Read("TRISB"), 0x8F);
}

TEST_F(RegisterBar, KeepsFormatsGroupsAndWidths) {
    Debug("blink");
    CPropTreeItem *const group = Find("TRISB")->Parent();
    const std::string name = group->Label();
    ASSERT_TRUE(Tree().IsExpanded(group));
    EXPECT_FALSE(Tree().IsExpanded(Find("TRISB")));
    Tree().Expand(group, false);
    Tree().Expand(Find("STATUS"), true);
    Tree().SelectItem(&Register("PCL"));
    program.Command(ID_REGISTER_FORMAT_FIRST + int{kHexadecimal});
    program.Frame().resizeDocks({&Bar()}, {400}, Qt::Horizontal);
    Tree().header()->resizeSection(0, 173);
    ASSERT_TRUE(program.WaitFor([] { return GetUserInt("Debug Bars", "RegisterNameWidth", 0) == 173; }));
    EndRun();
    EXPECT_EQ(Stored("PCL_fmt"), "3");
    EXPECT_EQ(Stored("TRISB_fmt"), "none");
    EXPECT_EQ(Stored(name), "0");

    Do(ID_DEBUG_START);
    EXPECT_FALSE(Tree().IsExpanded(Find("TRISB")->Parent()));
    EXPECT_TRUE(Tree().IsExpanded(Find("STATUS")));
    EXPECT_TRUE(Register("PCL").Value().starts_with("0x"));
    EndRun();
    EXPECT_FALSE(program.IsEnabled(ID_REGISTER_FORMAT_FIRST));
    EXPECT_FALSE(Tree().BeginEdit(&Register("PCL")));
}

TEST_F(RegisterBar, MarksWatchpointsOfEitherName) {
    Debug("blink");
    CWatchpointManager &watchpoints = program.App().watchpoints;
    watchpoints.Toggle("$6");
    EXPECT_TRUE(Find("PORTB")->IsMarked());
    watchpoints.Toggle("$portb");
    EXPECT_FALSE(Find("PORTB")->IsMarked());
    watchpoints.Toggle("$TRISB");
    program.Command(ID_REGISTER_WATCHPOINTS_CLEAR);
    EXPECT_FALSE(Find("TRISB")->IsMarked());
    EXPECT_TRUE(watchpoints.List().empty());
}
