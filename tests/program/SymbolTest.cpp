// The symbol index as a user meets it: jumps, the way back, extra locations, a tag generator that hangs.
#include <QApplication>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <filesystem>

#include "support/ProgramDirectory.h"
#include "ProgramTest.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/Text.h"
#include "navigation/BrowseNavigation.h"
#include "navigation/OpenSource.h"

namespace {

constexpr const char *kMain =
    "#include \"pump.h\"\r\n"
    "\r\n"
    "int level;\r\n"
    "\r\n"
    "int main(void) {\r\n"
    "    level = pump_speed(LIMIT);\r\n"
    "    return level;\r\n"
    "}\r\n";
constexpr const char *kPump =
    "#include \"pump.h\"\r\n"
    "\r\n"
    "int pump_speed(int request) {\r\n"
    "    return request > LIMIT ? LIMIT : request;\r\n"
    "}\r\n";
constexpr const char *kHeader = "#define LIMIT 40\r\nint pump_speed(int request);\r\nint level(int,\r\n  int);\r\n";

}  // namespace

class SymbolTest : public ProgramTest {
protected:
    void TearDown() override {
        ProgramTest::TearDown();
        unsetenv("TMPDIR");
    }
    void StartProject() {
        WriteProject();
        Start({scratch.Native("p q/tank.__c")});
    }
    void WriteProject() {
        scratch.Write("p q/main.c", kMain);
        scratch.Write("p q/pump.c", kPump);
        scratch.Write("p q/pump.h", kHeader);
        scratch.Write("p q/tank.__c",
                      "[Settings]\r\nActive Compiler=Assembler\r\nActive Config=Debug\r\nTarget=PIC16F628A\r\n"
                      "[Files]\r\nCount=3\r\nFile0=main.c\r\nFile1=pump.c\r\nFile2=pump.h\r\n");
    }
    const SymbolMaps &Maps() { return App().symbols.Maps(); }
    void PutCaret(const std::string &word, int index = 0) {
        CIDEView &view = *program->ActiveView();
        const std::string text = view.Sci().GetText();
        size_t at = text.find(word);
        while (index-- > 0) at = text.find(word, at + 1);
        ASSERT_NE(at, std::string::npos);
        view.Send(SCI_GOTOPOS, at);
    }
    std::string Place() { return program->ActiveFile() + ":" + std::to_string(program->ActiveView()->CaretLine() + 1); }
    // Lets the program make its temporary files where no other's are.
    void KeepTemporariesApart() {
        std::filesystem::create_directory(scratch.Native("tmp"));
        setenv("TMPDIR", scratch.Native("tmp").c_str(), 1);
    }
    bool HasTemporaries() { return !std::filesystem::is_empty(scratch.Native("tmp")); }
};

TEST_F(SymbolTest, KnowsTheProjectsSymbolsAndPrototypes) {
    KeepTemporariesApart();
    StartProject();
    EXPECT_EQ(Maps().Functions.at("pump_speed").file, scratch.Windows("p q/pump.c"));
    EXPECT_EQ(Maps().Functions.at("pump_speed").line, 3);
    EXPECT_EQ(Maps().Variables.at("level").line, 3);
    EXPECT_EQ(Maps().Macros.at("LIMIT").line, 1);
    EXPECT_EQ(Maps().Prototypes.at("pump_speed"), "int pump_speed(int request);");
    EXPECT_FALSE(Maps().Prototypes.contains("level")) << "it doesn't end on its line";
    std::list<std::string> names;
    App().symbols.CollectBrowseNames("l", names);
    EXPECT_EQ(names, std::list<std::string>{"level"});
    EXPECT_TRUE(scratch.Exists("p q/Debug/tank.brws"));
    EXPECT_FALSE(scratch.Exists("p q/tank.proto"));
    EXPECT_FALSE(HasTemporaries());

    scratch.Write("p q/tank.proto", "message Level {}\n");  // the user's own
    App().symbols.UpdateBrowseInfo();
    EXPECT_TRUE(Maps().Prototypes.contains("pump_speed"));
    EXPECT_TRUE(scratch.Exists("p q/tank.proto"));
    EXPECT_FALSE(HasTemporaries());

    program->Command(ID_WORKSPACE_CLOSE);
    EXPECT_TRUE(Maps().Functions.empty() && Maps().Prototypes.empty());
}

