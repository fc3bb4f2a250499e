#include "navigation/BuildFile.h"

#include <filesystem>

#include "app/IDEApp.h"
#include "app/Path.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "platform/FileText.h"
#include "platform/FileTime.h"
#include "platform/NativePath.h"
#include "project/Workspace.h"

std::string BuildFilePath(const std::string &extension) {
    const CIDEApp &app = CIDEApp::Get();
    const std::string project = app.GetActiveProjectPath();
    if (!app.workspace || project.empty()) return {};
    const CPath parts(project);
    return parts.GetDirectory() + app.workspace->GetActiveConfigName() + "\\" + parts.GetTitle() + extension;
}

std::optional<std::string> ReadBuildFile(const std::string &path) {
    std::error_code failure;
    const auto size = std::filesystem::file_size(ToNativePath(path), failure);
    if (failure) return {};
    if (size > kLargestBuildFile) {
        CIDEApp::Get().AddOutputLine(LoadText(IDS_FILE_TOO_LARGE, {DisplayPath(path), std::to_string(size >> 20)}));
        return {};
    }
    return ReadWholeFile(path);
}

BuildFileStamp StampOf(const std::string &path) {
    return {path, ReadLastWriteTime(path)};
}
