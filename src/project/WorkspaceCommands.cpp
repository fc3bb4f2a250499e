#include "project/WorkspaceCommands.h"

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "framework/FileDialog.h"
#include "framework/Language.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "project/CurrentWorkspace.h"
#include "project/NewProject.h"
#include "project/Screen.h"
#include "project/Workspace.h"
#include "project/WorkspaceController.h"

namespace {

constexpr const char *kWorkspaceFilter = "Workspace Files(*.__w)|*.__w|All Files(*.*)|*.*|";
constexpr const char *kWorkspaceOrProjectFilter =
    "Workspace & Project Files|*.__w;*.__c|Workspace Files(*.__w)|*.__w|Project Files(*.__c)|*.__c|All Files(*.*)|*.*|";
constexpr const char *kProjectFilter = "Project Files(*.__c)|*.__c|All Files(*.*)|*.*|";
constexpr const char *kProjectOnlyFilter = "Project Files(*.__c)|*.__c|";

std::string WorkspaceDirectory() {
    const std::string preset = GetUserString("Workspace", "Default Workspace Dir", "");
    return preset.empty() ? CPath(GetUserString("Workspace", "Last Workspace", "c:\\")).GetDirectory() : preset;
}

// Where a project dialog starts: the active project's directory when it has none of its own choice yet.
std::string ProjectDirectory() {
    const std::string directory = WorkspaceOrNone().GetActiveDirectory();
    return directory.empty() ? CPath(ActiveProjectPath()).GetDirectory() : directory;
}

bool AskForPath(CFileDialog &dialog, std::string &path) {
    if (!dialog.DoModal(&Frame()) || dialog.paths.empty()) return false;
    path = dialog.paths.front();
    if (path.empty()) Frame().ShowWarning(LoadText(IDS_NAME_EMPTY));
    return !path.empty();
}

bool AskForProject(std::string &path) {
    CFileDialog dialog(CFileDialog::Kind::open);
    dialog.defaultExtension = "__c";
    dialog.filter = kProjectFilter;
    dialog.fileName = WorkspaceOrNone().GetProjectFileName();
    dialog.initialDirectory = ProjectDirectory();
    return AskForPath(dialog, path);
}

bool IsMultiple() {
    return CurrentWorkspace() && CurrentWorkspace()->Kind() == kWorkspaceMultiple;
}

void ShowOpenFailure(const std::string &path) {
    Frame().ShowError(LoadText(IDS_CANT_OPEN_WORKSPACE, {DisplayPath(path)}));
}

}  // namespace

CWorkspaceCommands::CWorkspaceCommands(CWorkspaceController &controller) : controller_(controller) {
    MapWorkspaceCommands();
    MapProjectCommands();
}

void CWorkspaceCommands::MapWorkspaceCommands() {
    OnCommand(ID_WORKSPACE_NEW, [this] { CIDEApp::Get().ReplayCommand(ID_WORKSPACE_NEW, [this] { NewWorkspace(); }); });
    OnCommand(ID_WORKSPACE_OPEN,
              [this] { CIDEApp::Get().ReplayCommand(ID_WORKSPACE_OPEN, [this] { OpenWorkspaceOrProject(); }); });
    OnCommand(
        ID_WORKSPACE_CLOSE,
        [this] { CIDEApp::Get().ReplayCommand(ID_WORKSPACE_CLOSE, [this] { controller_.CloseWorkspace(); }); },
        [](CCmdUI &ui) { ui.Enable(CurrentWorkspace() != nullptr); });
    OnCommand(
        ID_PROJECT_ADD_EXISTING,
        [this] { CIDEApp::Get().ReplayCommand(ID_PROJECT_ADD_EXISTING, [this] { AddExistingProjects(); }); },
        [](CCmdUI &ui) { ui.Enable(IsMultiple()); });
    OnCommand(
        ID_PROJECT_REMOVE, [this] { RemoveActiveProject(); },
        [](CCmdUI &ui) { ui.Enable(IsMultiple() && WorkspaceOrNone().GetActiveProject()); });
}

