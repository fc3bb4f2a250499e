// The project calls: each runs one operation of a project, or gives its neutral result where there is none.
#include <algorithm>

#include "build/Message.h"
#include "platform/PathCalls.h"
#include "project/Workspace.h"

bool CWorkspace::HasFile(const std::string &project, const std::string &file) const {
    return Call(project, false, [&](CProject &found) { return found.HasFile(file); });
}

void CWorkspace::AddFile(const std::string &project, const std::string &file) {
    Call(project, false, [&](CProject &found) { return found.AddFile(file), true; });
}

bool CWorkspace::RemoveFile(const std::string &project, const std::string &file) {
    return Call(project, false, [&](CProject &found) { return found.RemoveFile(file); });
}

std::vector<std::string> CWorkspace::GetFileList(const std::string &project) const {
    return Call(project, std::vector<std::string>(), [](CProject &found) { return found.GetFiles(); });
}

std::string CWorkspace::GetFileFullPath(const std::string &project, const std::string &file) const {
    return Call(project, std::string(), [&](CProject &found) { return found.GetFileFullPath(file); });
}

CStringList CWorkspace::GetSourceFiles(const std::string &project) const {
    return Call(project, CStringList(), [](CProject &found) { return found.GetSourceFiles(); });
}

std::string CWorkspace::GetMakefilePath(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetMakefilePath(); });
}

std::unique_ptr<CMessage> CWorkspace::GenMake(const std::string &project, std::string &error, bool clean) {
    return Call(project, std::unique_ptr<CMessage>(), [&](CProject &found) { return found.GenMake(error, clean); });
}

bool CWorkspace::SetActiveDirectory(const std::string &project, const std::string &directory) {
    return Call(project, false, [&](CProject &found) { return found.SetActiveDirectory(directory); });
}

std::string CWorkspace::GetActiveDirectory(const std::string &project) const {
    // A directory that came with the project's name is relative to the workspace, as that name is.
    return Call(project, std::string(), [](CProject &found) {
        const std::string &directory = found.GetActiveDirectory();
        return directory.empty() ? std::string() : GetFullPathNameA(directory);
    });
}

bool CWorkspace::SetTarget(const std::string &project, const std::string &target) {
    return Call(project, false, [&](CProject &found) { return found.SetTarget(target); });
}

std::string CWorkspace::GetTarget(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetTarget(); });
}

bool CWorkspace::SetCompiler(const std::string &project, const std::string &toolsuite) {
    return Call(project, false, [&](CProject &found) { return found.SetToolsuite(toolsuite); });
}

std::string CWorkspace::GetCompilerName(const std::string &project) const {
    return Call(project, std::string(kFallbackCompiler), [](CProject &found) { return found.GetCompilerName(); });
}

std::string CWorkspace::GetProjectFileName(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetFileName(); });
}

std::vector<boost::shared_ptr<CConfig>> CWorkspace::GetConfigs(const std::string &project) const {
    return Call(project, std::vector<boost::shared_ptr<CConfig>>(), [](CProject &found) { return found.GetConfigs(); });
}

boost::shared_ptr<CConfig> CWorkspace::GetActiveConfig(const std::string &project) const {
    return Call(project, boost::shared_ptr<CConfig>(), [](CProject &found) { return found.GetActiveConfig(); });
}

std::string CWorkspace::GetActiveConfigName(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetActiveConfigName(); });
}

std::string CWorkspace::GetToolName(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetToolsuiteName(); });
}

bool CWorkspace::HasToolGroup(const std::string &project, int group) const {
    return Call(project, false, [&](CProject &found) { return found.HasToolGroup(group); });
}

bool CWorkspace::Configure(const std::string &project, QWidget *parent, QWidget **pages, int pageCount) {
    return Call(project, false, [&](CProject &found) { return found.Configure(parent, pages, pageCount); });
}

int CWorkspace::GetExtraBrowseCount(const std::string &project) const {
    return Call(project, 0, [](CProject &found) { return found.GetExtraBrowseCount(); });
}

std::string CWorkspace::GetExtraBrowse(const std::string &project, int index) const {
    return Call(project, std::string(), [&](CProject &found) { return found.GetExtraBrowse(index); });
}

