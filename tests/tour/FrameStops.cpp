// The frame: tabs, bars put elsewhere and back, and every entry of every menu.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <set>

#include "Stops.h"
#include "Tour.h"
#include "build/OutputBar.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "framework/MDIChildWnd.h"
#include "framework/Text.h"
#include "navigation/WorkspaceBar.h"

namespace {

// What only a debug run has.
const std::set<int> kOfDebugRuns = {ID_DEBUG_RESET, ID_DEBUG_POWER_ON_RESET, ID_DEBUG_PROFILING, ID_DEBUG_SNAPSHOT};

class CMenuWalk {
public:
    CMenuWalk(CTour &tour, CProgram &program) : tour_(tour), program_(program) {}

    void Visit(QMenu &menu, const std::string &name) {
        menu.popup(QPoint(0, 0));
        QApplication::processEvents();
        tour_.PictureOf(menu, "menu-" + name);
        for (QAction *entry : menu.actions()) {
            if (entry->isSeparator()) continue;
            const std::string text = FromQString(entry->text().section('\t', 0, 0).remove('&'));
            if (entry->menu())
                Visit(*entry->menu(), name + "-" + Slug(text));
            else
                CheckEntry(*entry, text);
        }
        menu.hide();
    }

private:
    void CheckEntry(const QAction &entry, const std::string &text) {
        const int command = entry.data().toInt();
        CCmdUI ui(command);
        const bool handled = program_.Frame().OnCmdMsg(command, &ui);
        tour_.Check(handled || kOfDebugRuns.contains(command) || command == ID_PLUGIN_NONE,
                    "the menu entry '" + text + "' has an effect");
        tour_.Say("  " + text + (entry.isEnabled() ? "" : "  (off)"));
    }

    static std::string Slug(std::string text) {
        for (char &c : text) c = std::isalnum(static_cast<unsigned char>(c)) ? c : '-';
        return text;
    }

    CTour &tour_;
    CProgram &program_;
};

void OpenSources(CTour &tour, CProgram &program, const CScratch &scratch) {
    for (const char *source : {"blink/timer.asm", "blink/led.asm", "blink/main.asm"})
        tour.Check(program.App().FindOrOpenDocument(scratch.Windows(source), true), "the source opens");
}

}  // namespace

void ArrangeTheFrame(CTour &tour) {
    CScratch scratch;
    scratch.CopyExample("blink");
    {
        CProgram program(scratch, {scratch.Native("blink/blink.__c")});
        tour.Say("Arrange the frame");
        tour.Check(program.Start(), "the program starts");
        program.Frame().resize(1240, 800);
        tour.Check(program.Build(), "the build ends");
        OpenSources(tour, program, scratch);
        program.Command(ID_WINDOW_TILE_HORZ);
        tour.Picture(program, "tiled");
        program.Command(ID_WINDOW_CASCADE);
        tour.Picture(program, "cascaded");
        program.ActiveView()->GetParentFrame()->showMaximized();
        program.Command(ID_TABS_BOTTOM);
        program.Command(ID_VIEW_LISTING_BAR);
        program.Command(ID_VIEW_REGISTER_BAR);
        program.Frame().addDockWidget(Qt::RightDockWidgetArea, &program.Frame().WorkspaceBar());
        tour.Picture(program, "arranged");
        tour.Check(program.Close(), "the program closes");
    }
    CProgram program(scratch);
    tour.Say("Find it again at the next start");
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1240, 800);
    CMainFrame &frame = program.Frame();
    tour.Check(frame.dockWidgetArea(&frame.WorkspaceBar()) == Qt::RightDockWidgetArea,
               "the workspace bar is at the right");
    tour.Check(!frame.ListBar().isHidden(), "the listing is still shown");
    OpenSources(tour, program, scratch);
    tour.Picture(program, "arranged-again");
    program.Command(ID_RESET_BARS);
    tour.Check(frame.dockWidgetArea(&frame.WorkspaceBar()) == Qt::LeftDockWidgetArea, "the workspace bar is back");
    tour.Picture(program, "reset");
    tour.Check(program.Unexpected().empty(), "no box came up");
}

void LookIntoTheMenus(CTour &tour) {
    CScratch scratch;
    scratch.CopyExample("blink");
    CProgram program(scratch, {scratch.Native("blink/blink.__c")});
    tour.Say("Look into the menus");
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1240, 800);
    OpenSources(tour, program, scratch);
    CMenuWalk walk(tour, program);
    for (const QAction *top : program.Frame().menuBar()->actions())
        if (top->menu()) walk.Visit(*top->menu(), FromQString(top->text().remove('&')));
}
