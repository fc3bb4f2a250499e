#include "project/WorkspaceController.h"

#include <boost/make_shared.hpp>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/PathNames.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "editor/IDEDoc.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "editor/OpenSources.h"
#include "framework/Language.h"
#include "navigation/BuildViews.h"
#include "navigation/WorkspaceBar.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "plugins/PluginHost.h"
#include "project/CurrentWorkspace.h"
#include "project/NewProject.h"
#include "project/ProjectSettings.h"
#include "project/ProjectWorkspace.h"
#include "project/Screen.h"

namespace {

constexpr uint32_t kExtensionSize = 256;  // bytes of a stored extension

template <class Operation>
void ForEachSource(Operation operation) {
    for (CIDEDoc *source : OpenSources()) operation(*source);
    // Without a listing its document keeps a name, but its view has no marks to tell.
    CListBar &bar = Frame().ListBar();
    if (bar.ListingView().HasListing()) operation(bar.ListingDocument());
}

// "1, 4-9" of rising numbers.
std::string Ranges(const std::vector<size_t> &numbers) {
    std::string text;
    for (size_t first = 0, last; first < numbers.size(); first = last + 1) {
        for (last = first; last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1;) ++last;
        text += (first == 0 ? "" : ", ") + std::to_string(numbers[first]);
        if (last > first) text += "-" + std::to_string(numbers[last]);
    }
    return text;
}

// Holds back the painting of the tree while its rows change.
class TreeRedrawLock {
public:
    TreeRedrawLock() { Frame().WorkspaceBar().SetRedraw(false); }
    ~TreeRedrawLock() { Frame().WorkspaceBar().SetRedraw(true); }
    TreeRedrawLock(const TreeRedrawLock &) = delete;
    TreeRedrawLock &operator=(const TreeRedrawLock &) = delete;
};

std::string AbsolutePath(const std::string &path) {
    const CPath parts(path);
    if (!parts.GetDrive().empty() || parts.GetDir().starts_with('\\')) return path;
    return AddSlash(GetCurrentDirectoryA()) + path;
}

}  // namespace

CWorkspaceController::CWorkspaceController() : commands_(*this) {}

bool CWorkspaceController::OnCmdMsg(int id, CCmdUI *ui) {
    if (commands_.OnCmdMsg(id, ui) || projects_.OnCmdMsg(id, ui)) return true;
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    return frame && frame->WorkspaceBar().OnCmdMsg(id, ui);
}

bool CWorkspaceController::OpenWorkspace(const char *path, bool multiple) {
    if (path == nullptr) {
        ShowLabels(multiple);
        return true;
    }
    CIDEApp &app = CIDEApp::Get();
    const std::string file = AbsolutePath(path);
    if (!app.SaveAllDocuments(false)) return false;
    app.session.EndAtOnce();
    boost::shared_ptr<CWorkspace> &workspace = CurrentWorkspace();
    if (workspace) {
        StoreProjectState(ActiveProjectPath());
        workspace->Save();
    }
    app.CloseAllDocuments();
    ShowLabels(multiple);

    bool loaded;
    if (multiple) {
        workspace = boost::make_shared<CWorkspace>(file.c_str());
        loaded = workspace->Load(file.c_str());
    } else {
        workspace = boost::make_shared<CProjectWorkspace>(file.c_str());
        loaded = workspace->AddProject(file, true, true);
    }
    if (!loaded) {
        const boost::shared_ptr<CWorkspace> failed = std::move(workspace);
        workspace.reset();
        ShowNothing();
        ReportLoadFailure(*failed);
        return false;
    }

    WriteUserString("Workspace", "Last Workspace", multiple ? workspace->GetPath() : workspace->ProjectFullPath({}));
    app.AddToRecentWorkspaces(file);
    ShowWorkspace();
    return true;
}

void CWorkspaceController::ShowWorkspace() {
    CMainFrame &frame = Frame();
    {
        const TreeRedrawLock lock;
        if (CurrentWorkspace()->GetProjects().empty()) {
            frame.WorkspaceBar().Fill();
            frame.ConfigBox().ResetContent();
            frame.WorkspaceBar().ReloadTodo();
            CIDEApp::Get().symbols.UpdateBrowseInfo();
        } else {
            frame.WorkspaceBar().ApplyGrouping(GetProjectInt("Browse", "Grouping", 0));
            RefreshAfterProjectChange();
            SelectConfiguration();
        }
    }
    LoadProjectState();
    frame.RefreshTitle();
    frame.UpdateCommandUI();
    for (const auto &project : CurrentWorkspace()->GetProjects()) ReportUnreadableFiles(*project);
}

