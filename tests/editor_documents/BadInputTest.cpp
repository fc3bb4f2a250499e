// Files that can't be opened, shown or written as they stand.
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <random>

#include "EditorProgram.h"
#include "app/StringIds.h"
#include "editor/TextSize.h"
#include "framework/Language.h"

namespace {

bool MakeSocket(const std::string &path) {
    sockaddr_un address{AF_UNIX, {}};
    strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    const int file = socket(AF_UNIX, SOCK_STREAM, 0);
    const bool bound = bind(file, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
    close(file);
    return bound;
}

// Lets no file grow beyond `bytes` for the life of the object, as a full disk would.
class CFullDisk {
public:
    explicit CFullDisk(rlim_t bytes) {
        signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limit{bytes, old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~CFullDisk() { setrlimit(RLIMIT_FSIZE, &old_); }

private:
    rlimit old_{};
};

}  // namespace

TEST_F(EditorProgram, SaysWhyAFileDoesNotOpen) {
    std::filesystem::create_directory(scratch.Native("folder.c"));
    ASSERT_EQ(mkfifo(scratch.Native("pipe.c").c_str(), 0600), 0);
    ASSERT_TRUE(MakeSocket(scratch.Native("socket.c")));
    std::filesystem::create_symlink("/dev/zero", scratch.Native("device.c"));
    std::filesystem::create_symlink("circle.c", scratch.Native("circle.c"));
    scratch.Write("secret.c", "text");
    chmod(scratch.Native("secret.c").c_str(), 0);
    const struct {
        const char *name;
        int text;
    } cases[] = {{"folder.c", IDS_FILE_IS_FOLDER},  {"pipe.c", IDS_FILE_IS_SPECIAL},  {"socket.c", IDS_FILE_IS_SPECIAL},
                 {"device.c", IDS_FILE_IS_SPECIAL}, {"circle.c", IDS_CANT_READ_FILE}, {"missing.c", IDS_CANT_READ_FILE},
                 {"secret.c", IDS_FILE_FORBIDDEN}};
    for (const auto &c : cases) {
        if (c.text == IDS_FILE_FORBIDDEN && geteuid() == 0) continue;
        program.App().AddOutputLine(nullptr);
        EXPECT_FALSE(Open(c.name)) << c.name;
        EXPECT_EQ(program.BuildText(), "Error" + LoadText(c.text, {scratch.Native(c.name)}).substr(2) + "\n");
    }
    EXPECT_TRUE(program.App().GetDocuments().empty());
}

TEST_F(EditorProgram, ShowsButNeverSavesWhatItCannotShowWhole) {
    const struct {
        std::string bytes;
        int text;
    } cases[] = {{std::string("shown\0hidden", 12), IDS_FILE_CUT},
                 {"int a;\n" + std::string(kBrokenLine + 1, 'x'), IDS_FILE_LINES_BROKEN}};
    for (const auto &c : cases) {
        program.App().AddOutputLine(nullptr);
        CIDEDoc *document = Open("a.c", c.bytes);
        ASSERT_TRUE(document);
        EXPECT_EQ(program.BuildText(), "Warning" + LoadText(c.text, {scratch.Native("a.c")}).substr(2) + "\n");
        const std::string shown = document->GetText();
        EXPECT_EQ(shown.substr(0, 5), c.bytes.substr(0, 5));
        program.Type("x");
        EXPECT_EQ(document->GetText(), shown);
        EXPECT_FALSE(document->IsModified());
        for (const char *name : {"a.c", "b.c"}) {
            program.Answer(IDOK);
            EXPECT_FALSE(document->DoSave(scratch.Windows(name)));
        }
        EXPECT_EQ(scratch.Read("a.c"), c.bytes);
        EXPECT_FALSE(scratch.Exists("b.c"));
        document->OnCloseDocument();
    }
}

TEST_F(EditorProgram, ShowsLongLinesWithoutColours) {
    CIDEDoc *document = Open("a.c", "int a;\n" + std::string(kPlainLine + 1, 'x') + "\n");
    ASSERT_TRUE(document);
    EXPECT_EQ(ViewOf(document).Send(SCI_GETLEXER), SCLEX_NULL);
    EXPECT_TRUE(program.BuildText().ends_with(LoadText(IDS_FILE_LONG_LINES, {scratch.Native("a.c")}) + "\n"));
    scratch.Write("a.c", "int a;\n");
    document->ReloadFromDisk();
    EXPECT_EQ(ViewOf(document).Send(SCI_GETLEXER), SCLEX_CPP);
}

TEST_F(EditorProgram, KeepsAnyBytes) {
    std::mt19937 random(7);
    std::string bytes = "\xEF\xBB\xBF";
    for (int i = 0; i < 20'000; ++i) bytes += static_cast<char>(1 + random() % 255);
    bytes += "no line end";
    CIDEDoc *document = Open("a.c", bytes);
    ASSERT_TRUE(document);
    ASSERT_TRUE(document->DoFileSave());
    EXPECT_EQ(scratch.Read("a.c"), WithWindowsLineEnds(bytes));
}

TEST_F(EditorProgram, KeepsTheOldFileWhenItCannotWrite) {
    const std::string old(20'000, 'o');
    scratch.Write("kept/link target.c", old);
    chmod(scratch.Native("kept/link target.c").c_str(), 0640);
    std::filesystem::create_symlink("link target.c", scratch.Native("kept/a.c"));
    CIDEDoc *document = Open("kept/a.c");
    ASSERT_TRUE(document);
    program.Type("x");
    const auto fails = [&] {
        program.Answer(IDOK);
        program.Command(ID_FILE_SAVE);
        EXPECT_TRUE(document->IsModified());
        EXPECT_TRUE(HasStar(document));
        EXPECT_EQ(document->GetText(), "x" + old);
        EXPECT_NE(program.Boxes().back().find(scratch.Native("kept/a.c")), std::string::npos);
    };
    {
        const CFullDisk disk(10'000);
        fails();
    }
    EXPECT_EQ(scratch.Read("kept/link target.c"), old);
    const auto entries = std::filesystem::directory_iterator(scratch.Native("kept"));
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 2) << "something is left beside the file";

    std::filesystem::rename(scratch.Native("kept"), scratch.Native("gone"));
    program.App().fileTracker.UntrackFile(document->GetPathName());  // the tick would tell of it first
    fails();
    std::filesystem::rename(scratch.Native("gone"), scratch.Native("kept"));

    program.Command(ID_FILE_SAVE);
    EXPECT_EQ(scratch.Read("kept/link target.c"), "x" + old);
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.Native("kept/a.c")));
    EXPECT_EQ(std::filesystem::status(scratch.Native("kept/a.c")).permissions(), std::filesystem::perms(0640));
    EXPECT_FALSE(HasStar(document));
}
