// Finding one's way: symbols, jumps and the way back, remarks, the call tree and what functions take.
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>
#include <QTreeView>

#include "Stops.h"
#include "Tour.h"
#include "editor/CodeViewContainer.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "framework/DesktopTheme.h"
#include "framework/Text.h"
#include "navigation/CallTreeView.h"
#include "navigation/FuncInfoView.h"
#include "navigation/OpenSource.h"
#include "navigation/TabBrowseView.h"
#include "navigation/TabTodoView.h"
#include "navigation/WorkspaceBar.h"

namespace {

// The rows of a tree as lines, a blank for each level and " | " between columns.
void TellRows(const QAbstractItemModel &model, const QModelIndex &parent, std::string indent, std::string &text) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        text += indent;
        for (int column = 0; column < model.columnCount(parent); ++column)
            text += (column ? " | " : "") + FromQString(model.index(row, column, parent).data().toString());
        text += "\n";
        TellRows(model, model.index(row, 0, parent), indent + " ", text);
    }
}

template <class View>
View *Find(const QWidget &parent) {
    for (QWidget *child : parent.findChildren<QWidget *>())
        if (auto *view = dynamic_cast<View *>(child)) return view;
    return nullptr;
}

std::string RowsOf(QWidget &view) {
    auto *tree = qobject_cast<QTreeView *>(&view);
    if (!tree) tree = view.findChild<QTreeView *>();
    std::string text;
    if (tree) TellRows(*tree->model(), {}, "", text);
    return text;
}

bool HasRow(const std::string &rows, const std::string &row) {
    return Contains("\n" + rows, "\n" + row + "\n");
}

void PutCaretBehind(CIDEView &view, const std::string &text) {
    view.Send(SCI_GOTOPOS, view.Sci().GetText().find(text) + text.size());
}

// The numbers of one column of a report's rows, added up.
int SumOf(QWidget &view, int column) {
    const QAbstractItemModel &rows = *view.findChild<QTreeView *>()->model();
    int sum = 0;
    for (int row = 0; row < rows.rowCount(); ++row) sum += rows.index(row, column).data().toInt();
    return sum;
}

void LookAtSymbols(CTour &tour, CProgram &program) {
    CWorkspaceBar &bar = program.Frame().WorkspaceBar();
    tour.Say("Look at the symbols by category, then by file");
    bar.ShowTab(CWorkspaceBar::kTabSymbols);
    std::string rows = RowsOf(*bar.GetView<CTabBrowseView>());
    tour.Say(rows);
    for (const char *row : {"Functions", " main", " led_toggle", " timer_take_tick", "Variables", " ticks_left",
                            "Macros", " BLINK_TICKS"})
        tour.Check(HasRow(rows, row), std::string("there is a row '") + row + "'");
    tour.Picture(program, "symbols-by-category");
    program.Command(ID_GROUP_BY_FILE);
    rows = RowsOf(*bar.GetView<CTabBrowseView>());
    tour.Say(rows);
    tour.Check(HasRow(rows, "led.asm") && rows.find("\n led_toggle\n") > rows.find("led.asm\n") &&
                   rows.find("\n led_toggle\n") < rows.find("main.asm\n"),
               "led_toggle stands under its file");
    tour.Picture(program, "symbols-by-file");
    program.Command(ID_GROUP_BY_CATEGORY);
}

void JumpAndComeBack(CTour &tour, CProgram &program) {
    tour.Say("Jump to a definition and come back");
    CIDEView &view = *program.ActiveView();
    PutCaretBehind(view, "call    led_toggle");
    const intptr_t from = view.Send(SCI_GETCURRENTPOS);
    program.Command(ID_GOTO_DEFINITION);
    tour.Check(program.ActiveFile() == "led.asm", "the definition is shown");
    const std::string line = program.ActiveView()->Sci().GetText().substr(
        program.ActiveView()->Send(SCI_POSITIONFROMLINE, program.ActiveView()->CaretLine()));
    tour.Check(line.starts_with("led_toggle"), "at its line");
    tour.Picture(program, "definition");
    program.Command(ID_GO_BACK);
    tour.Check(program.ActiveFile() == "main.asm" && program.ActiveView()->Send(SCI_GETCURRENTPOS) == from,
               "and back where the jump began");
}

