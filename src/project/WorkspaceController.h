// Opening, closing and changing the workspace, with everything on the screen that depends on it.
#pragma once

#include <string>

#include "framework/CmdTarget.h"
#include "project/ProjectCommands.h"

// Main thread. The application asks it for the commands on workspace and projects.
class CWorkspaceController : public CCmdTarget {
public:
    CWorkspaceController();
    bool OnCmdMsg(int id, CCmdUI *ui) override;

    // Opens a workspace file, or a project that stands alone. A null path only sets the labels. False leaves no
    // workspace; the reason stands in the build list.
    bool OpenWorkspace(const char *path, bool multiple);
    bool CloseWorkspace();  // false when the user cancelled a save question; all is then as before

    // `oldFile`: full name of the file of the project that is active so far; may be empty.
    void ActivateProject(const std::string &oldFile, const std::string &name);
    void RefreshAfterProjectChange();
    void AddProjectToWorkspace(const std::string &file);
    void RemoveProjectFromWorkspace(const std::string &project);
    void SelectConfiguration();  // the frame's box was changed

    // A file or directory that the user chose among the recent ones or on the command line: saves and closes what is
    // open, then opens it by its extension.
    bool SwitchWorkspace(const std::string &path);

    bool SetActiveCompiler(const std::string &name) { return projects_.SetActiveCompiler(name); }
    CProjectCommands &Projects() { return projects_; }

private:
    void MapCommands();
    void ShowLabels(bool multiple);
    void ReportLoadFailure();
    void ConfirmTarget();     // asks to change a target that the toolsuite doesn't know
    void FillConfigBox();
    void StoreProjectState(const std::string &projectFile);
    void LoadProjectState();

    void NewWorkspace();
    void OpenWorkspaceOrProject();
    void OpenProject();
    void OpenProjectInto();
    void AddExistingProjects();
    void NewProject();
    void NewProjectInto();
    void RemoveSelectedProject();
    void ActivateSelectedProject();
    bool AskForProject(std::string &path);

    CProjectCommands projects_;
};