void CWorkspaceCommands::MapProjectCommands() {
    using Operation = void (CWorkspaceCommands::*)();
    struct {
        int command, twin;
        Operation operation;
        bool intoWorkspace;
    } const commands[] = {
        {ID_PROJECT_OPEN, ID_PROJECT_OPEN_UNCHECKED, &CWorkspaceCommands::OpenProject, false},
        {ID_PROJECT_OPEN_INTO, ID_PROJECT_OPEN_INTO_UNCHECKED, &CWorkspaceCommands::OpenProjectInto, true},
        {ID_PROJECT_NEW, ID_PROJECT_NEW_UNCHECKED, &CWorkspaceCommands::NewProject, false},
        {ID_PROJECT_NEW_INTO, ID_PROJECT_NEW_INTO_UNCHECKED, &CWorkspaceCommands::NewProjectInto, true},
    };
    for (const auto &[command, twin, operation, intoWorkspace] : commands) {
        const Run run = [this, operation = operation] { (this->*operation)(); };
        const Update update = [into = intoWorkspace](CCmdUI &ui) { ui.Enable(!into || IsMultiple()); };
        OnCommand(
            command, [run, twin = twin] { CIDEApp::Get().ReplayCommand(twin, run); }, update);
        OnCommand(twin, run, update);
    }
}

void CWorkspaceCommands::NewWorkspace() {
    CFileDialog dialog(CFileDialog::Kind::save);
    dialog.defaultExtension = "__w";
    dialog.filter = kWorkspaceFilter;
    if (IsMultiple()) dialog.fileName = WorkspaceOrNone().GetFileName();
    dialog.initialDirectory = WorkspaceDirectory();
    std::string path;
    if (!AskForPath(dialog, path) || !MayOverwrite(path) || !controller_.CloseWorkspace()) return;
    if (!CreateFileOrTell(path)) return;
    if (!controller_.OpenWorkspace(path.c_str(), true)) ShowOpenFailure(path);
}

void CWorkspaceCommands::OpenWorkspaceOrProject() {
    CFileDialog dialog(CFileDialog::Kind::open);
    dialog.defaultExtension = "__w";
    dialog.filter = kWorkspaceOrProjectFilter;
    dialog.initialDirectory = WorkspaceDirectory();
    std::string path;
    if (!AskForPath(dialog, path)) return;
    if (!FileExists(path)) {
        Frame().ShowError(LoadText(IDS_NO_SUCH_FILE, {DisplayPath(path)}));
        return;
    }
    if (!controller_.CloseWorkspace()) return;
    if (!controller_.OpenWorkspace(path.c_str(), EqualNoCase(CPath(path).GetExtension(), "__w"))) ShowOpenFailure(path);
}

void CWorkspaceCommands::OpenProject() {
    std::string path;
    if (AskForProject(path) && !controller_.OpenWorkspace(path.c_str(), false)) ShowOpenFailure(path);
}

void CWorkspaceCommands::OpenProjectInto() {
    std::string path;
    if (AskForProject(path)) controller_.AddProjectToWorkspace(path);
}

void CWorkspaceCommands::NewProject() {
    std::string path;
    if (AskForProjectPath(&Frame(), ProjectDirectory(), path)) controller_.CreateProject(path);
}

void CWorkspaceCommands::NewProjectInto() {
    std::string path;
    if (AskForProjectPath(&Frame(), ProjectDirectory(), path))
        controller_.CreateProjectInto(path, WorkspaceOrNone().GetCompilerName());
}

void CWorkspaceCommands::AddExistingProjects() {
    CFileDialog dialog(CFileDialog::Kind::open);
    dialog.defaultExtension = "__c";
    dialog.filter = kProjectOnlyFilter;
    dialog.multiple = true;
    dialog.mustExist = false;
    dialog.initialDirectory = ProjectDirectory();
    if (!dialog.DoModal(&Frame())) return;
    for (const std::string &path : dialog.paths) {
        if (WorkspaceOrNone().FindProject(path))
            Frame().ShowWarning(LoadText(IDS_PROJECT_IN_WORKSPACE, {DisplayPath(path)}));
        else if (FileExists(path))
            controller_.AddProjectToWorkspace(path);
        else
            controller_.CreateProjectInto(path, WorkspaceOrNone().GetCompilerName());
    }
}

void CWorkspaceCommands::RemoveActiveProject() {
    const std::string name = WorkspaceOrNone().GetProjectFileName();
    if (Frame().AskUser(LoadText(IDS_REMOVE_PROJECT_QUESTION, {name})) == IDYES)
        controller_.RemoveProjectFromWorkspace(ActiveProjectPath());
}
