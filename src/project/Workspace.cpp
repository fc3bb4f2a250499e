#include "project/Workspace.h"

#include <boost/make_shared.hpp>

#include <algorithm>

#include "app/Path.h"
#include "app/PathNames.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "project/ProfileBody.h"

namespace {

std::string ProjectEntryKey(size_t index) {
    return "Proj" + std::to_string(index);
}

}  // namespace

CWorkspace::CWorkspace(const char *path) : CFilePath(path != nullptr ? path : "") {}

CWorkspace::~CWorkspace() = default;

bool CWorkspace::Load(const char *path) {
    RemoveAllProjects();
    failure_ = {};
    if (path != nullptr) {
        if (!FileExists(path)) return false;
        path_ = path;
    }
    if (!LooksLikeProfile(path_)) {
        failure_ = {ProjectLoadFailure::Reason::notAProject, path_, {}};
        return false;
    }
    const size_t count = ReadProfileCount("Workspace", "Count", path_);
    const int active = GetPrivateProfileIntA("Workspace", "Active", 0, path_.c_str());
    for (size_t i = 0; i < count; ++i) {
        const std::string project = ReadProfileString("Workspace", ProjectEntryKey(i), {}, path_);
        if (AddProject(project, active >= 0 && i == static_cast<size_t>(active), true)) continue;
        RemoveAllProjects();
        return false;
    }
    return true;
}

void CWorkspace::Save() {
    const ProjectDirScope scope(path_.empty() ? nullptr : path_.c_str());
    const auto write = [this](const std::string &key, const std::string &value) {
        WritePrivateProfileStringA("Workspace", key.c_str(), value.c_str(), path_.c_str());
    };
    write("Count", std::to_string(projects_.size()));
    write("Active", "");
    for (size_t i = 0; i < projects_.size(); ++i) {
        projects_[i]->Save();
        if (projects_[i] == active_) write("Active", std::to_string(i));
        write(ProjectEntryKey(i), projects_[i]->GetStoredName());
    }
}

std::string CWorkspace::ProjectFullPath(const std::string &name) const {
    if (name.empty()) return active_ ? active_->GetFullPath() : "";
    const CPath path(name);
    const CPath below = path.GetDirectory().empty() ? CPath("./" + name) : path;
    std::string full = below.MakeAbsolute(GetDirectory());
    if (full.empty()) full = name;
    std::string canonical;
    return PathCanonicalizeA(canonical, full) ? canonical : full;
}

std::string CWorkspace::ProjectKey(const std::string &name) const {
    std::string key = ProjectFullPath(name);
    MakeRelativeToFile(path_, key);
    std::ranges::replace(key, '\\', '/');
    return LowerCase(key);
}

boost::shared_ptr<CProject> CWorkspace::FindProject(const std::string &name) const {
    if (name.empty()) return active_;
    const std::string key = ProjectKey(name);
    for (const auto &project : projects_)
        if (ProjectKey(project->GetStoredName()) == key) return project;
    return nullptr;
}

bool CWorkspace::AddProject(const std::string &name, bool makeActive, bool load) {
    failure_ = {};
    if (!FindProject(name)) {
        std::string stored = ProjectFullPath(name);
        MakeRelativeToFile(path_, stored);
        const ProjectDirScope scope(path_.empty() ? nullptr : path_.c_str());
        const auto project = boost::make_shared<CProject>(stored, GetDirectory());
        if (load && !project->Load()) {
            failure_ = project->GetLoadFailure();
            return false;
        }
        projects_.push_back(project);
    }
    if (makeActive) SetActiveProject(name);
    return true;
}

void CWorkspace::RemoveProject(const std::string &name) {
    if (const auto project = FindProject(name)) std::erase(projects_, project);
}

void CWorkspace::RemoveAllProjects() {
    projects_.clear();
    active_.reset();
}

bool CWorkspace::SetActiveProject(const std::string &name) {
    const auto project = FindProject(name);
    if (!project) return false;
    active_ = project;
    return true;
}

void CWorkspace::SetActiveConfig(const std::string &config) {
    const ProjectDirScope scope(path_.empty() ? nullptr : path_.c_str());
    for (const auto &project : projects_) project->SetActiveConfig(config);
}
