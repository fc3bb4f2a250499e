#include "project/NewProject.h"

#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/StringIds.h"
#include "framework/FileDialog.h"
#include "framework/Language.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "project/CurrentWorkspace.h"
#include "project/NewProjectDlg.h"
#include "project/Screen.h"
#include "project/Workspace.h"

namespace {

constexpr const char *kProjectFilter = "Project Files(*.__c)|*.__c|All Files(*.*)|*.*|";

// Makes one first file of the project and adds it, unless the user keeps what lies there.
void AddFirstFile(CWorkspace &workspace, const CPath &project, const std::string &extension, const std::string &text) {
    const std::string name = project.GetTitle() + extension;
    const std::string path = project.GetDirectory() + name;
    if (!MayOverwrite(path)) return;
    if (workspace.HasFile({}, name)) Frame().ShowWarning(LoadText(IDS_FILE_IN_PROJECT, {DisplayPath(name)}));
    if (CreateFileOrTell(path, text)) workspace.AddFile({}, name);
}

}  // namespace

bool AskForProjectPath(QWidget *parent, const std::string &directory, std::string &path) {
    CFileDialog dialog(CFileDialog::Kind::save);
    dialog.defaultExtension = "__c";
    dialog.filter = kProjectFilter;
    dialog.initialDirectory = directory;
    if (!dialog.DoModal(parent) || dialog.paths.empty()) return false;
    path = dialog.paths.front();
    return !path.empty();
}

bool AddNewProject(CWorkspace &workspace, const std::string &path, QWidget *parent, const std::string &compiler) {
    const CPath project(path);
    if (workspace.FindProject(path)) {
        Frame().ShowWarning(LoadText(IDS_PROJECT_IN_WORKSPACE, {DisplayPath(path)}));
        return false;
    }
    WorkspaceOrNone().SetActiveDirectory({}, project.GetDirectory());
    if (!MayOverwrite(path)) return false;
    CNewProjectDlg dialog(parent, compiler);
    if (dialog.exec() != QDialog::Accepted || !CreateFileOrTell(path)) return false;

    const std::string target = WorkspaceOrNone().GetTarget();
    if (!workspace.AddProject(path, true, false)) {
        Frame().ShowError(LoadText(IDS_CANT_ADD_PROJECT, {DisplayPath(path)}));
        return false;
    }
    if (!target.empty()) workspace.SetTarget({}, target);
    if (!workspace.SetCompiler({}, dialog.GetCompiler()))
        Frame().ShowError(LoadText(IDS_CANT_SET_COMPILER, {dialog.GetCompiler()}));

    const std::string title = project.GetTitle();
    if (dialog.GetKind() >= 1)
        AddFirstFile(workspace, project, workspace.GetFilterExt(), workspace.EmptySrcContent({}, title));
    if (dialog.GetKind() >= 2)
        AddFirstFile(workspace, project, workspace.GetHeaderExt(), workspace.EmptyHdrContent({}, title));
    workspace.Call({}, false, [](CProject &found) { return found.Save(); });
    return true;
}
