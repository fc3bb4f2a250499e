// A project's way to its file and back.

#include "app/PathNames.h"
#include "platform/FileText.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "project/Config.h"
#include "project/ProfileBody.h"
#include "project/Project.h"
#include "project/Toolsuite.h"
#include "project/ToolsuiteTable.h"

namespace {

using ProfileValues = std::vector<std::pair<std::string, std::string>>;

std::string FileEntryKey(size_t index) {
    return "File" + std::to_string(index);
}

}  // namespace

bool CProject::Fail(ProjectLoadFailure::Reason reason, const std::string &detail) {
    failure_ = {reason, GetFullPath(), detail};
    return false;
}

bool CProject::Load() {
    using Reason = ProjectLoadFailure::Reason;
    failure_ = {};
    const std::string path = GetFullPath();
    if (!LooksLikeProfile(path)) return Fail(Reason::notAProject, {});

    const std::string compiler = ReadProfileString("Settings", "Active Compiler", GetToolsuiteName(), path);
    const auto toolsuite = FindToolsuite(compiler);
    if (!toolsuite) return Fail(Reason::toolsuiteMissing, compiler);
    const std::string presentConfig = activeConfig_ ? activeConfig_->GetName() : "Debug";
    const std::string configName = ReadProfileString("Settings", "Active Config", presentConfig, path);
    const auto config = FindConfig(configName);
    if (!config) return Fail(Reason::configurationUnknown, configName);

    toolsuite_ = toolsuite;
    activeConfig_ = config;
    ProfileValues settings = {{"Active Compiler", toolsuite->GetName()}, {"Active Config", config->GetName()}};
    const std::string directory = ReadProfileString("Settings", "Active Directory", activeDirectory_, path);
    if (DirectoryExists(directory)) {
        activeDirectory_ = directory;
        settings.emplace_back("Active Directory", directory);
    }
    target_ = ReadProfileString("Settings", "Target", target_, path);
    settings.emplace_back("Target", target_);
    WritePrivateProfileKeys("Settings", settings, path.c_str());

    LoadFiles();
    return true;
}

void CProject::LoadFiles() {
    const std::string path = GetFullPath();
    const size_t count = ReadProfileCount("Files", "Count", path);
    std::vector<std::string> names;
    unreadableFiles_.clear();
    for (size_t i = 0; i < count; ++i) {
        std::string name = ReadProfileString("Files", FileEntryKey(i), {}, path);
        if (!name.empty())
            names.push_back(std::move(name));
        else
            unreadableFiles_.push_back(i);
    }
    std::ranges::sort(names);

    files_.clear();
    fileKeys_.clear();
    for (std::string &name : names)
        if (fileKeys_.insert(FileKey(name)).second) files_.push_back(std::move(name));
    if (!files_.empty()) WriteFiles();
}

std::string CProject::StoredFileName(std::string name) const {
    MakeRelativeToFile(GetFullPath(), name);
    return name;
}

void CProject::WriteFiles() const {
    ProfileValues values = {{"Count", std::to_string(files_.size())}};
    for (size_t i = 0; i < files_.size(); ++i) values.emplace_back(FileEntryKey(i), StoredFileName(files_[i]));
    WritePrivateProfileKeys("Files", values, GetFullPath().c_str());
}

bool CProject::Save() {
    const std::string path = GetFullPath();
    if (!LooksLikeProfile(path)) return false;
    const ProfileValues settings = {{"Active Compiler", GetToolsuiteName()},
                                    {"Active Config", GetActiveConfigName()},
                                    {"Active Directory", activeDirectory_},
                                    {"Target", target_}};
    WritePrivateProfileKeys("Settings", settings, path.c_str());
    WriteFiles();
    return true;
}