TEST_F(SymbolTest, JumpsToDefinitionsAndBack) {
    StartProject();
    CIDEDoc *document = Open("p q/main.c");
    EXPECT_FALSE(program->IsEnabled(ID_GO_BACK));
    PutCaret("pump_speed");
    const intptr_t from = program->ActiveView()->Send(SCI_GETCURRENTPOS);
    program->Command(ID_GOTO_DEFINITION);
    EXPECT_EQ(Place(), "pump.c:3");

    // From the end of a word, too; and where the text has moved since the tags were made.
    ViewOf(document).SendText(SCI_INSERTTEXT, 0, "/* new\r\n lines */\r\n");
    PutCaret(" ? LIMIT :");
    program->Command(ID_GOTO_DEFINITION);
    EXPECT_EQ(Place(), "pump.h:1");
    PutCaret("request");
    program->Command(ID_GOTO_DEFINITION);  // of what the index hasn't got
    EXPECT_EQ(Place(), "pump.h:2");
    program->Command(ID_GO_BACK);
    EXPECT_EQ(Place(), "pump.c:4");
    CIDEDoc *pump = program->ActiveDocument();
    pump->OnSaveDocument(pump->GetPathName());
    program->Command(ID_GO_BACK);
    EXPECT_EQ(program->ActiveView()->Send(SCI_GETCURRENTPOS), from);
    EXPECT_FALSE(program->IsEnabled(ID_GO_BACK));

    BrowseRecord record = Maps().Variables.at("level");
    ShowDefinition(record);
    EXPECT_EQ(Place(), "main.c:5") << "two lines stand before it by now";
    record.file = scratch.Windows("gone.c");
    ShowDefinition(record);
    EXPECT_TRUE(Says(Line(IDS_SYMBOL_NOT_FOUND, {"level"})));
    document->SetModifiedMark(false);
}

TEST_F(SymbolTest, FollowsASavedFileBehindTheUsersBack) {
    StartProject();
    CIDEDoc *document = Open("p q/pump.c");
    ASSERT_EQ(document->functions.size(), 1u);
    Edit(document, "int drain(void) { return 0; }\r\n");
    ASSERT_GT(std::filesystem::remove_all(scratch.Native("p q/Debug")), 0u) << "with what builds left";
    program->Command(ID_FILE_SAVE);
    ASSERT_EQ(document->functions.size(), 2u) << "the document's own functions are there at once";
    EXPECT_TRUE(Maps().Functions.contains("pump_speed")) << "the index of before serves meanwhile";
    EXPECT_TRUE(program->WaitFor([&] { return !App().symbols.IsUpdating(); }));
    EXPECT_TRUE(Maps().Functions.contains("drain"));
    EXPECT_TRUE(Maps().Functions.contains("main"));
    EXPECT_EQ(Maps().Prototypes.size(), 1u);

    // The function menu follows its function through edits after a save, too.
    CIDEView &view = ViewOf(document);
    view.SendText(SCI_INSERTTEXT, 0, "\r\n\r\n");
    program->Command(ID_FUNCTIONS + 1);
    EXPECT_EQ(view.CaretLine(), view.Send(SCI_LINEFROMPOSITION, view.Sci().GetText().find("int pump_speed")));
    program->Command(ID_FILE_SAVE);
    program->Command(ID_WORKSPACE_CLOSE);  // while an update is on its way
    EXPECT_FALSE(App().symbols.IsUpdating());
    EXPECT_TRUE(Maps().Functions.empty());
    EXPECT_FALSE(scratch.Exists("p q/tank.proto"));
}

