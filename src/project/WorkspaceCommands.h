// The commands that make, open and change the workspace: their dialogs and questions.
#pragma once

#include <string>

#include "framework/CmdTarget.h"

class CWorkspaceController;

// Main thread.
class CWorkspaceCommands : public CCmdTarget {
public:
    explicit CWorkspaceCommands(CWorkspaceController &controller);

private:
    void MapWorkspaceCommands();
    void MapProjectCommands();

    void NewWorkspace();
    void OpenWorkspaceOrProject();
    void OpenProject();
    void OpenProjectInto();
    void NewProject();
    void NewProjectInto();
    void AddExistingProjects();
    void RemoveActiveProject();

    CWorkspaceController &controller_;
};
