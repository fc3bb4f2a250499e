// The tabs of the workspace bar in the whole program.
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QUrl>

#include "ProgramTest.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/Text.h"
#include "navigation/BrowseTreeModel.h"
#include "navigation/ProjectTree.h"
#include "navigation/TabBrowseView.h"
#include "navigation/TabTodoView.h"
#include "navigation/WorkspaceBar.h"
#include "project/Project.h"
#include "project/Workspace.h"
#include "widgets/ReportCtrl.h"

class WorkspaceTabsTest : public ProgramTest {
protected:
    using Names = std::vector<std::string>;

    void StartBlink() {
        scratch.CopyExample("blink");
        Start({scratch.Native("blink/blink.__c")});
    }
    CWorkspaceBar &Bar() { return Frame().WorkspaceBar(); }
    CProjectTree &Tree() { return Bar().Tree(); }
    CTabBrowseView &Symbols() { return *Bar().GetView<CTabBrowseView>(); }
    CReportCtrl &Todo() { return Bar().GetView<CTabTodoView>()->Report(); }

    static Names RowsBelow(const QAbstractItemModel &model, const QModelIndex &parent = {}) {
        Names names;
        for (int row = 0; row < model.rowCount(parent); ++row)
            names.push_back(FromQString(model.index(row, 0, parent).data().toString()));
        return names;
    }
    Names Files(const std::string &project) {
        return RowsBelow(Tree().Rows(), Tree().Rows().FindProject(scratch.Windows(project)));
    }
    Names Outputs(const std::string &project) {
        return RowsBelow(Tree().Rows(), Tree().Rows().FindOutputFolder(scratch.Windows(project)));
    }
    void Select(const std::string &project, const std::string &file = {}) {
        const auto kind = file.empty() ? RowKind::project : RowKind::file;
        Tree().setCurrentIndex(Tree().Rows().FindRow(scratch.Windows(project), kind, scratch.Windows(file)));
        ASSERT_TRUE(Tree().currentIndex().isValid()) << project << " " << file;
    }
    void Drop(const Names &names) {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string &name : names) urls << QUrl::fromLocalFile(ToQString(scratch.Native(name)));
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Bar(), &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Bar(), &drop);
        program->Settle();
    }
    intptr_t CaretLine() { return program->ActiveView() ? program->ActiveView()->CaretLine() : -1; }
};

TEST_F(WorkspaceTabsTest, LeadsFromSymbolsToTheirSource) {
    StartBlink();
    Bar().ShowTab(CWorkspaceBar::kTabSymbols);
    const QModelIndex functions = Symbols().Rows().FindGroup("Functions");
    const QModelIndex toggle = Symbols().Rows().FindSymbol(functions, "led_toggle");
    ASSERT_TRUE(toggle.isValid());
    Symbols().setCurrentIndex(toggle);
    // Lines in front of the symbol that came after the index was built.
    scratch.Write("blink/led.asm", ";\n;\n" + scratch.Read("blink/led.asm"));
    QTest::keyClick(&Symbols(), Qt::Key_Return);
    ASSERT_EQ(program->ActiveFile(), "led.asm");
    const std::string text = program->ActiveView()->Sci().GetText();
    size_t at = 0;
    for (intptr_t line = CaretLine(); line > 0; --line) at = text.find('\n', at) + 1;
    EXPECT_TRUE(text.substr(at).starts_with("led_toggle")) << text.substr(at, 40);
}

TEST_F(WorkspaceTabsTest, OpensFilesOrBringsThemToTheFront) {
    StartBlink();
    for (const std::string file : {"led.asm", "main.asm", "led.asm"}) {
        Select("blink/blink.__c", "blink/" + file);
        QTest::keyClick(&Tree(), Qt::Key_Return);
        EXPECT_EQ(program->ActiveFile(), file);
    }
}