void CWorkspaceController::ReportUnreadableFiles(CProject &project) {
    if (const std::vector<size_t> numbers = project.TakeUnreadableFiles(); !numbers.empty())
        Frame().ShowError(LoadText(IDS_FILE_ENTRY_UNREADABLE, {Ranges(numbers), DisplayPath(project.GetStoredName())}));
}

bool CWorkspaceController::CloseWorkspace() {
    CIDEApp &app = CIDEApp::Get();
    CMainFrame &frame = Frame();
    if (frame.IsStarted() && !app.SaveAllModified()) {
        frame.CancelClosing();
        return false;
    }
    app.session.EndAtOnce();
    boost::shared_ptr<CWorkspace> &workspace = CurrentWorkspace();
    if (workspace) StoreProjectState(ActiveProjectPath());
    app.CloseAllDocuments();
    if (workspace) workspace->Save();
    workspace.reset();
    ShowNothing();
    return true;
}

SwitchResult CWorkspaceController::SwitchWorkspace(const std::string &path) {
    const bool multiple = EqualNoCase(CPath(path).GetExtension(), "__w");
    const bool exists = FileExists(path);
    const std::string file = exists || multiple ? path : MakeProject(path);
    if (file.empty() || !CloseWorkspace()) return SwitchResult::cancelled;
    if (!exists && multiple && !CreateFileOrTell(file)) return SwitchResult::failed;
    return OpenWorkspace(file.c_str(), multiple) ? SwitchResult::opened : SwitchResult::failed;
}

std::string CWorkspaceController::MakeProject(const std::string &path) {
    CProjectWorkspace workspace(path.c_str());
    if (!AddNewProject(workspace, path, &Frame(), WorkspaceOrNone().GetCompilerName())) return {};
    workspace.Save();
    return workspace.ProjectFullPath({});
}

bool CWorkspaceController::CreateProject(const std::string &path) {
    const std::string full = MakeProject(path);
    if (full.empty()) return false;
    // A project that was made over an open one: what the old one held must not be saved into it.
    if (const auto old = WorkspaceOrNone().FindProject(full)) {
        old->Load();
        LoadProjectState();
    }
    if (OpenWorkspace(full.c_str(), false)) return true;
    Frame().ShowError(LoadText(IDS_CANT_OPEN_WORKSPACE, {DisplayPath(full)}));
    return false;
}

bool CWorkspaceController::CreateProjectInto(const std::string &path, const std::string &compiler) {
    const boost::shared_ptr<CWorkspace> workspace = CurrentWorkspace();
    if (!workspace) return false;
    CIDEApp::Get().session.EndAtOnce();
    StoreProjectState(ActiveProjectPath());
    if (!AddNewProject(*workspace, path, &Frame(), compiler)) return false;
    ShowWorkspace();
    return true;
}

void CWorkspaceController::ShowLabels(bool multiple) {
    CMainFrame &frame = Frame();
    frame.SetStatusText(kPaneWorkspace, multiple ? LoadText(IDS_LABEL_WORKSPACE) : "Project");
    frame.WorkspaceBar().SetTitle(multiple ? "Workspace - Multiple Project Mode"
                                           : "Workspace - Stand Alone Project Mode");
}

void CWorkspaceController::ShowNothing() {
    CMainFrame &frame = Frame();
    frame.ConfigBox().ResetContent();
    for (int pane : {kPaneWorkspace, kPaneTarget, kPaneCompiler, kPaneClock}) frame.SetStatusText(pane, {});
    frame.WorkspaceBar().SetTitle({});
    frame.WorkspaceBar().Clear();
    frame.WorkspaceBar().ReloadTodo();
    frame.ListBar().UpdateCodeWindowTabs();
    frame.ListBar().ClearAll();
    CIDEApp::Get().symbols.UpdateBrowseInfo();
    frame.RefreshTitle();
    frame.UpdateCommandUI();
}

