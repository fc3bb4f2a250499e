// Opening, closing and changing the workspace, with everything on the screen that depends on it.
#pragma once

#include <string>

#include "framework/CmdTarget.h"
#include "project/ProjectCommands.h"
#include "project/WorkspaceCommands.h"

class CMainFrame;
class CProject;
class CWorkspace;

enum class SwitchResult { opened, cancelled, failed };

// Main thread. The application asks it for the commands on workspace and projects. Nothing here is called before the
// main frame exists.
class CWorkspaceController : public CCmdTarget {
public:
    CWorkspaceController();
    bool OnCmdMsg(int id, CCmdUI *ui) override;

    // Opens a workspace file, or a project that stands alone, in the place of what is open. A null path only sets the
    // labels. False leaves no workspace, with the reason in the build list; or, when a document can't be saved, all as
    // it was.
    bool OpenWorkspace(const char *path, bool multiple);
    bool CloseWorkspace();  // false when the user cancelled a save question; all is then as before

    // Opens `path` by its extension after the documents were saved and the workspace closed. A file that doesn't exist
    // is made: an empty workspace, or a new project as the user wants it. Cancelled leaves what is open.
    SwitchResult SwitchWorkspace(const std::string &path);

    // `oldFile`: full name of the file of the project that is active so far; may be empty.
    void ActivateProject(const std::string &oldFile, const std::string &name);
    void RefreshAfterProjectChange();
    void AddProjectToWorkspace(const std::string &file);
    void RemoveProjectFromWorkspace(const std::string &project);
    void SelectConfiguration();  // the frame's box was changed

    // Makes a project by dialog and opens it by itself, or adds it to the open workspace. False when none was made.
    bool CreateProject(const std::string &path);
    bool CreateProjectInto(const std::string &path, const std::string &compiler);

    bool SetActiveCompiler(const std::string &name) { return projects_.SetActiveCompiler(name); }
    CProjectCommands &Projects() { return projects_; }

private:
    std::string MakeProject(const std::string &path);  // asks; full name of its file, empty when none was made
    void ShowLabels(bool multiple);
    void ShowNothing();    // no workspace is open
    void ShowWorkspace();  // another one is open
    void ReportLoadFailure(const CWorkspace &workspace);
    void ReportUnreadableFiles(CProject &project);
    void ShowActiveProject();  // its target, compiler and configurations
    void ConfirmTarget();      // asks to change a target that the toolsuite doesn't know
    void FillConfigBox();
    void TakeConfiguration();  // the one that the frame's box shows, into all projects
    void StoreProjectState(const std::string &projectFile);  // what other subsystems keep in it
    void LoadProjectState();                                 // of the active project

    CProjectCommands projects_;
    CWorkspaceCommands commands_;
};
