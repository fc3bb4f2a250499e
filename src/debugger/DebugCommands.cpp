#include "debugger/DebugCommands.h"

#include <QApplication>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/ProjectDirScope.h"
#include "editor/ListBar.h"

namespace {

CDebugSession &Session() {
    return CIDEApp::Get().session;
}

bool AreInstructionsStepped() {
    return CIDEApp::Get().GetMainFrame()->ListBar().IsShowing() ||
           QApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
}

void EnableStanding(CCmdUI &ui) {
    ui.Enable(Session().IsStanding());
}

}  // namespace

const CDebugCommands::StepCommand CDebugCommands::kSteps[] = {
    {ID_DEBUG_CONTINUE, StartMode::runAtStart, {"Continue", &EngineCalls::DbgRun}, {"Continue", &EngineCalls::DbgRun}},
    {ID_DEBUG_STEP_INTO,
     StartMode::stopAtMain,
     {"Step Into", &EngineCalls::DbgStepInto},
     {"Step Into", &EngineCalls::DbgStepIntoInstr}},
    {ID_DEBUG_STEP_OVER,
     StartMode::stopAtMain,
     {"Step Over", &EngineCalls::DbgStepOver},
     {"Step Over", &EngineCalls::DbgStepOverInstr}},
    {ID_DEBUG_STEP_OUT,
     StartMode::stopAtMain,
     {"Step Out", &EngineCalls::DbgStepOut},
     {"Step Out", &EngineCalls::DbgStepOut}},
    {ID_DEBUG_STEP_BACK,
     StartMode::stopAtMain,
     {"Step Back", &EngineCalls::DbgStepBack, false},
     {"Step Back", &EngineCalls::DbgStepBack, false}},
};

CDebugCommands::CDebugCommands() {
    MapStartCommands();
    MapRunCommands();
    MapSwitches();
}

bool CDebugCommands::CanRunOn() {
    const CIDEApp &app = CIDEApp::Get();
    return app.GetMainFrame() && app.GetMainFrame()->ArePluginsReady() &&
           (app.session.IsStanding() ||
            (!app.session.IsOpen() && app.build.IsIdle() && !app.GetActiveProjectPath().empty()));
}

bool CDebugCommands::Continue() {
    if (!CanRunOn()) return false;
    const ProjectDirScope scope(CIDEApp::Get().GetActiveProjectPath());
    return Run(kSteps[0]);
}

bool CDebugCommands::Run(const StepCommand &command) {
    CDebugSession &session = Session();
    if (!session.IsOpen()) return session.Start(command.start);
    return session.Go(AreInstructionsStepped() ? command.byInstruction : command.byLine);
}

void CDebugCommands::MapStartCommands() {
    OnCommand(
        ID_DEBUG_START,
        [] {
            if (Session().IsOpen())
                Session().End();
            else
                Session().Start(StartMode::stopAtMain);
        },
        [](CCmdUI &ui) {
            const CIDEApp &app = CIDEApp::Get();
            ui.Enable(app.GetMainFrame() && app.GetMainFrame()->ArePluginsReady() &&
                      !app.GetActiveProjectPath().empty() && app.build.IsIdle());
        });
    OnCommand(ID_DEBUG_END, [] { Session().End(); });
}

void CDebugCommands::MapRunCommands() {
    for (const StepCommand &command : kSteps)
        OnCommand(
            command.id, [this, &command] { Run(command); }, [](CCmdUI &ui) { ui.Enable(CanRunOn()); });
    const struct {
        int id;
        RunCommand command;
    } resets[] = {
        {ID_DEBUG_RESET, {"Reset", &EngineCalls::DbgReset}},
        {ID_DEBUG_POWER_ON_RESET, {"Power on Reset", &EngineCalls::DbgPowerOnReset}},
    };
    for (const auto &[id, command] : resets)
        OnCommand(
            id, [command = command] { Session().Go(command); }, EnableStanding);
    OnCommand(
        ID_DEBUG_STOP, [] { Session().Stop(); }, [](CCmdUI &ui) { ui.Enable(Session().IsRunning()); });
}

void CDebugCommands::MapSwitches() {
    OnCommand(
        ID_DEBUG_PROFILING, [] { Session().ToggleProfiling(); },
        [](CCmdUI &ui) {
            ui.Enable(Session().IsOpen());
            ui.SetCheck(Session().IsOpen() && Session().IsProfiling());
        });
    OnCommand(
        ID_DEBUG_SNAPSHOT, [] { Session().ToggleSnapshot(); },
        [](CCmdUI &ui) {
            ui.Enable(Session().IsOpen());
            ui.SetCheck(Session().IsOpen() && Session().IsSnapshotOn());
        });
}
