// What the list of breakpoints learns from edits, and what it keeps in the project's file.
#include "breakpoints/BreakpointProgram.h"

TEST_F(Breakpoints, PassTheirPropertiesOnByOrder) {
    CIDEDoc *document = Open("a.c", "0\n1\n2\n3\n4\n5\n6\n7\n8\n");
    ASSERT_TRUE(document);
    for (const int line : {2, 3, 6, 8}) Toggle(document, line);
    SetCondition("a.c", 2, "a");
    SetCondition("a.c", 3, "b");
    SetCondition("a.c", 6, "c");
    const CIDEView &view = ViewOf(document);
    const auto deleteLine = [&](uintptr_t line) {
        const intptr_t start = view.Send(SCI_POSITIONFROMLINE, line), end = view.Send(SCI_POSITIONFROMLINE, line + 1);
        view.Send(SCI_SETSEL, static_cast<uintptr_t>(start), end);
        view.SendText(SCI_REPLACESEL, 0, "");
    };
    List().Find(scratch.Windows("a.c"), 8)->id = 7;
    deleteLine(4);
    EXPECT_EQ(Listed("a.c"), "2(a) 3(b) 5(c) 7 ");
    EXPECT_EQ(List().Find(scratch.Windows("a.c"), 7)->id, 7) << "of a run's engine";
    view.SendText(SCI_INSERTTEXT, 0, "new\n");
    EXPECT_EQ(Listed("a.c"), "3(a) 4(b) 6(c) 8 ");
    deleteLine(3);  // two on one line are one, and all behind it get their predecessor's
    EXPECT_EQ(Listed("a.c"), "3(a) 5(b) 7(c) ");
    deleteLine(3);
    deleteLine(3);
    EXPECT_EQ(Listed("a.c"), "3(a) 5(b) ");
    Toggle(document, 3);
    EXPECT_EQ(Marked(document), "5 ") << "the line had several marks";

    // A text that couldn't be read says nothing of the file's breakpoints.
    ASSERT_TRUE(document->DoFileSave());
    std::filesystem::remove(scratch.Native("a.c"));
    document->ReloadFromDisk();
    List().TakeFromDocument(*document);
    EXPECT_EQ(Listed("a.c"), "5(b) ");
}

TEST_F(Breakpoints, ComeBackFromTheProjectsFile) {
    const std::string project = scratch.Windows("p.__c"), source = scratch.Windows("a.c");
    scratch.Write("p.__c", "[Settings]\r\nLast Ext=c\r\n");
    EXPECT_TRUE(List().Save(project));
    EXPECT_EQ(scratch.Read("p.__c"), "[Settings]\r\nLast Ext=c\r\n") << "without breakpoints the file stays";

    const char *const conditions[] = {"x == 3", "'a' == 'b'", "\"", "  ", ""};
    for (int line = 0; line < 5; ++line) List().Add(source, line, line == 2)->props->cond = conditions[line];
    *List().Find(source, 0)->props = {1, "x == 3", 1, 1, 70000, 2, 5};
    ASSERT_TRUE(List().Save(project));
    List().Clear();
    List().Load(project);
    ASSERT_EQ(List().Markers().size(), 5u);
    for (int line = 0; line < 5; ++line) EXPECT_EQ(Props("a.c", line).cond, conditions[line]) << line;
    EXPECT_EQ(List().Find(source, 2)->secondState, 1);
    const CBreakpointProps &props = Props("a.c", 0);
    EXPECT_TRUE(props.useCond == 1 && props.condMode == 1 && props.useHit == 1 && props.hitVal == 70000 &&
                props.hitMode == 2 && props.hitCount == 0);
    EXPECT_EQ(Props("a.c", 1).hitMode, 1);
}

TEST_F(Breakpoints, PassOverWhatAHandHasBroken) {
    const std::string name = scratch.Windows("a.c"), longCondition(400, 'x');
    const struct {
        std::string section, expected;
    } cases[] = {
        {"Count=2000000000\nF0=" + name + "\nL0=4\nF7=" + name + "\nL7=1\n", "1 4 "},
        {"Count=-1\nF0=" + name + "\nL0=4\n", ""},
        {"F0=" + name + "\nL0=4\n", ""},
        {"Count=4\nF0=\nL0=4\nF1=" + name + "\nF2=" + name + "\nL2=-7\nF3=" + name + "\nL3=x\n", "0 "},
        {"Count=2\nF0=" + name + "\nL0=4\nCond0=" + longCondition + "\nF1=" + name + "\nL1=4\n",
         "4(" + longCondition.substr(0, 259) + ") "},
    };
    for (const auto &c : cases) {
        scratch.Write("p.__c", "[Breakpoints]\n" + c.section);
        List().Load(scratch.Windows("p.__c"));
        EXPECT_EQ(Listed("a.c"), c.expected) << c.section;
    }
    scratch.Write("p.__c", "[Breakpoints]\nCount=1\nF0=" + name + "\nL0=4\nHitMode0=9\nUseHit0=1\nUseCond0=3\n");
    List().Load(scratch.Windows("p.__c"));
    EXPECT_EQ(Props("a.c", 4).HitType(), kDbgHitMultiple);
    EXPECT_EQ(Props("a.c", 4).ConditionType(), kDbgWhenTrue);
}