int CWorkspace::SelectTarget(const std::string &project, QWidget *parent, std::string &target) {
    return Call(project, 2, [&](CProject &found) { return found.SelectTarget(parent, target); });
}

bool CWorkspace::IsValidTarget(const std::string &project, const std::string &target) const {
    return Call(project, false, [&](CProject &found) { return found.IsValidTarget(target); });
}

std::string CWorkspace::GetDefaultTarget(const std::string &project) const {
    return Call(project, std::string(kFallbackTarget), [](CProject &found) { return found.GetDefaultTarget(); });
}

int CWorkspace::GetToolsNumber(const std::string &project) const {
    return Call(project, 0, [](CProject &found) { return found.GetToolsNumber(); });
}

void CWorkspace::SetToolActive(const std::string &project, int step, bool active, bool changing) {
    Call(project, false, [&](CProject &found) { return found.SetToolActive(step, active, changing), true; });
}

bool CWorkspace::IsToolActive(const std::string &project, int step) const {
    return Call(project, false, [&](CProject &found) { return found.IsToolActive(step); });
}

std::string CWorkspace::GetToolActionName(const std::string &project, int step) const {
    return Call(project, std::string(), [&](CProject &found) { return found.GetToolActionName(step); });
}

std::string CWorkspace::GetQuickProjectFilter(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetQuickProjectFilter(); });
}

std::string CWorkspace::GetFilterName(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetFilterName(); });
}

std::string CWorkspace::GetFilterExt(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetFilterExt(); });
}

std::string CWorkspace::GetHeaderExt(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetHeaderExt(); });
}

std::string CWorkspace::EmptyHdrContent(const std::string &project, const std::string &title) const {
    return Call(project, std::string(), [&](CProject &found) { return found.EmptyHdrContent(title); });
}

std::string CWorkspace::EmptySrcContent(const std::string &project, const std::string &title) const {
    return Call(project, std::string(), [&](CProject &found) { return found.EmptySrcContent(title); });
}

std::string CWorkspace::GetFileOpenFilter(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetFileOpenFilter(); });
}

bool CWorkspace::WizardSupport(const std::string &project, std::string &library) const {
    return Call(project, false, [&](CProject &found) { return found.WizardSupport(library); });
}

void CWorkspace::ToolLoaded(const std::string &project) {
    Call(project, false, [](CProject &found) { return found.ToolLoaded(), true; });
}

std::string CWorkspace::GenMakeAttr(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GenMakeAttr(); });
}

bool CWorkspace::GetOutputFiles(const std::string &project, int step, CStringList &files) const {
    return Call(project, false, [&](CProject &found) { return found.GetOutputFiles(step, files); });
}

bool CWorkspace::GetToolCmdLine(const std::string &project, int step, ToolCommand &command) const {
    return Call(project, false, [&](CProject &found) { return found.GetToolCmdLine(step, command); });
}

std::string CWorkspace::GetDefOutputFilter(const std::string &project) const {
    return Call(project, std::string(), [](CProject &found) { return found.GetDefOutputFilter(); });
}

bool CWorkspace::GetKeywords(const std::string &project, int kind, std::string &keywords) const {
    return Call(project, false, [&](CProject &found) { return found.GetKeywords(kind, keywords); });
}

bool CWorkspace::SupportedCodeWindowType(const std::string &project, int type) const {
    return Call(project, false, [&](CProject &found) { return found.SupportedCodeWindowType(type); });
}

void CWorkspace::PreprocessListing(const std::string &project, CStringList &sources) {
    Call(project, false, [&](CProject &found) { return found.PreprocessListing(sources), true; });
}

namespace {

bool Owns(const CProject &project, const CConfig *config) {
    return std::ranges::any_of(project.GetConfigs(), [config](const auto &known) { return known.get() == config; });
}

}  // namespace

std::string CWorkspace::GetConfigName(const CConfig *config) const {
    return Call({}, std::string(),
                [config](CProject &found) { return Owns(found, config) ? config->GetName() : std::string(); });
}

std::string CWorkspace::GetConfigDir(const CConfig *config) const {
    return Call({}, std::string(),
                [config](CProject &found) { return Owns(found, config) ? config->GetOutputDir() : std::string(); });
}