TEST_F(WorkspaceTabsTest, KeepsTheGroupingWithTheProject) {
    scratch.CopyExample("");
    scratch.CopyExample("greeting");
    StartBlink();
    EXPECT_EQ(RowsBelow(Symbols().Rows())[0], "Functions");
    program->Command(ID_GROUP_BY_FILE);
    EXPECT_EQ(RowsBelow(Symbols().Rows()), (Names{"board.inc", "led.asm", "main.asm", "timer.asm"}));
    EXPECT_NE(scratch.Read("blink/blink.__c").find("Grouping=2"), std::string::npos);

    scratch.Write("greeting/greeting.__c", scratch.Read("greeting/greeting.__c") + "[Browse]\r\nGrouping=1\r\n");
    ASSERT_TRUE(App().OpenWorkspace(scratch.Windows("examples.__w").c_str(), true));
    EXPECT_EQ(Bar().Grouping(), 2);
    App().workspaces.ActivateProject(App().GetActiveProjectPath(), scratch.Windows("greeting/greeting.__c"));
    EXPECT_EQ(Bar().Grouping(), 1);
    EXPECT_EQ(RowsBelow(Symbols().Rows())[0], "Functions");

    ASSERT_TRUE(App().CloseWorkspace());
    EXPECT_FALSE(program->IsEnabled(ID_GROUP_BY_FILE));
    EXPECT_EQ(Bar().Grouping(), 1);
    EXPECT_EQ(Symbols().Rows().rowCount(), 0);
}

TEST_F(WorkspaceTabsTest, FollowsTheRemarksOfTheProject) {
    scratch.CopyExample("blink");
    scratch.Write("blink/led.asm", scratch.Read("blink/led.asm") + "; todo dim it\n");
    Start({scratch.Native("blink/blink.__c")});
    ASSERT_EQ(Todo().RowCount(), 1);
    CIDEDoc *document = Open("blink/main.asm");
    Edit(document, "; FIXME: at once\n");
    program->Command(ID_FILE_SAVE);
    ASSERT_EQ(Todo().RowCount(), 2);
    EXPECT_EQ(Todo().Row(0).cells, (Names{"FIXME", "at once"}));
    Todo().SelectRow(1);
    QTest::keyClick(&Todo(), Qt::Key_Return);
    EXPECT_EQ(program->ActiveFile(), "led.asm");
    EXPECT_EQ(CaretLine(), program->ActiveView()->Send(SCI_GETLINECOUNT) - 2);
    ASSERT_TRUE(App().CloseWorkspace());
    EXPECT_EQ(Todo().RowCount(), 0);
}

