// The workspace bar's way to the open workspace, the symbol index and the commands on them.
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
    bool CanMakeRelative(const std::string &project, const std::string &file) const override;
    void MakeRelative(const std::string &project, const std::string &file) override;
    void EditOutputs(const std::string &project) override;
    bool CanBuild() const override;
    void Build(const std::string &project, ProjectBuild kind) override;
    void ShowMenu(int resource, const QPoint &at, CCmdTarget &target) override;

    SymbolMaps &Symbols() override;
    void OpenSymbol(const BrowseRecord &record) override;
    void OpenLine(const std::string &file, int line) override;
    void StoreGrouping(int grouping) override;

private:
    static void ReadOutputs(CProject &project, ProjectEntry &entry);
};
