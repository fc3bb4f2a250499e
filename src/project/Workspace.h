// The root of what the user works on: a list of projects, one of them active.
#pragma once

#include <boost/shared_ptr.hpp>
#include <list>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "app/FilePath.h"
#include "app/ProjectDirScope.h"
#include "project/Config.h"
#include "project/Project.h"

class CMessage;

// Kinds of workspace; also CIDEApp::WorkspaceKind.
enum WorkspaceKindValue { kWorkspaceNone = 0, kWorkspaceStandAlone = 1, kWorkspaceMultiple = 2 };

// A project is named by the file name that the workspace stores, or by any other spelling of that file; an empty name
// is the active project. Nobody keeps a project for longer than one operation. Paths are in the Windows form. Main
// thread.
class CWorkspace : public CFilePath {
public:
    explicit CWorkspace(const char *path = nullptr);
    ~CWorkspace() override;
    virtual int Kind() const { return kWorkspaceMultiple; }

    // Loads the project when `load` is set; false when that fails, with nothing added. A project that is there already
    // isn't added again.
    virtual bool AddProject(const std::string &name, bool makeActive, bool load);
    virtual void Save();

    const std::string &GetPath() const { return path_; }
    bool Load(const char *path);  // null: the present path; whole or not at all
    const ProjectLoadFailure &GetLoadFailure() const { return failure_; }  // of the last Load or AddProject

    void RemoveProject(const std::string &name);  // out of the list; the active project stays the active one
    void DropActiveProject() { active_.reset(); }
    bool SetActiveProject(const std::string &name);
    boost::shared_ptr<CProject> FindProject(const std::string &name) const;
    boost::shared_ptr<CProject> GetActiveProject() const { return active_; }
    std::vector<boost::shared_ptr<CProject>> GetProjects() const { return projects_; }
    std::string ProjectFullPath(const std::string &name) const;
    void SetActiveConfig(const std::string &config);  // in every project that has it

    // Runs `operation` on the project, with the workspace's directory as current directory; `neutral` is the answer
    // when there is no such project. Every call below goes this way.
    template <class Result, class Operation>
    Result Call(const std::string &project, Result neutral, Operation operation) const {
        const boost::shared_ptr<CProject> found = FindProject(project);
        if (!found) return neutral;
        const ProjectDirScope scope(path_.empty() ? nullptr : path_.c_str());
        return operation(*found);
    }

    bool HasFile(const std::string &project, const std::string &file) const;
    void AddFile(const std::string &project, const std::string &file);
    bool RemoveFile(const std::string &project, const std::string &file);
    std::vector<std::string> GetFileList(const std::string &project = {}) const;
    std::string GetFileFullPath(const std::string &project, const std::string &file) const;
    CStringList GetSourceFiles(const std::string &project = {}) const;
    std::string GetMakefilePath(const std::string &project = {}) const;
    std::unique_ptr<CMessage> GenMake(const std::string &project, std::string &error, bool clean);
    bool SetActiveDirectory(const std::string &project, const std::string &directory);
    std::string GetActiveDirectory(const std::string &project = {}) const;  // full path, or empty
    bool SetTarget(const std::string &project, const std::string &target);
    std::string GetTarget(const std::string &project = {}) const;
    bool SetCompiler(const std::string &project, const std::string &toolsuite);
    std::string GetCompilerName(const std::string &project = {}) const;  // kFallbackCompiler when there is none
    std::string GetProjectFileName(const std::string &project = {}) const;
    std::vector<boost::shared_ptr<CConfig>> GetConfigs(const std::string &project = {}) const;
    boost::shared_ptr<CConfig> GetActiveConfig(const std::string &project = {}) const;
    std::string GetActiveConfigName(const std::string &project = {}) const;
    std::string GetConfigName(const CConfig *config) const;  // empty without an active project that has it
    std::string GetConfigDir(const CConfig *config) const;

    std::string GetToolName(const std::string &project = {}) const;
    bool HasToolGroup(const std::string &project, int group) const;  // see ToolsuiteGroup
    bool Configure(const std::string &project, QWidget *parent, QWidget **pages, int pageCount);
    int GetExtraBrowseCount(const std::string &project = {}) const;
    std::string GetExtraBrowse(const std::string &project, int index) const;
    int SelectTarget(const std::string &project, QWidget *parent, std::string &target);  // 1 chosen, else 2
    bool IsValidTarget(const std::string &project, const std::string &target) const;
    std::string GetDefaultTarget(const std::string &project = {}) const;  // never empty
    int GetToolsNumber(const std::string &project = {}) const;
    void SetToolActive(const std::string &project, int step, bool active, bool changing);
    bool IsToolActive(const std::string &project, int step) const;
    std::string GetToolActionName(const std::string &project, int step) const;
    std::string GetQuickProjectFilter(const std::string &project = {}) const;
    std::string GetFilterName(const std::string &project = {}) const;
    std::string GetFilterExt(const std::string &project = {}) const;
    std::string GetHeaderExt(const std::string &project = {}) const;
    std::string EmptyHdrContent(const std::string &project, const std::string &title) const;
    std::string EmptySrcContent(const std::string &project, const std::string &title) const;
    std::string GetFileOpenFilter(const std::string &project = {}) const;
    bool WizardSupport(const std::string &project, std::string &library) const;
    void ToolLoaded(const std::string &project = {});
    std::string GenMakeAttr(const std::string &project = {}) const;
    bool GetOutputFiles(const std::string &project, int step, CStringList &files) const;
    bool GetToolCmdLine(const std::string &project, int step, ToolCommand &command) const;
    std::string GetDefOutputFilter(const std::string &project = {}) const;
    bool GetKeywords(const std::string &project, int kind, std::string &keywords) const;
    bool SupportedCodeWindowType(const std::string &project, int type) const;
    void PreprocessListing(const std::string &project, CStringList &sources);

protected:
    void RemoveAllProjects();  // and the active one

private:
    std::string ProjectKey(const std::string &name) const;  // equal for names of one project

    std::vector<boost::shared_ptr<CProject>> projects_;
    boost::shared_ptr<CProject> active_;  // one of the list, or empty
    ProjectLoadFailure failure_;
};
