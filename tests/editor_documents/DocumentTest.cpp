// Documents and their files: opening, saving, the star.
#include "EditorProgram.h"

TEST_F(EditorProgram, SavesAllBytesWithWindowsLineEnds) {
    const std::string odd = "caf\xE9 \xC3\xA4 \xF0\x9F \x01\xFF";
    CIDEDoc *document = Open("a.c", odd + "\nsecond\r\nthird\rlast");
    ASSERT_TRUE(document);
    EXPECT_FALSE(HasStar(document));
    EXPECT_FALSE(program.IsEnabled(ID_FILE_SAVE));
    EXPECT_EQ(document->GetTitle(), scratch.Native("a.c"));

    ViewOf(document).Send(SCI_GOTOPOS, 0);
    program.Type("x");
    EXPECT_EQ(document->GetTitle(), scratch.Native("a.c") + " *");
    EXPECT_TRUE(document->IsModified());
    program.Command(ID_EDIT_UNDO);
    EXPECT_FALSE(HasStar(document));
    program.Command(ID_EDIT_REDO);
    EXPECT_TRUE(HasStar(document));

    program.Command(ID_FILE_SAVE);
    EXPECT_EQ(scratch.Read("a.c"), "x" + odd + "\r\nsecond\r\nthird\r\nlast");
    EXPECT_EQ(document->GetTitle(), scratch.Native("a.c"));
    EXPECT_FALSE(document->IsModified());
    EXPECT_TRUE(program.App().fileTracker.IsFileArmed(scratch.Windows("a.c")));
}

TEST_F(EditorProgram, GivesANewDocumentANameAndColours) {
    program.Command(ID_FILE_NEW);
    CIDEDoc *document = program.ActiveDocument();
    ASSERT_TRUE(document);
    EXPECT_TRUE(document->GetPathName().empty());
    const std::string untitled = document->GetTitle();
    program.Type("nop");
    EXPECT_EQ(document->GetTitle(), untitled + " *");
    EXPECT_EQ(ViewOf(document).Send(SCI_GETLEXER), SCLEX_NULL);

    program.AnswerFiles({scratch.Native("new.asm")});
    program.Command(ID_FILE_SAVE);
    EXPECT_EQ(document->GetPathName(), scratch.Windows("new.asm"));
    EXPECT_EQ(document->GetTitle(), scratch.Native("new.asm"));
    EXPECT_EQ(scratch.Read("new.asm"), "nop");
    EXPECT_EQ(ViewOf(document).Send(SCI_GETLEXER), SCLEX_ASM);

    program.AnswerFiles({});
    program.Command(ID_FILE_SAVE_AS);
    EXPECT_EQ(document->GetPathName(), scratch.Windows("new.asm"));
}

TEST_F(EditorProgram, BeginsWithTheToolsuitesBoilerPlate) {
    scratch.CopyExample("blink");
    ASSERT_TRUE(program.App().OpenWorkspace(scratch.Windows("blink/blink.__c").c_str(), false));
    program.Command(ID_FILE_NEW);
    CIDEDoc *document = program.ActiveDocument();
    ASSERT_TRUE(document);
    EXPECT_TRUE(document->GetPathName().empty());
    EXPECT_NE(document->GetText().find("retfie"), std::string::npos);
    EXPECT_EQ(ViewOf(document).Send(SCI_GETCURRENTPOS), ViewOf(document).Send(SCI_GETLENGTH));
    EXPECT_FALSE(document->IsModified());
    EXPECT_FALSE(program.IsEnabled(ID_EDIT_UNDO));

    // What it gives assembles as it stands.
    program.AnswerFiles({scratch.Native("plate.asm")});
    program.Command(ID_FILE_SAVE_AS);
    const std::string command = "cd " + scratch.Native() + " && gpasm -q -c -p 16f628a plate.asm > plate.log 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << scratch.Read("plate.log");
}

TEST_F(EditorProgram, OpensAFileOnceUnderAnyName) {
    const std::string longest = std::string(251, 'n') + ".asm";
    for (const std::string &name : {std::string("with blanks (1).c"), std::string("gr\xC3\xBC\xC3\x9F.c"), longest}) {
        CIDEDoc *document = Open(name, "text\n");
        ASSERT_TRUE(document) << name;
        program.Type("x");
        program.Command(ID_FILE_SAVE);
        EXPECT_EQ(scratch.Read(name), "xtext\r\n") << name;
    }
    CIDEDoc *document = Open("sub/a.c", "text\n");
    for (const char *name : {"sub/../sub/./a.c", "sub//a.c", "SUB/A.C"}) EXPECT_EQ(Open(name), document) << name;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(scratch.Native("sub"));
    EXPECT_EQ(program.App().OpenDocumentFile("a.c"), document);
    std::filesystem::current_path(before);
}