TEST_F(SymbolTest, TakesExtraLocationsIn) {
    scratch.Write("far away/sensor.h", "#define SENSORS 3\r\n");
    scratch.Write("far away/deep/probe.c", "int probe(void) { return 1; }\r\n");
    std::filesystem::create_directory_symlink(scratch.Native("far away"), scratch.Native("far away/deep/loop"));
    scratch.Write("lone.c", "int lone_wolf;\r\nint level;\r\n");
    StartProject();
    const auto button = [](QWidget &dialog, int text) {
        for (QPushButton *each : dialog.findChildren<QPushButton *>())
            if (FromQString(each->text()) == Text(text)) return each;
        return static_cast<QPushButton *>(nullptr);
    };
    // A button that opens a dialog is pressed once the answer to this one is given.
    const auto press = [&](QWidget &dialog, int text) {
        QMetaObject::invokeMethod(button(dialog, text), "click", Qt::QueuedConnection);
    };
    program->AnswerDialog([&](QWidget &dialog) {
        EXPECT_FALSE(button(dialog, IDS_LOCATION_REMOVE)->isEnabled());
        press(dialog, IDS_LOCATION_ADD_FOLDER);
    });
    program->AnswerFiles({scratch.Native("far away")});
    program->AnswerDialog([&](QWidget &dialog) { press(dialog, IDS_LOCATION_ADD_FILES); });
    program->AnswerFiles({scratch.Native("lone.c")});
    program->AnswerDialog([&](QWidget &dialog) {
        EXPECT_EQ(dialog.findChild<QListWidget *>()->count(), 2);
        dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    program->Command(ID_BROWSE_EXTRA_LOCATIONS);
    EXPECT_EQ(program->AnswersLeft(), 0u);
    EXPECT_TRUE(Maps().Macros.contains("SENSORS"));
    EXPECT_TRUE(Maps().Functions.contains("probe"));
    EXPECT_TRUE(Maps().Variables.contains("lone_wolf"));
    EXPECT_EQ(Maps().Variables.at("level").file, scratch.Windows("lone.c")) << "extra locations win";
    const std::string project = scratch.Read("p q/tank.__c");
    EXPECT_NE(project.find("Brws1=" + scratch.Windows("lone.c")), std::string::npos) << project;

    // A location that has vanished; then none at all, under a count that lies.
    std::filesystem::remove_all(scratch.Native("far away"));
    const auto withCount = [&](const std::string &count) {
        program->AnswerDialog([&, count](QWidget &dialog) {
            auto &list = *dialog.findChild<QListWidget *>();
            EXPECT_EQ(list.currentRow(), 0);
            while (count == "none" && list.count() > 0) button(dialog, IDS_LOCATION_REMOVE)->click();
            dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        });
        program->Command(ID_BROWSE_EXTRA_LOCATIONS);
    };
    withCount("all");
    EXPECT_TRUE(Maps().Variables.contains("lone_wolf"));
    scratch.Write("p q/tank.__c", scratch.Read("p q/tank.__c") + "[Browse]\r\n");
    withCount("none");
    EXPECT_FALSE(scratch.Exists("p q/tank.gbrws"));
    EXPECT_FALSE(Maps().Variables.contains("lone_wolf"));
    EXPECT_EQ(Maps().Variables.at("level").file, scratch.Windows("p q/main.c"));
}

TEST_F(SymbolTest, LetsTheUserEndATagGeneratorThatHangs) {
    WriteProject();
    const OwnProgramDirectory directory(scratch, {"ctags.exe"});
    scratch.Write("program/ctags.exe", "#!/bin/sh\nexec sleep 1000\n");
    std::filesystem::permissions(scratch.Native("program/ctags.exe"), std::filesystem::perms::owner_all);
    Make({scratch.Native("p q/tank.__c")});
    program->Answer(IDYES);
    EXPECT_TRUE(program->Start());
    EXPECT_TRUE(program->WaitFor([&] { return program->AnswersLeft() == 0; })) << "it asks";
    program->Settle();
    EXPECT_TRUE(Says(Line(IDS_CTAGS_ENDED)));
    EXPECT_TRUE(Maps().Functions.empty());
}
