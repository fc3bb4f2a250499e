#include "navigation/OpenWorkspaceHost.h"

#include <algorithm>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/PathNames.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "navigation/BrowseNavigation.h"
#include "navigation/FilePresence.h"
#include "navigation/OpenSource.h"
#include "navigation/OutputListDlg.h"
#include "navigation/WorkspaceBar.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "project/CurrentWorkspace.h"
#include "project/Project.h"
#include "project/ProjectSettings.h"
#include "project/Workspace.h"

namespace {

constexpr size_t kMostNamedFiles = 10;  // in one box

FileEntry MakeFileEntry(const CProject &project, const std::string &name, CFilePresence &presence) {
    FileEntry entry{name, project.GetFileFullPath(name)};
    entry.exists = presence.Exists(entry.path);
    return entry;
}

std::string DefaultOutputList(CProject &project) {
    const std::string list = project.GetDefOutputFilter();
    return list.empty() ? kDefaultOutputs : list;
}

std::string OutputListOf(CProject &project) {
    return ReadProfileString("Workspace", "Output", DefaultOutputList(project), project.GetFullPath(),
                             kLongestOutputList + 1);
}

std::string RelativeName(const CProject &project, std::string file) {
    MakeRelativeToFile(project.GetFullPath(), file);
    return file;
}

// One box for all files that the project has already, which names the first of them.
void ShowKnownFiles(const std::vector<std::string> &files) {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (files.empty() || !frame) return;
    std::string text;
    for (size_t i = 0; i < std::min(files.size(), kMostNamedFiles); ++i)
        text += (i > 0 ? "\n" : "") + LoadText(IDS_FILE_IN_PROJECT, {DisplayPath(files[i])});
    if (files.size() > kMostNamedFiles) text += "\n...";
    frame->ShowWarning(text);
}

// Behind the makefile, in the order of ProjectBuild.
constexpr const char *kBuildArguments[] = {"", "-a all", "clean"};

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
    const std::string list = OutputListOf(project);
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
    app.OpenDocumentFile(file);  // an open one comes to the front
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
    std::vector<std::string> known;
    for (const std::string &file : files) {
        const std::string relative = CPath(file).MakeRelative(directory);
        const std::string &name = relative.empty() ? file : relative;
        if (WorkspaceOrNone().HasFile(project, name))
            known.push_back(file);
        else
            added |= app.workspaces.Projects().AddFile(project, name);
    }
    ShowKnownFiles(known);
    if (added) app.symbols.UpdateBrowseInfo();
}

void COpenWorkspaceHost::RemoveFile(const std::string &project, const std::string &file) {
    CIDEApp::Get().workspaces.Projects().RemoveFile(project, file);
}

bool COpenWorkspaceHost::CanMakeRelative(const std::string &project, const std::string &file) const {
    return WorkspaceOrNone().Call(project, false, [&](CProject &found) { return RelativeName(found, file) != file; });
}

void COpenWorkspaceHost::MakeRelative(const std::string &project, const std::string &file) {
    CWorkspace &workspace = WorkspaceOrNone();
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    const std::string relative =
        workspace.Call(project, file, [&](CProject &found) { return RelativeName(found, file); });
    if (!frame || relative == file) return;
    if (!workspace.RemoveFile(project, file)) {
        frame->ShowError(LoadText(IDS_CANT_REMOVE_FILE, {DisplayPath(file)}));
        return;
    }
    workspace.AddFile(project, relative);
    frame->WorkspaceBar().RemoveFile(project, file);
    frame->WorkspaceBar().AddFile(project, relative);
    CIDEApp::Get().symbols.UpdateBrowseInfo();
}

void COpenWorkspaceHost::EditOutputs(const std::string &project) {
    CWorkspace &workspace = WorkspaceOrNone();
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    const auto found = workspace.FindProject(project);
    if (!frame || !found) return;
    const auto read = [&](auto list) { return workspace.Call(project, std::string(), list); };
    const std::string title = CPath(workspace.GetProjectFileName(project)).GetTitle();
    COutputListDlg dialog(frame, title, read(OutputListOf), read(DefaultOutputList));
    if (dialog.exec() != QDialog::Accepted) return;
    const std::string file = workspace.ProjectFullPath(project);
    if (!WritePrivateProfileStringA("Workspace", "Output", dialog.List().c_str(), file.c_str()))
        frame->ShowError(LoadText(IDS_OUTPUT_LIST_NOT_SAVED, {DisplayPath(file)}));
    frame->WorkspaceBar().RebuildOutputRows();
}

bool COpenWorkspaceHost::CanBuild() const {
    const CIDEApp &app = CIDEApp::Get();
    return app.build.IsIdle() && !app.session.IsOpen();
}

void COpenWorkspaceHost::Build(const std::string &project, ProjectBuild kind) {
    CIDEApp::Get().build.BuildProject(project, kBuildArguments[static_cast<size_t>(kind)], kind == ProjectBuild::clean,
                                      true);
}

void COpenWorkspaceHost::ShowMenu(int resource, const QPoint &at, CCmdTarget &target) {
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->TrackPopupMenu(resource, at, &target);
}

SymbolMaps &COpenWorkspaceHost::Symbols() {
    return CIDEApp::Get().symbols.Maps();
}

void COpenWorkspaceHost::OpenSymbol(const BrowseRecord &record) {
    if (CIDEDoc *document = OpenSourceAtLine(record.file, record.line)) LocateSymbolInViews(*document, record);
}

void COpenWorkspaceHost::OpenLine(const std::string &file, int line) {
    OpenSourceAtLine(file, line);
}

void COpenWorkspaceHost::StoreGrouping(int grouping) {
    SetProjectString("Browse", "Grouping", std::to_string(grouping));
}
