// Files that others change while they are open.
#include <fcntl.h>
#include <sys/stat.h>

#include "EditorProgram.h"

namespace {

class OutsideChange : public EditorProgram {
protected:
    // Writes the file as another program would, a minute later.
    void ChangeOutside(const std::string &name, const std::string &text) {
        scratch.Write(name, text);
        const timespec later[2] = {{time(nullptr) + 60, 0}, {time(nullptr) + 60, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, scratch.Native(name).c_str(), later, 0), 0);
    }
    void Tick() {
        const size_t boxes = program.Boxes().size();
        program.App().fileTracker.CheckTrackedFiles();
        program.WaitFor([&] { return program.Boxes().size() > boxes; }, std::chrono::seconds(5));
        program.Settle(200);
    }
};

}  // namespace

TEST_F(OutsideChange, ReloadsIfTheUserWants) {
    std::string text;
    for (int line = 0; line < 200; ++line) text += "line " + std::to_string(line) + "\n";
    CIDEDoc *document = Open("a.c", text);
    ASSERT_TRUE(document);
    CIDEView &view = ViewOf(document);
    view.Send(SCI_GOTOLINE, 3);
    program.Command(ID_BOOKMARK_TOGGLE);
    view.Send(SCI_LINESCROLL, 0, 50);
    const intptr_t topLine = view.Send(SCI_GETFIRSTVISIBLELINE);
    program.Type("x");
    view.Send(SCI_LINESCROLL, 0, topLine - view.Send(SCI_GETFIRSTVISIBLELINE));
    EXPECT_TRUE(HasStar(document));

    ChangeOutside("a.c", "// new\n" + text);
    program.Answer(IDYES);
    Tick();
    EXPECT_EQ(document->GetText(), "// new\n" + text);
    EXPECT_FALSE(HasStar(document));
    EXPECT_FALSE(program.IsEnabled(ID_EDIT_UNDO));
    EXPECT_TRUE(program.App().fileTracker.IsFileArmed(document->GetPathName()));
    EXPECT_EQ(view.Send(SCI_GETFIRSTVISIBLELINE), topLine);
    EXPECT_EQ(view.Send(SCI_MARKERNEXT, 0, 1 << 1), 3);   // the mark keeps its line,
    EXPECT_EQ(view.Send(SCI_MARKERNEXT, 4, 1 << 1), -1);  // and none gathers elsewhere
}

TEST_F(OutsideChange, LeavesTheTextIfTheUserDoesNot) {
    CIDEDoc *document = Open("a.c", "mine\n");
    ASSERT_TRUE(document);
    ChangeOutside("a.c", "theirs\n");
    program.Answer(IDNO);
    Tick();
    EXPECT_EQ(document->GetText(), "mine\n");
    EXPECT_FALSE(program.App().fileTracker.IsFileTracked(document->GetPathName()));
}

TEST_F(OutsideChange, MarksADeletedFileAsUnsaved) {
    CIDEDoc *document = Open("a.c", "only copy\n");
    ASSERT_TRUE(document);
    std::filesystem::remove(scratch.Native("a.c"));
    program.Answer(IDOK);
    Tick();
    EXPECT_TRUE(HasStar(document));
    EXPECT_EQ(document->GetText(), "only copy\n");
    program.Command(ID_FILE_SAVE);
    EXPECT_EQ(scratch.Read("a.c"), "only copy\r\n");
}

TEST_F(OutsideChange, DoesNotMindItsOwnWriting) {
    CIDEDoc *document = Open("a.c", "text\n");
    ASSERT_TRUE(document);
    ChangeOutside("a.c", "text\n");
    program.App().fileTracker.ArmFile(document->GetPathName());
    program.Type("x");
    program.Command(ID_FILE_SAVE);
    program.Settle(700);  // longer than a tick
    EXPECT_TRUE(program.Boxes().empty());
}
