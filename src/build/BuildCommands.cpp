// The commands of building: who runs them and when they are on.
#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "build/BuildDriver.h"
#include "build/OutputBar.h"
#include "build/StepName.h"
#include "framework/Language.h"
#include "project/CurrentWorkspace.h"
#include "project/Toolsuite.h"
#include "project/Workspace.h"

namespace {

constexpr int kLastToolStep = ID_TOOL_STEPS + 47;
constexpr const char *kRebuild = "-a all", *kClean = "clean";

struct StandardCommand {
    CBuildDriver::StandardStep step;
    int run, stop;
};
constexpr StandardCommand kStandardCommands[] = {
    {CBuildDriver::kFirstStep, ID_STEP_FIRST_RUN, ID_STEP_FIRST_STOP},
    {CBuildDriver::kSecondStep, ID_STEP_SECOND_RUN, ID_STEP_SECOND_STOP},
    {CBuildDriver::kThirdStep, ID_STEP_THIRD_RUN, ID_STEP_THIRD_STOP},
    {CBuildDriver::kFourthStep, ID_STEP_FOURTH_RUN, ID_STEP_FOURTH_STOP},
    {CBuildDriver::kFifthStep, ID_STEP_FIFTH_RUN, ID_STEP_FIFTH_STOP},
};
constexpr int kStandardNames[CBuildDriver::kStandardSteps] = {IDS_STEP_FIRST, IDS_STEP_SECOND, IDS_STEP_THIRD,
                                                              IDS_STEP_FOURTH, IDS_STEP_FIFTH};

}  // namespace

void CBuildDriver::MapCommands() {
    const auto canBuild = [this](CCmdUI &ui) { ui.Enable(CanBuild()); };
    const auto canBuildAll = [this](CCmdUI &ui) { ui.Enable(CanBuildAll()); };
    // The buttons end a debug run first.
    const auto canEnd = [this](CCmdUI &ui) { ui.Enable(IsIdle() && WorkspaceOrNone().GetActiveProject()); };
    const auto canStop = [this](CCmdUI &ui) { ui.Enable(!IsIdle()); };

    const auto map = [this](int id, const std::function<void()> &build, const auto &update) {
        OnCommand(id, [this, id, build] { RunWithoutSession(id, build); }, update);
    };
    map(ID_BUILD, [this] { BuildActive(BuildArguments(), false); }, canBuild);
    map(ID_REBUILD, [this] { BuildActive(kRebuild, false); }, canBuild);
    map(ID_REBUILD_BUTTON, [this] { BuildActive(kRebuild, false); }, canEnd);
    map(ID_CLEAN, [this] { BuildActive(kClean, true); }, canBuild);

    map(ID_BUILD_ALL, [this] { BuildAll(BuildArguments(), false); }, canBuildAll);
    map(ID_REBUILD_ALL, [this] { BuildAll(kRebuild, false); }, canBuildAll);
    map(ID_REBUILD_ALL_BUTTON, [this] { BuildAll(kRebuild, false); }, canEnd);
    map(ID_CLEAN_ALL, [this] { BuildAll(kClean, true); }, canBuildAll);

    OnCommandRange(
        ID_TOOL_STEPS, kLastToolStep,
        [this](int id) { RunWithoutSession(id, [this, id] { RunToolStep(id - ID_TOOL_STEPS); }); },
        [this](CCmdUI &ui) { ui.Enable(CanBuild() && ui.id - ID_TOOL_STEPS < WorkspaceOrNone().GetToolsNumber()); });
    for (const StandardCommand &command : kStandardCommands) {
        const StandardStep step = command.step;
        map(command.run, [this, step] { RunStandardStep(step); },
            [this, step](CCmdUI &ui) { ui.Enable(CanBuild() && standardSteps_[step] >= 0); });
        OnCommand(command.stop, [this] { StopBuild(); }, canStop);
    }
    OnCommand(ID_BUILD_STOP, [this] { StopBuild(); }, canStop);
}

bool CBuildDriver::OnCmdMsg(int id, CCmdUI *ui) {
    if (CCmdTarget::OnCmdMsg(id, ui)) return true;
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    return frame && frame->OutputBar().OnCmdMsg(id, ui);
}

void CBuildDriver::RunWithoutSession(int id, const std::function<void()> &build) {
    CDebugSession &session = CIDEApp::Get().session;
    if (session.IsRunning())
        session.StopFor({kMsgBuildBehindStop, id, 0});
    else
        CIDEApp::Get().ReplayCommand(id, build);
}

// The user has asked for the build already, so the run ends without a question.
void CBuildDriver::BuildBehindStop(int id) {
    CIDEApp::Get().session.End();
    OnCmdMsg(id, nullptr);
}

bool CBuildDriver::CanBuild() const {
    const CIDEApp &app = CIDEApp::Get();
    return IsIdle() && !app.session.IsOpen() && !app.GetActiveProjectPath().empty();
}

bool CBuildDriver::CanBuildAll() const {
    const CIDEApp &app = CIDEApp::Get();
    if (!CanBuild()) return false;
    return app.WorkspaceKind() == kWorkspaceMultiple ? !app.GetWorkspacePath().empty()
                                                     : app.WorkspaceKind() == kWorkspaceStandAlone;
}

void CBuildDriver::BuildActive(const std::string &arguments, bool clean) {
    BuildProject(CIDEApp::Get().GetActiveProjectPath(), arguments, clean, true);
}

// Queues the steps of all projects before the first child has written a line. A later project that has no steps tells
// why and is passed over; without a first one nothing runs that would come to the others.
void CBuildDriver::BuildAll(const std::string &arguments, bool clean) {
    bool first = true;
    for (const auto &project : WorkspaceOrNone().GetProjects()) {
        const bool queued = BuildProject(project->GetFullPath(), arguments, clean, first);
        if (first && !queued) return;
        first = false;
    }
}

void CBuildDriver::RunStandardStep(StandardStep step) {
    CIDEApp &app = CIDEApp::Get();
    if (step != kFifthStep) {
        RunToolStep(standardSteps_[step]);
        return;
    }
    if (!CheckSableProject(app.GetActiveProjectPath())) return;
    RunToolStep(standardSteps_[step], LoadText(IDS_STEP_PROJECT, {WorkspaceOrNone().GetProjectFileName()}));
}

void CBuildDriver::LoadBuildToolBar(int resource) {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (!frame) return;
    CXTToolBar &bar = frame->BuildToolBar();
    bar.LoadToolBar(resource);
    FindStandardSteps();
    for (const StandardCommand &command : kStandardCommands) {
        if (standardSteps_[command.step] >= 0) continue;
        bar.DeleteButton(command.run);
        bar.DeleteButton(command.stop);
    }
    CWorkspace &workspace = WorkspaceOrNone();
    const bool hasToolsuite = !workspace.GetToolName().empty();
    if (hasToolsuite && !workspace.HasToolGroup({}, static_cast<int>(ToolsuiteGroup::genMake)))
        bar.DeleteButton(ID_BUILD);
}

void CBuildDriver::FindStandardSteps() {
    standardSteps_.fill(-1);
    CWorkspace &workspace = WorkspaceOrNone();
    const int count = workspace.GetToolsNumber();
    for (int index = 0; index < count; ++index) {
        const std::string name = workspace.GetToolActionName({}, index);
        for (int step = 0; step < kStandardSteps; ++step)
            if (SameStepName(name, LoadText(kStandardNames[step]))) standardSteps_[step] = index;
    }
}
