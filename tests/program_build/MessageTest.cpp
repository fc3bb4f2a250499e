// From a line of the build list to the source line that it speaks of.
#include "BuildProgram.h"
#include "build/BuildListBox.h"
#include "build/OutputBar.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"

namespace {

constexpr const char *kHead = "\tinclude \"p16f628a.inc\"\n";

TEST_F(BuildProgram, AClickOnEachKindOfMessageLeadsToItsLine) {
    const std::string crowded = "big\tudata\nx\tres\t0x70\n";
    struct Case {
        const char *what;
        std::vector<std::pair<std::string, std::string>> files;  // the first ones with .asm are the project's
        std::string message;                                     // that is clicked
        std::string file;
        int line;
    };
    const std::string head = kHead;
    const Case cases[] = {
        {"an error", {{"main.asm", head + "\tcode\nmain\tmovlq\t1\n\tend\n"}}, "Error[181]", "main.asm", 3},
        {"a warning", {{"main.asm", head + "\tcode\nmain\tmovlw\t0x1FF\n\tend\n"}}, "Warning[202]", "main.asm", 3},
        {"a message",
         {{"main.asm", head + "\tcode\nmain\tmessg\t\"look\"\n\tnop\n\tend\n"}},
         "Message[301]",
         "main.asm",
         3},
        {"in an include",
         {{"main.asm", head + "\tinclude \"inc/my own.inc\"\n\tcode\nmain\tnop\n\tend\n"},
          {"inc/my own.inc", "A\tequ\t1\nA\tequ\t2\n"}},
         "Error[1",
         "my own.inc",
         2},
        {"in a sub directory with a blank",
         {{"main.asm", kGoodSource}, {"sub dir/second one.asm", head + "\n\n\tcode\nsecond\tmovlq\t1\n\tend\n"}},
         "Error[181]",
         "second one.asm",
         5},
        {"a name with brackets",
         {{"main (old).asm", head + "\tcode\nmain\tmovlq\t1\n\tend\n"}},
         "Error[181]",
         "main (old).asm",
         3},
        {"a name that isn't ASCII",
         {{"gr\xC3\xBC\xC3\x9F.asm", head + "\tcode\nmain\tmovlq\t1\n\tend\n"}},
         "Error[181]",
         "gr\xC3\xBC\xC3\x9F.asm",
         3},
        {"a name like a message",
         {{"error.asm", head + "\tcode\nmain\tmovlq\t1\n\tend\n"}},
         "Error[181]",
         "error.asm",
         3},
        {"a missing include",
         {{"main.asm", head + "\tinclude \"nowhere.inc\"\n\tcode\nmain\tnop\n\tend\n"}},
         "Error[105]",
         "main.asm",
         2},
        {"a symbol that no object has",
         {{"main.asm", head + "\textern\tzip\n\tcode\nmain\tnop\n\tcall\tzip\n\tend\n"}},
         "Missing definition",
         "main.asm",
         5},
        {"a symbol that two objects have",
         {{"main.asm", head + "\tcode\nmain\tnop\n\tglobal main\n\tend\n"},
          {"other.asm", head + "\n\tcode\nmain\tnop\n\tglobal main\n\tend\n"}},
         "Duplicate symbol",
         "other.asm",
         4},
        {"a section without room",
         {{"main.asm", head + crowded + "\tcode\nmain\tnop\n\tend\n"}},
         "No target memory",
         "main.asm",
         2},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<std::string> sources;
        for (const auto &[name, text] : c.files) {
            scratch.Write(std::string("demo/") + name, text);
            if (!name.ends_with(".asm")) continue;
            sources.push_back(name);
            std::ranges::replace(sources.back(), '/', '\\');
        }
        WriteProject("demo/demo.__c", sources);
        Start("demo/demo.__c");
        ASSERT_TRUE(program->Build());
        const int index = LineWith(c.message);
        ASSERT_GE(index, 0) << program->BuildText();
        DoubleClickLine(index);
        EXPECT_EQ(program->ActiveFile(), c.file) << program->BuildText();
        EXPECT_EQ(SelectedLine(), c.line) << program->BuildText();

        // And so does the command, from the top of the list; the first message can be another one's.
        program->App().CloseAllDocuments();
        program->Frame().OutputBar().BuildList().SetCurSel(0);
        program->Command(ID_NEXT_MESSAGE);
        program->Settle();
        EXPECT_NE(program->ActiveView(), nullptr) << program->BuildText();
        program.reset();
        std::filesystem::remove_all(scratch.Path() / "demo");
    }
}

TEST_F(BuildProgram, NextMessageGoesThroughAllMessagesAndRound) {
    WriteProject("demo/demo.__c", {"a.asm", "b.asm"});
    const std::string head = kHead;
    scratch.Write("demo/a.asm", head + "\tcode\nmain\tmovlq\t1\n\tnop\n\tmovlq\t2\n\tend\n");
    scratch.Write("demo/b.asm", head + "\tcode\nother\tmovlq\t3\n\tend\n");
    Start("demo/demo.__c");
    ASSERT_TRUE(program->Build());
    program->Frame().OutputBar().BuildList().SetCurSel(0);
    std::vector<std::string> places;
    for (int i = 0; i < 4; ++i) {
        program->Command(ID_NEXT_MESSAGE);
        program->Settle();
        places.push_back(program->ActiveFile() + ":" + std::to_string(SelectedLine()));
    }
    EXPECT_EQ(places[0], places[3]) << program->BuildText();
    std::ranges::sort(places.begin(), places.begin() + 3);
    EXPECT_EQ(std::vector<std::string>(places.begin(), places.begin() + 3),
              (std::vector<std::string>{"a.asm:3", "a.asm:5", "b.asm:3"}));

    // The output bar's other two commands.
    program->Command(ID_OUTPUT_CLEAR);
    EXPECT_TRUE(program->BuildLines().empty());
    EXPECT_FALSE(program->IsEnabled(ID_NEXT_MESSAGE));
}

TEST_F(BuildProgram, LinesThatLeadNowhereDoNothing) {
    WriteDemo();
    scratch.Write("demo/readme", "x\n");
    Start("demo/demo.__c");
    ASSERT_TRUE(program->Build());
    program->App().AddOutputLine(nullptr);
    for (const char *line : {"readme: error", "gone.asm(3): error", "error gone.asm(3): text", "Debug(1): a directory",
                             "", "line 3: no file above", "warning: unused"})
        program->App().AddOutputLine(line);
    for (int i = 0; i < static_cast<int>(program->BuildLines().size()); ++i) DoubleClickLine(i);
    EXPECT_EQ(program->ActiveView(), nullptr);

    // A line beyond the end of a file, or none, opens the file all the same.
    for (const char *line : {"main.asm(99999): error", "main.asm(0): error", "main.asm(): error", "main.asm(-5): x"}) {
        program->App().AddOutputLine(line);
        DoubleClickLine(static_cast<int>(program->BuildLines().size()) - 1);
        EXPECT_EQ(program->ActiveFile(), "main.asm") << line;
        program->App().CloseAllDocuments();
    }
}

}  // namespace
