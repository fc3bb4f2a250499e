// One build product for one target device: files, toolsuite, target and two configurations.
#pragma once

#include <boost/shared_ptr.hpp>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "app/FilePath.h"
#include "platform/SharedTypes.h"

class CConfig;
class CMessage;
class CToolsuite;
class QWidget;

inline constexpr const char *kNewProjectTarget = "PIC16F628";  // of a new project without another beside it
inline constexpr const char *kFallbackTarget = "PIC16F84";     // where the toolsuite has no answer
inline constexpr const char *kFallbackCompiler = "LarkC";

// Why a project didn't load.
struct ProjectLoadFailure {
    enum class Reason { none, notAProject, toolsuiteMissing, configurationUnknown };

    Reason reason = Reason::none;
    std::string project;  // full path of its file
    std::string detail;   // name of the toolsuite or configuration
};

// The one command of one step, as the toolsuite gives it.
struct ToolCommand {
    CString command, logFile, title;
    CStringList inputs;   // in and out
    CStringList outputs;  // files that must exist afterwards
    CStringList further;  // other files that the step leaves
    int32_t extra = 0;    // for the launcher
};

// A plain data class whose setters write through to the project file at once; a file that can't be written isn't
// noticed. Reached by other subsystems through the workspace's project calls only. Paths are in the Windows form. Main
// thread.
class CProject : public CFilePath {
public:
    // `name`: the stored name, relative to `baseDir`. Makes both output directories where that can be done.
    explicit CProject(const std::string &name, const std::string &baseDir = {});
    ~CProject() override;

    void SetBaseDir(const std::string &directory);
    const std::string &GetBaseDir() const { return baseDir_; }
    const std::string &GetStoredName() const { return path_; }
    std::string GetFullPath() const;
    std::string GetProjectDir() const;  // of the full path, with its trailing separator

    // Reads the file; its file list is then sorted and free of duplicates, here and on disk. False leaves the file as
    // it was, with the reason in GetLoadFailure.
    bool Load();
    bool Save();
    const ProjectLoadFailure &GetLoadFailure() const { return failure_; }

    // The numbers in the file's list without a readable name, rising from 0; once for each Load.
    std::vector<size_t> TakeUnreadableFiles() { return std::exchange(unreadableFiles_, {}); }

    bool SetToolsuite(const std::string &name);  // false when no such toolsuite was discovered
    std::string GetToolsuiteName() const;        // empty without a toolsuite
    const boost::shared_ptr<CToolsuite> &GetToolsuite() const { return toolsuite_; }
    std::string GetCompilerName() const;  // kFallbackCompiler without a toolsuite

    // Configurations; names compare without regard to case.
    boost::shared_ptr<CConfig> FindConfig(const std::string &name) const;
    void AddConfig(const std::string &name, bool makeActive);
    bool SetActiveConfig(const std::string &name);
    const std::vector<boost::shared_ptr<CConfig>> &GetConfigs() const { return configs_; }
    const boost::shared_ptr<CConfig> &GetActiveConfig() const { return activeConfig_; }
    std::string GetActiveConfigName() const;
    std::string GetActiveConfigFile() const;

    // Files. Two names are one file when their full paths are the same but for case and kind of separator.
    const std::vector<std::string> &GetFiles() const { return files_; }
    bool HasFile(const std::string &name) const;
    void AddFile(const std::string &name);     // nothing when the project has it
    bool RemoveFile(const std::string &name);  // false, writing nothing, when it hasn't
    std::string GetFileFullPath(const std::string &name) const;
    CStringList GetSourceFiles() const;  // what goes to the toolsuite: relative, quoted where needed

    bool SetActiveDirectory(const std::string &directory);  // false unless it exists
    const std::string &GetActiveDirectory() const { return activeDirectory_; }
    bool SetTarget(const std::string &name);
    std::string GetTarget() const;  // the toolsuite's default where none is stored

    std::string GetMakefilePath() const;  // relative to the project's directory; empty without a configuration

    // Writes the makefile and returns the step that is to run it; null on failure, with a text for the user in `error`
    // where there is one.
    std::unique_ptr<CMessage> GenMake(std::string &error, bool clean);

    // The toolsuite's entry points, with this project's paths filled in. Without a toolsuite, or where it lacks the
    // entry point: false, 0, empty.
    bool HasToolGroup(int group) const;  // see ToolsuiteGroup
    bool Configure(QWidget *parent, QWidget **pages, int pageCount);
    int GetExtraBrowseCount();
    std::string GetExtraBrowse(int index);
    int SelectTarget(QWidget *parent, std::string &target);  // 1 when the user chose, else 2
    bool IsValidTarget(const std::string &target);
    std::string GetDefaultTarget() const;  // kFallbackTarget without an answer
    int GetToolsNumber();
    void SetToolActive(int step, bool active, bool changing);
    bool IsToolActive(int step);
    std::string GetToolActionName(int step);
    std::string GetQuickProjectFilter();
    std::string GetFilterName();
    std::string GetFilterExt();  // with its dot
    std::string GetHeaderExt();  // with its dot
    std::string EmptyHdrContent(const std::string &title);
    std::string EmptySrcContent(const std::string &title);
    std::string GetFileOpenFilter();
    bool WizardSupport(std::string &library);
    void ToolLoaded();
    std::string GenMakeAttr();
    bool GetOutputFiles(int step, CStringList &files);
    bool GetToolCmdLine(int step, ToolCommand &command);
    std::string GetDefOutputFilter();
    bool GetKeywords(int kind, std::string &keywords);
    bool SupportedCodeWindowType(int type);
    void PreprocessListing(CStringList &sources);

private:
    bool Fail(ProjectLoadFailure::Reason reason, const std::string &detail);
    void LoadFiles();
    void WriteFiles() const;
    bool WriteMakefile(const std::string &path, CStringList &outputs, std::string &error);
    std::string FileKey(const std::string &name) const;  // equal for names of one file
    void RebuildFileKeys();
    std::string StoredFileName(std::string name) const;  // as the project file holds it

    std::string baseDir_;  // directory of the workspace, with its trailing separator
    boost::shared_ptr<CToolsuite> toolsuite_;
    std::vector<boost::shared_ptr<CConfig>> configs_;
    boost::shared_ptr<CConfig> activeConfig_;
    std::vector<std::string> files_;            // as given to AddFile
    std::unordered_set<std::string> fileKeys_;  // of files_
    std::string activeDirectory_;
    std::string target_;
    ProjectLoadFailure failure_;
    std::vector<size_t> unreadableFiles_;
};
