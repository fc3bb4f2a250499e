// What a build does to the documents that are open.
#include <QTest>
#include <fstream>

#include "BuildProgram.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/MDIChildWnd.h"

namespace {

constexpr const char *kBadSource = "\tinclude \"p16f628a.inc\"\n\tcode\nmain\tmovlq\t1\n\tend\n";

std::string TextOf(const CIDEView &view) {
    std::string text(static_cast<size_t>(view.Send(SCI_GETLENGTH)) + 1, '\0');
    view.Send(SCI_GETTEXT, text.size(), reinterpret_cast<intptr_t>(text.data()));
    return text.c_str();
}

TEST_F(BuildProgram, AnOpenOutputIsReloadedAndOneThatVanishedIsClosed) {
    WriteDemo();
    Start("demo/demo.__c");
    ASSERT_TRUE(program->Build());
    for (const char *file : {"demo/Debug/demo.lst", "demo/Debug/demo.map", "demo/main.asm"})
        ASSERT_TRUE(program->App().FindOrOpenDocument(scratch.Windows(file), true)) << file;
    std::string source = kGoodSource;
    source.insert(source.find("main\tnop\n") + 9, "\tmovlw\t0x5A\n");
    scratch.Write("demo/main.asm", source);
    program->App().fileTracker.DisarmFile(scratch.Windows("demo/main.asm"));
    dynamic_cast<CIDEDoc *>(program->App().FindOrOpenDocument(scratch.Windows("demo/main.asm"), false))
        ->ReloadFromDisk();

    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(ListHas("Reloaded: " + scratch.Native("demo/Debug/demo.lst"))) << program->BuildText();
    EXPECT_FALSE(ListHas("Reloaded: " + scratch.Native("demo/main.asm")));
    const CDocument *listing = program->App().FindOrOpenDocument(scratch.Windows("demo/Debug/demo.lst"), false);
    ASSERT_NE(listing, nullptr);
    EXPECT_TRUE(Contains(TextOf(*dynamic_cast<CIDEView *>(listing->GetFirstView())), "5A"));
    program->Settle(1300);  // past the tracker's next looks: none of this is an outside change

    scratch.Write("demo/main.asm", kBadSource);
    program->App().fileTracker.DisarmFile(scratch.Windows("demo/main.asm"));
    dynamic_cast<CIDEDoc *>(program->App().FindOrOpenDocument(scratch.Windows("demo/main.asm"), false))
        ->ReloadFromDisk();
    ASSERT_TRUE(program->Build());
    EXPECT_TRUE(Failed());
    EXPECT_TRUE(ListHas("Closed, as it no longer exists: " + scratch.Native("demo/Debug/demo.lst")))
        << program->BuildText();
    program->Settle();
    EXPECT_EQ(program->App().FindOrOpenDocument(scratch.Windows("demo/Debug/demo.lst"), false), nullptr);
    EXPECT_NE(program->App().FindOrOpenDocument(scratch.Windows("demo/main.asm"), false), nullptr);
    program->Settle(700);
}

TEST_F(BuildProgram, ACleanClosesNoDocument) {
    WriteDemo();
    Start("demo/demo.__c");
    ASSERT_TRUE(program->Build());
    ASSERT_TRUE(program->App().FindOrOpenDocument(scratch.Windows("demo/Debug/demo.lst"), true));
    program->Command(ID_CLEAN);
    ASSERT_TRUE(WaitForIdle());
    EXPECT_NE(program->App().FindOrOpenDocument(scratch.Windows("demo/Debug/demo.lst"), false), nullptr);
    EXPECT_FALSE(ListHas("Closed"));
}

// A batch file may write sources; the user isn't asked about it, and what he typed meanwhile isn't lost.
TEST_F(BuildProgram, ASourceThatAStepWritesAsksNothingDuringTheStep) {
    WriteDemoWithPrebuild("echo '; written by a step' >> main.asm\nsleep 1.5\n");
    Start("demo/demo.__c");
    ASSERT_TRUE(program->App().FindOrOpenDocument(scratch.Windows("demo/main.asm"), true));
    ASSERT_TRUE(program->Build());
    EXPECT_FALSE(Failed());
    program->Settle(1300);
    EXPECT_TRUE(Contains(scratch.Read("demo/main.asm"), "written by a step"));
}

}  // namespace
