#include "navigation/OpenWorkspaceHost.h"

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "navigation/FilePresence.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "project/CurrentWorkspace.h"
#include "project/Project.h"
#include "project/Workspace.h"

namespace {

constexpr uint32_t kOutputListSize = 1024;  // longest output list that is read, with its terminating zero

FileEntry MakeFileEntry(const CProject &project, const std::string &name, CFilePresence &presence) {
    FileEntry entry{name, project.GetFileFullPath(name)};
    entry.exists = presence.Exists(entry.path);
    return entry;
}

}  // namespace

std::unique_ptr<CWorkspaceBarHost> MakeWorkspaceBarHost() {
    return std::make_unique<COpenWorkspaceHost>();
}

bool COpenWorkspaceHost::IsOpen() const {
    return CurrentWorkspace() != nullptr;
}

bool COpenWorkspaceHost::HoldsManyProjects() const {
    return IsOpen() && WorkspaceOrNone().Kind() == kWorkspaceMultiple;
}

std::vector<ProjectEntry> COpenWorkspaceHost::Projects() const {
    std::vector<ProjectEntry> entries;
    for (const auto &project : WorkspaceOrNone().GetProjects())
        if (auto entry = Project(project->GetStoredName())) entries.push_back(std::move(*entry));
    return entries;
}

std::optional<ProjectEntry> COpenWorkspaceHost::Project(const std::string &name) const {
    CWorkspace &workspace = WorkspaceOrNone();
    const auto active = workspace.GetActiveProject();
    CFilePresence presence;
    return workspace.Call(name, std::optional<ProjectEntry>(), [&](CProject &project) {
        ProjectEntry entry;
        entry.name = project.GetStoredName();
        entry.path = project.GetFullPath();
        entry.active = active.get() == &project;
        for (const std::string &file : project.GetFiles())
            entry.files.push_back(MakeFileEntry(project, file, presence));
        ReadOutputs(project, entry);
        return std::optional<ProjectEntry>(std::move(entry));
    });
}

void COpenWorkspaceHost::ReadOutputs(CProject &project, ProjectEntry &entry) {
    std::string fallback = project.GetDefOutputFilter();
    if (fallback.empty()) fallback = kDefaultOutputs;
    const std::string list = ReadProfileString("Workspace", "Output", fallback, entry.path, kOutputListSize);
    entry.hasOutputs = !SplitOutputList(list).empty();
    const CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    const auto expand = [&](std::string text) {
        if (frame) frame->ExpandMacros(entry.path, text);
        return text;
    };
    entry.outputs =
        MakeOutputEntries(list, expand, [&](const std::string &name) { return project.GetFileFullPath(name); });
}

ProjectEntry COpenWorkspaceHost::Outputs(const std::string &project) const {
    return WorkspaceOrNone().Call(project, ProjectEntry(), [](CProject &found) {
        ProjectEntry entry;
        entry.path = found.GetFullPath();
        ReadOutputs(found, entry);
        return entry;
    });
}

std::string COpenWorkspaceHost::ProjectPath(const std::string &name) const {
    const CWorkspace &workspace = WorkspaceOrNone();
    // A name with its directory means the same file whether or not the workspace still holds the project.
    if (const auto project = workspace.FindProject(name)) return project->GetFullPath();
    return workspace.ProjectFullPath(name);
}

FileEntry COpenWorkspaceHost::File(const std::string &project, const std::string &file) const {
    return WorkspaceOrNone().Call(project, FileEntry{file, file, false}, [&](CProject &found) {
        FileEntry entry{file, found.GetFileFullPath(file)};
        entry.exists = FileExists(entry.path);
        return entry;
    });
}

std::string COpenWorkspaceHost::ActiveProject() const {
    return ActiveProjectPath();
}

void COpenWorkspaceHost::OpenFile(const std::string &file) {
    CIDEApp &app = CIDEApp::Get();
    if (!FileExists(file)) {
        if (CMainFrame *frame = app.GetMainFrame()) frame->ShowError(LoadText(IDS_NO_SUCH_FILE, {DisplayPath(file)}));
        return;
    }
    app.FindOrOpenDocument(file, true);
}

void COpenWorkspaceHost::ActivateProject(const std::string &project) {
    CIDEApp &app = CIDEApp::Get();
    app.workspaces.ActivateProject(app.GetActiveProjectPath(), project);
}

void COpenWorkspaceHost::RemoveProject(const std::string &project) {
    CIDEApp &app = CIDEApp::Get();
    CMainFrame *frame = app.GetMainFrame();
    const std::string question = LoadText(IDS_REMOVE_PROJECT_QUESTION, {WorkspaceOrNone().GetProjectFileName(project)});
    if (!frame || frame->AskUser(question) != IDYES) return;
    app.workspaces.RemoveProjectFromWorkspace(project);
}

void COpenWorkspaceHost::AskForFiles(const std::string &project) {
    CIDEApp::Get().workspaces.Projects().AddFiles(project);
}

void COpenWorkspaceHost::AskForNewFile(const std::string &project) {
    CIDEApp::Get().workspaces.Projects().AddNewFile(project);
}

void COpenWorkspaceHost::AddFiles(const std::string &project, const std::vector<std::string> &files) {
    CIDEApp &app = CIDEApp::Get();
    const std::string directory = CPath(project).GetDirectory();
    bool added = false;
    for (const std::string &file : files) {
        const std::string relative = CPath(file).MakeRelative(directory);
        added |= app.workspaces.Projects().AddFile(project, relative.empty() ? file : relative);
    }
    if (added) app.symbols.UpdateBrowseInfo();
}

void COpenWorkspaceHost::RemoveFile(const std::string &project, const std::string &file) {
    CIDEApp::Get().workspaces.Projects().RemoveFile(project, file);
}

void COpenWorkspaceHost::ShowMenu(int resource, const QPoint &at, CCmdTarget &target) {
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->TrackPopupMenu(resource, at, &target);
}