void CWorkspaceController::ReportLoadFailure(const CWorkspace &workspace) {
    using Reason = ProjectLoadFailure::Reason;
    const ProjectLoadFailure &failure = workspace.GetLoadFailure();
    const std::string file = failure.project.empty() ? workspace.GetPath() : failure.project;
    const std::string shown = DisplayPath(file);
    std::string line;
    if (failure.reason == Reason::notAProject)
        line = LoadText(IDS_NOT_A_PROJECT, {shown});
    else if (!FileExists(file))
        line = LoadText(IDS_NO_SUCH_FILE, {shown});
    else if (failure.reason == Reason::toolsuiteMissing)
        line = LoadText(IDS_TOOLSUITE_MISSING, {failure.detail, shown});
    else if (failure.reason == Reason::configurationUnknown)
        line = LoadText(IDS_CONFIG_UNKNOWN, {failure.detail, shown});
    if (!line.empty()) CIDEApp::Get().AddOutputLine(line);
}

void CWorkspaceController::ConfirmTarget() {
    CWorkspace &workspace = WorkspaceOrNone();
    const std::string target = workspace.GetTarget();
    if (workspace.IsValidTarget({}, target)) return;
    const std::string fallback = workspace.GetDefaultTarget();
    if (Frame().AskUser(LoadText(IDS_TARGET_UNKNOWN, {target, fallback})) == IDYES) workspace.SetTarget({}, fallback);
}

void CWorkspaceController::ShowActiveProject() {
    ConfirmTarget();
    projects_.ShowTarget();
    Frame().ConfigBox().ResetContent();  // the configurations of before are another project's
    SetActiveCompiler(WorkspaceOrNone().GetCompilerName());
    FillConfigBox();
}

void CWorkspaceController::FillConfigBox() {
    const CWorkspace &workspace = WorkspaceOrNone();
    CXTFlatComboBox &box = Frame().ConfigBox();
    box.ResetContent();
    intptr_t index = 0;
    for (const auto &config : workspace.GetConfigs()) box.AddString(config->GetName(), index++);
    const int active = box.FindStringExact(workspace.GetActiveConfigName());
    if (box.GetCount() > 0) box.SetCurSel(active >= 0 ? active : 0);
}

void CWorkspaceController::RefreshAfterProjectChange() {
    ShowActiveProject();
    const TreeRedrawLock lock;
    Frame().WorkspaceBar().Fill();
}

void CWorkspaceController::TakeConfiguration() {
    const std::string selected = Frame().GetProjectConfigName();
    WorkspaceOrNone().SetActiveConfig(selected.empty() ? "Debug" : selected);
    const TreeRedrawLock lock;
    Frame().WorkspaceBar().RebuildOutputRows();
}

void CWorkspaceController::SelectConfiguration() {
    TakeConfiguration();
    Frame().WorkspaceBar().ReloadTodo();
    CIDEApp::Get().symbols.UpdateBrowseInfo();
    Frame().ListBar().LoadAll(false);
}

void CWorkspaceController::StoreProjectState(const std::string &projectFile) {
    if (projectFile.empty() || !FileExists(projectFile)) return;
    CIDEApp &app = CIDEApp::Get();
    ForEachSource([&app](CIDEDoc &document) {
        app.breakpoints.TakeFromDocument(document);
        app.bookmarks.TakeFromDocument(document);
    });
    app.bookmarks.Save(projectFile);
    app.breakpoints.Save(projectFile);
    StorePluginState(projectFile);
}

void CWorkspaceController::LoadProjectState() {
    CIDEApp &app = CIDEApp::Get();
    const std::string file = ActiveProjectPath();
    app.breakpoints.Clear();
    app.bookmarks.Clear();
    projects_.ShowClockRate();
    if (!file.empty()) {
        app.bookmarks.Load(file);
        app.breakpoints.Load(file);
    }
    ForEachSource([&app](CIDEDoc &document) {
        app.bookmarks.ApplyToDocument(document);
        app.breakpoints.ApplyToDocument(document);
    });
    if (file.empty()) return;
    WriteUserString("Settings", "Last Ext", GetProjectString("Settings", "Last Ext", "c", kExtensionSize));
    WriteUserInt("Settings", "Last ExtIdx", GetProjectInt("Settings", "Last ExtIdx", 1));
    LoadPluginState(file);
}

