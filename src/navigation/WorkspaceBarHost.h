// What the views of the workspace bar ask of the program around them.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "navigation/ProjectEntries.h"
#include "navigation/SymbolMaps.h"

class CCmdTarget;
class QPoint;

enum class ProjectBuild { build, rebuild, clean };

// Projects and files are named by full paths in the Windows form, as the entries give them. Main thread.
class CWorkspaceBarHost {
public:
    virtual ~CWorkspaceBarHost() = default;

    // The model
    virtual bool IsOpen() const = 0;                         // a workspace or a stand-alone project is open
    virtual bool HoldsManyProjects() const = 0;              // and projects can be removed from it
    virtual std::vector<ProjectEntry> Projects() const = 0;  // with files and outputs, in the workspace's order
    virtual std::optional<ProjectEntry> Project(const std::string &name) const = 0;  // any spelling of its file
    virtual std::string ProjectPath(const std::string &name) const = 0;              // also of one that has just left
    virtual FileEntry File(const std::string &project, const std::string &file) const = 0;
    virtual ProjectEntry Outputs(const std::string &project) const = 0;  // with its outputs only
    virtual std::string ActiveProject() const = 0;                       // empty when there is none

    // What the user can do in the tree; questions and failures are shown by the program
    virtual void OpenFile(const std::string &file) = 0;
    virtual void ActivateProject(const std::string &project) = 0;
    virtual void RemoveProject(const std::string &project) = 0;
    virtual void AskForFiles(const std::string &project) = 0;  // the add-files dialog
    virtual void AskForNewFile(const std::string &project) = 0;
    virtual void AddFiles(const std::string &project, const std::vector<std::string> &files) = 0;
    virtual void RemoveFile(const std::string &project, const std::string &file) = 0;
    virtual bool CanMakeRelative(const std::string &project, const std::string &file) const = 0;  // as it is spelled
    virtual void MakeRelative(const std::string &project, const std::string &file) = 0;
    virtual void EditOutputs(const std::string &project) = 0;  // by dialog
    virtual bool CanBuild() const = 0;
    virtual void Build(const std::string &project, ProjectBuild kind) = 0;
    virtual void ShowMenu(int resource, const QPoint &at, CCmdTarget &target) = 0;

    // Symbols and remarks
    virtual SymbolMaps &Symbols() = 0;
    virtual void OpenSymbol(const BrowseRecord &record) = 0;
    virtual void OpenLine(const std::string &file, int line) = 0;  // from 1
    virtual void StoreGrouping(int grouping) = 0;                  // in the active project's file
};

// The host that speaks to the application object and the open workspace.
std::unique_ptr<CWorkspaceBarHost> MakeWorkspaceBarHost();
