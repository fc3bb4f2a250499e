#include "build/BuildDriver.h"

#include <QGuiApplication>
#include <QTimer>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/PathNames.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "build/MakeCommand.h"
#include "build/OutputBar.h"
#include "build/SableCheck.h"
#include "framework/Language.h"
#include "platform/PathCalls.h"
#include "project/Config.h"
#include "project/CurrentWorkspace.h"
#include "project/Project.h"
#include "project/Workspace.h"

namespace {

constexpr int kNoStep = -1;
constexpr const char *kPreBuild = "prebuild.bat", *kPostBuild = "postbuild.bat";

void ShowBuildTab() { CIDEApp::Get().GetMainFrame()->OutputBar().ShowTab(COutputBar::kTabBuild); }

}  // namespace

std::string BuildArguments() {
    return QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier) ? "-a all" : "all";
}

CBuildDriver::CBuildDriver() {
    standardSteps_.fill(kNoStep);
    MapCommands();
}

bool CBuildDriver::IsIdle() const {
    const CIDEApp &app = CIDEApp::Get();
    return !app.redirect.IsBusy() && app.messageList.IsEmpty();
}

bool CBuildDriver::BuildProject(const std::string &project, const std::string &arguments, bool clean, bool first) {
    if (!clean && !CheckSableProject(project)) return false;
    CIDEApp &app = CIDEApp::Get();
    app.AddOutputLine(nullptr);
    if (first) errors_.clear();
    for (const std::string &error : errors_) app.AddOutputLine(error);
    app.AddOutputLine(clean ? LoadText(IDS_CLEAN_START)
                            : LoadText(IDS_BUILD_START, {WorkspaceOrNone().GetProjectFileName(project)}));
    LoadBuildToolBar(IDR_BUILD_RUNNING);
    app.SaveAllDocuments(false);
    ShowBuildTab();

    const bool queued = QueueProjectBuild(clean, project, arguments);
    // While the user was asked about this project, the steps of those before it may have come to their end.
    const bool starts = first || !app.messageList.IsHeadStarted();
    if (!starts) return queued;
    if (queued && app.messageList.StartNext()) return true;
    LoadBuildToolBar(IDR_MAINFRAME);
    app.AddOutputLine(LoadText(IDS_BUILD_FAILED));
    return false;
}

bool CBuildDriver::QueueProjectBuild(bool clean, const std::string &project, const std::string &arguments) {
    const boost::shared_ptr<CWorkspace> workspace = CurrentWorkspace();
    if (!workspace) return false;
    std::string error;
    std::unique_ptr<CMessage> step = workspace->GenMake(project, error, clean);
    if (!error.empty()) TellError(error);
    if (!step) return false;

    if (!clean) AddBatchStep(project, kPreBuild);
    step->command = MakeCommand(workspace->GetMakefilePath(project), workspace->GenMakeAttr(project), arguments);
    CIDEApp::Get().messageList.AddTail(std::move(step));
    if (!clean) AddBatchStep(project, kPostBuild);
    return true;
}

void CBuildDriver::TellError(const std::string &text) {
    errors_.push_back(text);
    CIDEApp::Get().AddOutputLine(text);
}

void CBuildDriver::AddBatchStep(const std::string &project, const std::string &name) {
    const std::string path = CFilePath(project).GetDirectory() + name;
    if (!FileExists(path)) return;
    auto step = std::make_unique<CMessage>(project, kNoStep);
    step->command = QuoteIfBlank(path);
    CIDEApp::Get().messageList.AddTail(std::move(step));
}

bool CBuildDriver::RunToolStep(int index, const std::string &heading) {
    if (!IsIdle()) return false;
    CIDEApp &app = CIDEApp::Get();
    app.AddOutputLine(nullptr);
    if (!heading.empty()) app.AddOutputLine(heading);
    app.SaveAllDocuments(false);
    ShowBuildTab();
    app.messageList.AddTail(std::make_unique<CMessage>(app.GetActiveProjectPath(), index));
    if (!app.messageList.StartNext()) return false;

    constexpr std::pair<StandardStep, int> kForms[] = {
        {kFirstStep, IDR_BUILD_STEP_FIRST},
        {kSecondStep, IDR_BUILD_STEP_SECOND},
        {kFifthStep, IDR_BUILD_STEP_FIFTH},
    };
    for (const auto &[step, form] : kForms)
        if (index == standardSteps_[step]) {
            LoadBuildToolBar(form);
            break;
        }
    return true;
}

void CBuildDriver::StopBuild() {
    CIDEApp &app = CIDEApp::Get();
    app.AddOutputLine(LoadText(IDS_BUILD_STOPPED));
    app.messageList.KeepHeadOnly();
    // The launcher takes its time with a command that ignores the polite signal; the window goes on meanwhile.
    app.redirect.RequestStop();
    QTimer::singleShot(CXRedirect::kStopLimit, app.GetMainFrame(), [&app] { app.redirect.StopIfOverdue(); });
}

bool CBuildDriver::CheckSableProject(const std::string &name) {
    CProject project(name);
    const boost::shared_ptr<CConfig> config = project.FindConfig(WorkspaceOrNone().GetActiveConfigName());
    if (!config) return true;
    const std::string configFile = config->GetFilePath();
    if (!NeedsSableSwitch(project.GetFullPath(), configFile)) return true;

    const std::string title = LoadText(IDS_APP_TITLE) + " " + LoadText(IDS_KIND_WARNING);
    const BoxResult answer = RunMessageBox(CIDEApp::Get().GetMainFrame(), title, LoadText(IDS_RTOS_QUESTION),
                                           BoxIcon::exclamation, BoxButtons::yesNoCancel);
    if (answer == IDCANCEL) return false;
    if (answer == IDYES) AddSableSwitch(configFile);
    EndSableCheck(configFile);
    return true;
}
