#include "project/CurrentWorkspace.h"

#include "project/Workspace.h"

boost::shared_ptr<CWorkspace> &CurrentWorkspace() {
    static boost::shared_ptr<CWorkspace> workspace;
    return workspace;
}

CWorkspace &WorkspaceOrNone() {
    static CWorkspace none;
    return CurrentWorkspace() ? *CurrentWorkspace() : none;
}

std::string ActiveProjectPath() {
    const auto project = WorkspaceOrNone().GetActiveProject();
    return project ? project->GetFullPath() : "";
}
