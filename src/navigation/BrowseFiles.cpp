#include "navigation/BrowseFiles.h"

#include "app/Path.h"
#include "navigation/ExtraLocations.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "platform/ProgramDirectory.h"
#include "platform/TempFile.h"
#include "project/CurrentWorkspace.h"
#include "project/Project.h"
#include "project/Workspace.h"

namespace {

bool IsWanted(const std::string &project, const char *key) {
    return project.empty() || GetPrivateProfileIntA("Browser", key, 1, project.c_str()) != 0;
}

// Beside the project, unless a file of that name that is no tag file lies there: the user's own, for protocol buffers.
std::string PrototypeFile(const std::string &path) {
    const std::string text = ReadWholeFile(path).value_or(std::string());
    return text.empty() || text.starts_with('!') ? path : MakeTempFile("prt");
}

}  // namespace

BrowseFiles BrowseFilesOf(const std::string &project, const std::string &configuration) {
    const CPath parts(project);
    const std::string folder = parts.GetDirectory(), title = parts.GetTitle();
    BrowseFiles files;
    files.project = project;
    files.tags = folder + configuration + "\\" + title + ".brws";
    files.extraTags = {ExtraTagsFile(project)};
    files.prototypes = PrototypeFile(folder + title + ".proto");
    const std::string keeper = ExtraLocationsFile();
    if (keeper != project) files.extraTags.push_back(ExtraTagsFile(keeper));
    return files;
}

void MakeTagFolder(const BrowseFiles &files) {
    CreateDirectoryA(CPath(files.tags).GetDirectory());
}

std::string WriteBrowseFileList(const std::string &project) {
    const std::string list = MakeTempFile("alst");
    if (list.empty()) return {};
    std::string text;
    const auto add = [&text](const std::string &file) {
        if (!file.empty() && file.find('\n') == std::string::npos) text += ToNativePath(file) + "\n";
    };
    const CWorkspace &workspace = WorkspaceOrNone();
    if (const auto active = workspace.GetActiveProject())
        for (const std::string &file : active->GetFiles()) add(active->GetFileFullPath(file));
    if (IsWanted(project, "UseSableHeaders"))
        if (const std::string header = ProgramFile("Include\\sable.h"); FileExists(header)) add(header);
    if (IsWanted(project, "UseSysHeaders")) {
        const int count = workspace.GetExtraBrowseCount();
        for (int i = 0; i < count; ++i) add(workspace.GetExtraBrowse({}, i));
    }
    if (ReplaceWholeFile(list, text)) return list;
    DeleteFileA(list);
    return {};
}
