#include "bench/DebugWindow.h"

#include <QCoreApplication>

#include "bench/Measure.h"
#include "debugger/DebugBar.h"
#include "debugger/DebugBars.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "editor/ViewSetup.h"
#include "framework/MessageTarget.h"
#include "support/Program.h"

namespace {

bool ShowsExecution(CProgram &program) {
    const CIDEView *view = program.ActiveView();
    return view && view->Send(SCI_MARKERNEXT, 0, 1 << kMarkerExecution) >= 0;
}

}  // namespace

bool Stands(CProgram &program) {
    return (!program.App().session.IsOpen() || program.App().session.IsStanding()) && WaitingMessages() == 0;
}

void StartDebugRun(CProgram &program) {
    program.Command(ID_DEBUG_START);
    TurnEventsUntil([&] { return Stands(program) && ShowsExecution(program); });
}

void ShowAllBars(CProgram &program) {
    CMainFrame &frame = program.Frame();
    const DebugBars &bars = frame.DebugBars();
    const std::initializer_list<CDockBar *> all = {bars.registers, bars.stack,   bars.ram,        bars.eeprom,
                                                   bars.watch,     bars.profile, &frame.ListBar()};
    for (CDockBar *bar : all) {
        frame.addDockWidget(Qt::RightDockWidgetArea, bar, Qt::Horizontal);
        bar->show();
    }
    QCoreApplication::processEvents();
    for (const CDockBar *bar : all) Require(bar->IsShowing(), "a bar isn't to be seen");
}
