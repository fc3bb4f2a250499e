#include "project/Config.h"

#include "app/Path.h"
#include "app/PathNames.h"
#include "platform/PathCalls.h"
#include "project/Project.h"

namespace {

bool IsRooted(const std::string &path) {
    const CPath parts(path);
    return !parts.GetDrive().empty() || parts.GetDir().starts_with('\\');
}

}  // namespace

CConfig::CConfig(CProject *project, std::string name)
    : project_(project),
      name_(std::move(name)),
      file_(project->GetDirectory() + project->GetTitle() + "." + name_ + ".__f"),
      baseDir_(project->GetBaseDir()) {
    GetOutputDir();
}

void CConfig::SetBaseDir(const std::string &directory) {
    baseDir_ = AddSlash(directory);
    GetOutputDir();
}

std::string CConfig::GetFilePath() const {
    std::string path = IsRooted(file_) ? file_ : baseDir_ + file_;
    std::string canonical;
    return PathCanonicalizeA(canonical, path) ? canonical : path;
}

std::string CConfig::GetOutputDir() const {
    const std::string directory = CPath(GetFilePath()).GetDirectory() + name_;
    // A project without a place on the disk has no output either, least of all in the current directory.
    if (IsRooted(directory) && GetFileAttributesA(directory) == kInvalidFileAttributes) CreateDirectoryA(directory);
    return directory + "\\";
}
