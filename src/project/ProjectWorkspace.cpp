#include "project/ProjectWorkspace.h"

bool CProjectWorkspace::AddProject(const std::string &name, bool makeActive, bool load) {
    RemoveAllProjects();
    return CWorkspace::AddProject(name, makeActive, load);
}

void CProjectWorkspace::Save() {
    Call({}, false, [](CProject &project) { return project.Save(); });
}
