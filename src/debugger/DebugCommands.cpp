#include "debugger/DebugCommands.h"

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "project/Workspace.h"

CDebugCommands::CDebugCommands() {
    MapStartCommands();
    MapRunCommands();
}

bool CDebugCommands::CanRunOn() {
    const CIDEApp &app = CIDEApp::Get();
    return app.GetMainFrame() && app.GetMainFrame()->ArePluginsReady() && !app.session.IsRunning() &&
           !app.GetActiveProjectPath().empty();
}

void CDebugCommands::MapStartCommands() {
    OnCommand(
        ID_DEBUG_START,
        [this] {
            CDebugSession &session = CIDEApp::Get().session;
            if (session.IsOpen())
                session.End();
            else
                StartRun();
        },
        [](CCmdUI &ui) {
            const CIDEApp &app = CIDEApp::Get();
            ui.Enable(app.GetMainFrame() && app.GetMainFrame()->ArePluginsReady() && !app.GetActiveProjectPath().empty() &&
                      app.build.IsIdle());
        });
    OnCommand(ID_DEBUG_END, [] { CIDEApp::Get().session.End(); },
              [](CCmdUI &ui) { ui.Enable(CIDEApp::Get().session.IsOpen()); });
}

void CDebugCommands::MapRunCommands() {
    for (const int id : {ID_DEBUG_CONTINUE, ID_DEBUG_STEP_INTO, ID_DEBUG_STEP_OVER, ID_DEBUG_STEP_OUT,
                         ID_DEBUG_STEP_BACK})
        OnCommand(
            id,
            [this] {
                if (!CIDEApp::Get().session.IsOpen()) StartRun();
            },
            [](CCmdUI &ui) { ui.Enable(CanRunOn()); });
    OnCommand(ID_DEBUG_STOP, [] { CIDEApp::Get().session.Stop(); },
              [](CCmdUI &ui) { ui.Enable(CIDEApp::Get().session.IsRunning()); });
}

bool CDebugCommands::StartRun() {
    CIDEApp &app = CIDEApp::Get();
    const boost::shared_ptr<CProject> project = app.workspace ? app.workspace->GetActiveProject() : nullptr;
    if (!project) return false;
    const ProjectDirScope scope(app.GetActiveProjectPath());
    app.SaveAllDocuments(false);
    app.AddOutputLine(nullptr);
    app.AddOutputLine(LoadText(IDS_DEBUG_START, {CPath(app.GetActiveProjectPath()).GetTitle()}));
    app.AddOutputLine("");
    return app.debugger.Init(app.workspace->GetTarget());
}
