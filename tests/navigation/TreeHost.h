// A program for the workspace bar that keeps its projects in memory and writes down what it was asked to do.
#pragma once

#include <utility>
#include <vector>

#include "framework/CmdTarget.h"
#include "navigation/WorkspaceBarHost.h"

class TreeHost : public CWorkspaceBarHost {
 public:
    std::vector<ProjectEntry> projects;
    std::vector<std::string> calls;  // "name argument ..."
    bool open = true;
    bool many = true;
    bool idle = true;  // no build runs
    SymbolMaps symbols;
    std::vector<int> enabledCommands;  // of the last menu, of those in `askedCommands`
    std::vector<std::string> texts;    // their entries' texts
    std::vector<int> askedCommands;

    ProjectEntry *Find(const std::string &path);

    bool IsOpen() const override { return open; }
    bool HoldsManyProjects() const override { return many; }
    std::vector<ProjectEntry> Projects() const override { return projects; }
    std::optional<ProjectEntry> Project(const std::string &name) const override;
    std::string ProjectPath(const std::string &name) const override { return name; }
    FileEntry File(const std::string &project, const std::string &file) const override;
    ProjectEntry Outputs(const std::string &project) const override;
    std::string ActiveProject() const override;

    void OpenFile(const std::string &file) override { calls.push_back("open " + file); }
    void ActivateProject(const std::string &project) override { calls.push_back("activate " + project); }
    void RemoveProject(const std::string &project) override { calls.push_back("remove project " + project); }
    void AskForFiles(const std::string &project) override { calls.push_back("ask files " + project); }
    void AskForNewFile(const std::string &project) override { calls.push_back("ask new " + project); }
    void AddFiles(const std::string &project, const std::vector<std::string> &files) override;
    void RemoveFile(const std::string &project, const std::string &file) override;
    bool CanMakeRelative(const std::string &, const std::string &file) const override { return file.starts_with('\\'); }
    void MakeRelative(const std::string &project, const std::string &file) override {
        calls.push_back("relative " + project + " " + file);
    }
    void EditOutputs(const std::string &project) override { calls.push_back("outputs " + project); }
    bool CanBuild() const override { return idle; }
    void Build(const std::string &project, ProjectBuild kind) override;
    void ShowMenu(int resource, const QPoint &at, CCmdTarget &target) override;

    SymbolMaps &Symbols() override { return symbols; }
    void OpenSymbol(const BrowseRecord &record) override { calls.push_back("symbol " + record.name); }
    void OpenLine(const std::string &file, int line) override {
        calls.push_back("line " + file + ":" + std::to_string(line));
    }
    void StoreGrouping(int grouping) override { calls.push_back("grouping " + std::to_string(grouping)); }

    std::vector<std::string> TakeCalls() { return std::exchange(calls, {}); }
};

// A project whose file and sources lie in one directory that need not exist.
ProjectEntry MakeProject(const std::string &directory, const std::string &name, bool active,
                         const std::vector<std::string> &files, const std::vector<std::string> &outputs = {});