TEST_F(WorkspaceTabsTest, EditsTheListOfOutputs) {
    StartBlink();
    EXPECT_EQ(Outputs("blink/blink.__c"), (Names{"Debug/blink.lst", "Debug/blink.map", "Debug/blink.hex"}));
    Select("blink/blink.__c");
    const auto enter = [this](const QString &list) {
        program->AnswerDialog([list](QWidget &dialog) {
            dialog.findChild<QPlainTextEdit *>()->setPlainText(list);
            auto *ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            QMetaObject::invokeMethod(ok, "click", Qt::QueuedConnection);  // a box can come of it
        });
    };
    enter(QString(1024, 'x'));
    program->Answer(IDOK);  // it is too long
    enter("%config%/%name%.cod,\t%target%.txt\nx.map;");
    EXPECT_TRUE(SendCommand(Tree(), ID_ROW_OUTPUT_LIST));
    EXPECT_EQ(Outputs("blink/blink.__c"), (Names{"Debug/blink.cod", "PIC16F628A.txt", "x.map"}));

    const auto press = [&](QWidget &dialog, int text) {
        for (auto *button : dialog.findChildren<QPushButton *>())
            if (button->text() == ToQString(Text(text))) button->click();
    };
    program->AnswerDialog([&](QWidget &dialog) {
        EXPECT_EQ(dialog.findChild<QPlainTextEdit *>()->toPlainText(), "%config%/%name%.cod,\t%target%.txt;x.map;");
        press(dialog, IDS_OUTPUT_LIST_DEFAULT);
        const QString defaults = dialog.findChild<QPlainTextEdit *>()->toPlainText();
        EXPECT_TRUE(defaults.contains("%name%.hex")) << FromQString(defaults);
        dialog.findChild<QPlainTextEdit *>()->setPlainText(" ;");
        dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    EXPECT_TRUE(SendCommand(Tree(), ID_ROW_OUTPUT_LIST));
    EXPECT_FALSE(Tree().Rows().FindOutputFolder(scratch.Windows("blink/blink.__c")).isValid());
}

TEST_F(WorkspaceTabsTest, BuildsTheProjectOfTheRow) {
    scratch.CopyExample("");
    scratch.CopyExample("blink");
    scratch.CopyExample("greeting");
    Start({scratch.Native("examples.__w")});
    const auto run = [&](int command) {
        Select("greeting/greeting.__c");
        EXPECT_TRUE(SendCommand(Tree(), command));
        EXPECT_TRUE(program->WaitFor([&] { return App().build.IsIdle(); }));
    };
    run(ID_ROW_BUILD);
    EXPECT_TRUE(scratch.Exists("greeting/Debug/greeting.hex")) << program->BuildText();
    EXPECT_FALSE(scratch.Exists("blink/Debug/blink.hex"));
    run(ID_ROW_CLEAN);
    EXPECT_FALSE(scratch.Exists("greeting/Debug/greeting.hex")) << program->BuildText();
    run(ID_ROW_REBUILD);
    EXPECT_TRUE(scratch.Exists("greeting/Debug/greeting.hex")) << program->BuildText();
}

TEST_F(WorkspaceTabsTest, MakesAStoredPathRelative) {
    scratch.CopyExample("blink");
    std::string project = scratch.Read("blink/blink.__c");
    project.replace(project.find("File1=led.asm"), 13, "File1=" + scratch.Windows("blink/led.asm"));
    scratch.Write("blink/blink.__c", project);
    Start({scratch.Native("blink/blink.__c")});
    EXPECT_EQ(Files("blink/blink.__c")[0], scratch.Native("blink/led.asm"));
    Select("blink/blink.__c", "blink/led.asm");
    EXPECT_TRUE(SendCommand(Tree(), ID_ROW_MAKE_RELATIVE));
    EXPECT_EQ(Files("blink/blink.__c"), (Names{"board.inc", "led.asm", "main.asm", "timer.asm", "Output"}));
    EXPECT_EQ(Tree().SelectedFile(), scratch.Windows("blink/led.asm"));
    EXPECT_FALSE(SendCommand(Tree(), ID_ROW_MAKE_RELATIVE));
    EXPECT_TRUE(App().workspace->HasFile({}, "led.asm"));
}

TEST_F(WorkspaceTabsTest, AddsDroppedFilesAndNamesThoseThatAreThere) {
    StartBlink();
    scratch.Write("blink/new.asm", "newcomer\n        return\n        end\n");
    program->Answer(IDOK);
    Drop({"blink/led.asm", "blink/new.asm", "blink/main.asm"});
    ASSERT_EQ(program->Boxes().size(), 1u);
    const std::string box = program->Boxes()[0];
    EXPECT_NE(box.find("led.asm"), std::string::npos);
    EXPECT_NE(box.find("main.asm"), std::string::npos);
    EXPECT_EQ(box.find("new.asm"), std::string::npos);
    EXPECT_EQ(Files("blink/blink.__c"), (Names{"board.inc", "led.asm", "main.asm", "new.asm", "timer.asm", "Output"}));
    EXPECT_TRUE(App().symbols.FindBrowseRecord("newcomer")) << "the index follows";
}

TEST_F(WorkspaceTabsTest, NamesUnreadableEntriesInOneBox) {
    scratch.CopyExample("blink");
    std::string project = scratch.Read("blink/blink.__c");
    project.replace(project.find("Count=4"), 7, "Count=2000000000");
    project.replace(project.find("File1="), 6, "Film1=");
    scratch.Write("blink/blink.__c", project);
    Make({scratch.Native("blink/blink.__c")});
    program->Answer(IDOK);
    ASSERT_TRUE(program->Start());
    EXPECT_TRUE(program->WaitFor([&] { return program->AnswersLeft() == 0; }));
    program->Settle();
    EXPECT_EQ(program->Boxes(), Names{Text(IDS_FILE_ENTRY_UNREADABLE, {"1, 4-4999", "blink.__c"})});
    EXPECT_EQ(Files("blink/blink.__c"), (Names{"board.inc", "main.asm", "timer.asm", "Output"}));
}
