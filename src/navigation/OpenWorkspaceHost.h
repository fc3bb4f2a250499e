// The project tree's way to the open workspace and to the commands on it.
#pragma once

#include "navigation/WorkspaceBarHost.h"

class CProject;

class COpenWorkspaceHost : public CWorkspaceBarHost {
 public:
    bool IsOpen() const override;
    bool HoldsManyProjects() const override;
    std::vector<ProjectEntry> Projects() const override;
    std::optional<ProjectEntry> Project(const std::string &name) const override;
    std::string ProjectPath(const std::string &name) const override;
    FileEntry File(const std::string &project, const std::string &file) const override;
    ProjectEntry Outputs(const std::string &project) const override;
    std::string ActiveProject() const override;

    void OpenFile(const std::string &file) override;
    void ActivateProject(const std::string &project) override;
    void RemoveProject(const std::string &project) override;
    void AskForFiles(const std::string &project) override;
    void AskForNewFile(const std::string &project) override;
    void AddFiles(const std::string &project, const std::vector<std::string> &files) override;
    void RemoveFile(const std::string &project, const std::string &file) override;
    void ShowMenu(int resource, const QPoint &at, CCmdTarget &target) override;

 private:
    static void ReadOutputs(CProject &project, ProjectEntry &entry);
};