void CWorkspaceController::ActivateProject(const std::string &oldFile, const std::string &name) {
    CIDEApp &app = CIDEApp::Get();
    CMainFrame &frame = Frame();
    CWorkspace &workspace = WorkspaceOrNone();
    const auto project = workspace.FindProject(name);
    if (!project) return;
    if (app.session.IsOpen()) {
        if (frame.AskUser(LoadText(IDS_STOP_DEBUGGING)) != IDYES) return;
        app.session.EndAtOnce();
    }
    app.SaveAllDocuments(false);
    StoreProjectState(oldFile);

    workspace.SetActiveProject(name);
    frame.WorkspaceBar().MarkActiveProject();
    frame.WorkspaceBar().ReloadTodo();
    frame.WorkspaceBar().ApplyGrouping(GetProjectInt("Browse", "Grouping", 0));
    ShowActiveProject();
    RefreshBuildViews();
    app.symbols.UpdateBrowseInfo();
    app.session.ClearViews();
    LoadProjectState();
    frame.RefreshTitle();

    app.AddOutputLine(nullptr);
    app.AddOutputLine(LoadText(IDS_PROJECT_ACTIVE, {project->GetTitle()}));
    const std::string file = project->GetFullPath();
    const unsigned attributes = GetFileAttributesA(file);
    if (attributes != kInvalidFileAttributes && (attributes & kFileAttributeReadOnly) != 0)
        app.AddOutputLine(LoadText(IDS_PROJECT_READ_ONLY, {DisplayPath(file)}));
}

void CWorkspaceController::AddProjectToWorkspace(const std::string &file) {
    const boost::shared_ptr<CWorkspace> workspace = CurrentWorkspace();
    if (!workspace) return;
    const std::string oldFile = ActiveProjectPath();
    const bool known = workspace->FindProject(file) != nullptr;
    const TreeRedrawLock lock;
    if (!workspace->AddProject(file, false, true)) {
        ReportLoadFailure(*workspace);
        Frame().ShowError(LoadText(IDS_CANT_ADD_PROJECT, {DisplayPath(file)}));
        return;
    }
    if (!known) {
        const ProjectDirScope scope(file);
        Frame().WorkspaceBar().AddProject(file);
    }
    ActivateProject(oldFile, file);
    TakeConfiguration();
    if (const auto project = workspace->FindProject(file)) ReportUnreadableFiles(*project);
}

void CWorkspaceController::RemoveProjectFromWorkspace(const std::string &name) {
    const boost::shared_ptr<CWorkspace> workspace = CurrentWorkspace();
    const auto project = workspace ? workspace->FindProject(name) : nullptr;
    if (!project) return;
    const std::string file = project->GetFullPath();
    const bool wasActive = project == workspace->GetActiveProject();
    if (wasActive) {
        CDebugSession &session = CIDEApp::Get().session;
        if (session.IsOpen() && Frame().AskUser(LoadText(IDS_STOP_DEBUGGING)) != IDYES) return;
        session.EndAtOnce();
        StoreProjectState(file);
    }
    project->Save();
    workspace->RemoveProject(name);
    if (wasActive) {
        const auto rest = workspace->GetProjects();
        if (rest.empty())
            workspace->DropActiveProject();
        else
            workspace->AddProject(rest.front()->GetStoredName(), true, true);
    }

    CWorkspaceBar &bar = Frame().WorkspaceBar();
    bar.RemoveProject(file);
    bar.MarkActiveProject();
    if (wasActive) {
        if (workspace->GetActiveProject()) {
            ShowActiveProject();
        } else {
            Frame().ConfigBox().ResetContent();
            for (int pane : {kPaneTarget, kPaneCompiler, kPaneClock}) Frame().SetStatusText(pane, {});
            Frame().ListBar().UpdateCodeWindowTabs();
            bar.Fill();
        }
        bar.ApplyGrouping(GetProjectInt("Browse", "Grouping", 0));
        Frame().ListBar().LoadAll(false);
        LoadProjectState();
    }
    bar.ReloadTodo();
    CIDEApp::Get().symbols.UpdateBrowseInfo();
    Frame().RefreshTitle();
    Frame().UpdateCommandUI();
}