// What the menu of a source says of the word at the caret.
void UseTheSourceMenu(CTour &tour, CProgram &program) {
    tour.Say("Open the menu of a source and go where it says");
    CIDEView &view = *program.ActiveView();
    const std::string main = program.ActiveDocument()->GetPathName();
    const intptr_t line = view.CaretLine();
    PutCaretBehind(view, "call    timer_sta");
    QTimer::singleShot(200, [&tour] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        tour.Check(menu, "the menu opens");
        tour.PictureOf(*menu, "source-menu");
        for (QAction *entry : menu->actions()) {
            tour.Say("  " + FromQString(entry->text()));
            if (entry->data().toInt() == ID_VIEW_GOTO_DEFINITION) entry->trigger();
        }
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QCursor::pos());
    QApplication::sendEvent(&view, &event);
    tour.Check(program.ActiveFile() == "timer.asm", "the menu leads to the definition");
    OpenSourceAtLine(main, static_cast<int>(line) + 1);
}

void NoteSomethingToDo(CTour &tour, CProgram &program, const CScratch &scratch) {
    tour.Say("Leave a remark, save, find it in the list");
    CIDEView &view = *program.ActiveView();
    const intptr_t line = view.CaretLine();
    view.Send(SCI_GOTOPOS, view.Send(SCI_GETLINEENDPOSITION, line));
    program.Type("        ; FIXME: blink twice at the start");
    program.Command(ID_FILE_SAVE);
    CWorkspaceBar &bar = program.Frame().WorkspaceBar();
    bar.ShowTab(CWorkspaceBar::kTabTodo);
    const std::string rows = RowsOf(*bar.GetView<CTabTodoView>());
    tour.Say(rows);
    tour.Check(rows == "FIXME | blink twice at the start\n", "the remark is listed");
    tour.Picture(program, "todo");
    tour.Check(Contains(scratch.Read("blink/main.asm"), "FIXME"), "it is in the file");
    bar.ShowTab(CWorkspaceBar::kTabProjects);
}

void LookAtTheCalls(CTour &tour, CProgram &program, const CScratch &scratch) {
    tour.Say("Build, look at the calls and at what functions take");
    tour.Check(program.Build(), "the build ends");
    tour.Say(program.BuildText());
    for (const char *file : {"blink/Debug/blink.tree", "blink/Debug/blink.stat"}) tour.Say(scratch.Read(file));
    CListBar &bar = program.Frame().ListBar();
    program.Command(ID_VIEW_LISTING_BAR);
    auto *calls = Find<CCallTreeView>(bar);
    auto *functions = Find<CFuncInfoView>(bar);
    tour.Check(calls && functions, "the listing bar has both tabs");
    bar.Container().SetActiveTab(calls);
    std::string rows = RowsOf(*calls);
    tour.Say(rows);
    tour.Check(Contains(rows, "main\n  led_start\n  timer_start\n  timer_take_tick\n  led_toggle\n"),
               "the calls of main are those of its source, in their order");
    tour.Picture(program, "call-tree");
    SetDesktopDark(true);
    tour.Picture(program, "call-tree-dark");
    SetDesktopDark(false);

    bar.Container().SetActiveTab(functions);
    rows = RowsOf(*functions);
    tour.Say(rows);
    tour.Picture(program, "functions");
    tour.Check(Contains(program.BuildText(), "Program memory: " + std::to_string(SumOf(*functions, 1)) + " of ") &&
                   Contains(program.BuildText(), "Data memory: " + std::to_string(SumOf(*functions, 2)) + " bytes"),
               "together they take what the linker has given out");
    bar.Container().SetActiveTab(&bar.ListingView());
    program.Command(ID_VIEW_LISTING_BAR);
}

}  // namespace

void FindOnesWay(CTour &tour) {
    CScratch scratch;
    scratch.CopyExample("blink");
    CProgram program(scratch, {scratch.Native("blink/blink.__c")});
    tour.Say("Start on the example project");
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1240, 800);
    tour.Check(program.App().FindOrOpenDocument(scratch.Windows("blink/main.asm"), true), "the source opens");
    LookAtSymbols(tour, program);
    JumpAndComeBack(tour, program);
    UseTheSourceMenu(tour, program);
    NoteSomethingToDo(tour, program, scratch);
    LookAtTheCalls(tour, program, scratch);
    tour.Dialog(program, ID_BROWSE_EXTRA_LOCATIONS, "extra-locations");
    tour.Check(program.Unexpected().empty(), "no box came up");
}
