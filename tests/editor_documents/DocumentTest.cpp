// Documents and their files: opening, saving, the star.
#include <sys/stat.h>

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

TEST_F(EditorProgram, RefusesWhatIsNoReadableFile) {
    std::filesystem::create_directory(scratch.Native("folder.c"));
    ASSERT_EQ(mkfifo(scratch.Native("pipe.c").c_str(), 0600), 0);
    for (const char *name : {"folder.c", "pipe.c", "missing.c"}) {
        program.App().AddOutputLine(nullptr);
        EXPECT_FALSE(Open(name)) << name;
        EXPECT_NE(program.BuildText().find(scratch.Native(name)), std::string::npos) << program.BuildText();
    }
    EXPECT_TRUE(program.App().GetDocuments().empty());
}

TEST_F(EditorProgram, KeepsTheStarWhenItCannotWrite) {
    CIDEDoc *document = Open("gone/a.c", "text\n");
    ASSERT_TRUE(document);
    program.Type("x");
    std::filesystem::remove_all(scratch.Native("gone"));
    program.App().fileTracker.UntrackFile(document->GetPathName());  // the tick would tell of it first
    program.Answer(IDOK);
    program.Command(ID_FILE_SAVE);
    EXPECT_TRUE(document->IsModified());
    EXPECT_TRUE(HasStar(document));
    ASSERT_EQ(program.Boxes().size(), 1u);
    EXPECT_NE(program.Boxes()[0].find(scratch.Native("gone/a.c")), std::string::npos) << program.Boxes()[0];

    std::filesystem::create_directory(scratch.Native("gone"));
    program.Command(ID_FILE_SAVE);
    EXPECT_EQ(scratch.Read("gone/a.c"), "xtext\r\n");
    EXPECT_FALSE(HasStar(document));
}

TEST_F(EditorProgram, ProtectsWhatLiesBehindAZeroByte) {
    const std::string bytes("shown\0hidden", 12);
    CIDEDoc *document = Open("a.c", bytes);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->GetText(), "shown");
    program.Type("x");
    EXPECT_EQ(document->GetText(), "shown");
    EXPECT_FALSE(document->IsModified());
    EXPECT_NE(program.BuildText().find(scratch.Native("a.c")), std::string::npos);
    EXPECT_EQ(scratch.Read("a.c"), bytes);
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
