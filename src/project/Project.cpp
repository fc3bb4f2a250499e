#include "project/Project.h"

#include <boost/make_shared.hpp>

#include <algorithm>

#include "app/Path.h"
#include "app/PathNames.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "project/Config.h"
#include "project/CurrentWorkspace.h"
#include "project/Toolsuite.h"
#include "project/ToolsuiteTable.h"
#include "project/Workspace.h"

namespace {

constexpr const char *kSourceExtensions[] = {"c", "cpp", "cxx", "cc", "lib", "pas", "bas", "asm"};

bool IsSource(const std::string &file) {
    const CPath path(file);
    return std::ranges::any_of(kSourceExtensions,
                               [&path](const char *known) { return EqualNoCase(path.GetExtension(), known); });
}

}  // namespace

CProject::CProject(const std::string &name, const std::string &baseDir)
    : CFilePath(name), baseDir_(AddSlash(baseDir)), target_(WorkspaceOrNone().GetTarget()) {
    if (target_.empty()) target_ = kNewProjectTarget;
    AddConfig("Debug", true);
    AddConfig("Release", false);
    if (const std::string directory = GetDirectory(); DirectoryExists(directory)) activeDirectory_ = directory;
}

CProject::~CProject() = default;

void CProject::SetBaseDir(const std::string &directory) {
    baseDir_ = AddSlash(directory);
    for (const auto &config : configs_) config->SetBaseDir(baseDir_);
    RebuildFileKeys();
}

std::string CProject::GetFullPath() const {
    const CPath stored(path_);
    const bool rooted = !stored.GetDrive().empty() || stored.GetDir().starts_with('\\');
    std::string path = rooted ? path_ : baseDir_ + path_;
    std::string canonical;
    return PathCanonicalizeA(canonical, path) ? canonical : path;
}

std::string CProject::GetProjectDir() const {
    return CPath(GetFullPath()).GetDirectory();
}

bool CProject::SetToolsuite(const std::string &name) {
    const auto toolsuite = FindToolsuite(name);
    if (!toolsuite) return false;
    toolsuite_ = toolsuite;
    WritePrivateProfileStringA("Settings", "Active Compiler", toolsuite_->GetName().c_str(), GetFullPath().c_str());
    return true;
}

std::string CProject::GetToolsuiteName() const {
    return toolsuite_ ? toolsuite_->GetName() : "";
}

std::string CProject::GetCompilerName() const {
    const std::string name = GetToolsuiteName();
    return name.empty() ? kFallbackCompiler : name;
}

boost::shared_ptr<CConfig> CProject::FindConfig(const std::string &name) const {
    for (const auto &config : configs_)
        if (EqualNoCase(config->GetName(), name)) return config;
    return nullptr;
}

void CProject::AddConfig(const std::string &name, bool makeActive) {
    if (FindConfig(name)) return;
    configs_.push_back(boost::make_shared<CConfig>(this, name));
    if (makeActive) activeConfig_ = configs_.back();
}

bool CProject::SetActiveConfig(const std::string &name) {
    const auto config = FindConfig(name);
    if (!config) return false;
    activeConfig_ = config;
    WritePrivateProfileStringA("Settings", "Active Config", config->GetName().c_str(), GetFullPath().c_str());
    return true;
}

std::string CProject::GetActiveConfigName() const {
    return activeConfig_ ? activeConfig_->GetName() : "";
}

std::string CProject::GetActiveConfigFile() const {
    return activeConfig_ ? activeConfig_->GetFilePath() : "";
}

std::string CProject::GetFileFullPath(const std::string &name) const {
    const std::string plain = PathUnquoteSpacesA(name);
    const CPath path(plain);
    const bool rooted = !path.GetDrive().empty() || path.GetDir().starts_with('\\');
    const std::string directory = GetProjectDir();
    std::string full;
    if (!rooted && !plain.empty() && !directory.empty() && PathCanonicalizeA(full, directory + plain)) return full;
    return name;
}

std::string CProject::FileKey(const std::string &name) const {
    std::string key = GetFileFullPath(name);
    std::ranges::replace(key, '\\', '/');
    return LowerCase(key);
}

void CProject::RebuildFileKeys() {
    fileKeys_.clear();
    for (const std::string &file : files_) fileKeys_.insert(FileKey(file));
}

bool CProject::HasFile(const std::string &name) const {
    return fileKeys_.contains(FileKey(name));
}

void CProject::AddFile(const std::string &name) {
    if (!fileKeys_.insert(FileKey(name)).second) return;
    files_.push_back(name);
    WriteFiles();
}

bool CProject::RemoveFile(const std::string &name) {
    const std::string key = FileKey(name);
    if (fileKeys_.erase(key) == 0) return false;
    std::erase_if(files_, [&](const std::string &file) { return FileKey(file) == key; });
    Save();
    return true;
}

CStringList CProject::GetSourceFiles() const {
    CStringList sources;
    for (const std::string &file : files_)
        if (IsSource(file)) sources.push_back(QuoteListedName(StoredFileName(file)));
    return sources;
}

bool CProject::SetActiveDirectory(const std::string &directory) {
    if (!DirectoryExists(directory)) return false;
    activeDirectory_ = directory;
    WritePrivateProfileStringA("Settings", "Active Directory", directory.c_str(), GetFullPath().c_str());
    return true;
}

bool CProject::SetTarget(const std::string &name) {
    target_ = name;
    WritePrivateProfileStringA("Settings", "Target", name.c_str(), GetFullPath().c_str());
    return true;
}

std::string CProject::GetTarget() const {
    return target_.empty() ? GetDefaultTarget() : target_;
}
