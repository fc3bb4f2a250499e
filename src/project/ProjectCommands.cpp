#include "project/ProjectCommands.h"

#include <memory>

#include "app/ClockRate.h"
#include "app/ClockRateDlg.h"
#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "editor/FileKind.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "framework/Language.h"
#include "navigation/WorkspaceBar.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "project/ActiveCompilerDlg.h"
#include "project/AddFileDialogs.h"
#include "project/BrowserPage.h"
#include "project/BuildOptionsDlg.h"
#include "project/CurrentWorkspace.h"
#include "project/DebuggerPage.h"
#include "project/FileConverters.h"
#include "project/ProjectSettings.h"
#include "project/Screen.h"
#include "project/SysLibrariesDlg.h"
#include "project/Toolsuite.h"
#include "project/Workspace.h"

namespace {

constexpr int kTargetChosen = 1;

void EnableWithProject(CCmdUI &ui) {
    ui.Enable(WorkspaceOrNone().GetActiveProject() != nullptr);
}

void EnableWithoutSession(CCmdUI &ui) {
    ui.Enable(WorkspaceOrNone().GetActiveProject() && !CIDEApp::Get().session.IsOpen());
}

std::string DirectoryOf(const std::string &project) {
    return CPath(WorkspaceOrNone().ProjectFullPath(project)).GetDirectory();
}

// As the project's list spells a file: relative to the project where it can be.
std::string ListedName(const std::string &project, const std::string &path) {
    const std::string relative = CPath(path).MakeRelative(DirectoryOf(project));
    return relative.empty() ? path : relative;
}

}  // namespace

CProjectCommands::CProjectCommands() {
    OnCommand(
        ID_PROJECT_ADD_FILES, [this] { AddFiles({}); }, EnableWithProject);
    OnCommand(
        ID_PROJECT_ADD_NEW_FILE, [this] { AddNewFile({}); }, EnableWithProject);
    OnCommand(
        ID_PROJECT_ADD_LIBRARY, [this] { AddSystemLibrary({}); }, EnableWithProject);
    OnCommand(
        ID_PROJECT_REMOVE_FILE, [this] { RemoveActiveDocument(); },
        [this](CCmdUI &ui) { ui.Enable(!ActiveDocumentFile().empty()); });
    OnCommand(
        ID_PROJECT_OPTIONS, [this] { ProjectOptions(); },
        [](CCmdUI &ui) {
            EnableWithoutSession(ui);
            if (!WorkspaceOrNone().HasToolGroup({}, static_cast<int>(ToolsuiteGroup::configure))) ui.Enable(false);
        });
    OnCommand(
        ID_PROJECT_TARGET, [this] { TargetDialog(); }, EnableWithoutSession);
    OnCommand(
        ID_PROJECT_COMPILER, [this] { CompilerDialog(); }, EnableWithoutSession);
    OnCommand(
        ID_CLOCK_RATE, [this] { ClockRateDialog(); }, EnableWithProject);
    OnCommand(
        ID_BUILD_OPTIONS, [this] { BuildOptions(); }, EnableWithProject);
}

void CProjectCommands::ShowTarget() {
    Frame().SetStatusText(kPaneTarget, WorkspaceOrNone().GetTarget());
}

void CProjectCommands::ShowClockRate() {
    if (CIDEApp::Get().session.IsOpen()) return;
    const bool open = WorkspaceOrNone().GetActiveProject() != nullptr;
    Frame().SetStatusText(kPaneClock, open ? ClockRateText(ProjectClockRate()) : std::string());
}

bool CProjectCommands::SetActiveCompiler(const std::string &name) {
    CIDEApp &app = CIDEApp::Get();
    CMainFrame &frame = Frame();
    CWorkspace &workspace = WorkspaceOrNone();
    const bool changed = workspace.GetToolName() != name;
    const bool done = workspace.SetCompiler({}, name);
    frame.ListBar().UpdateCodeWindowTabs();
    WriteUserString("Settings", "Active Compiler", name);
    if (!done) {
        frame.SetStatusText(kPaneCompiler, {});
        return false;
    }
    workspace.ToolLoaded();
    // The target of a project that keeps its compiler was the user's to decide when the project became active.
    const std::string target = workspace.GetTarget();
    if (changed && !workspace.IsValidTarget({}, target)) {
        frame.ShowWarning(LoadText(IDS_TARGET_REPLACED, {target}));
        workspace.SetTarget({}, workspace.GetDefaultTarget());
    }
    ShowTarget();
    if (!app.session.IsOpen()) app.build.LoadBuildToolBar(IDR_MAINFRAME);
    app.symbols.UpdateBrowseInfo();
    frame.SetStatusText(kPaneCompiler, name);
    SetProjectString("Settings", "Active Compiler", name);
    frame.UpdateCommandUI();
    return true;
}

bool CProjectCommands::AddFile(const std::string &project, const std::string &file) {
    CWorkspace &workspace = WorkspaceOrNone();
    if (workspace.HasFile(project, file)) {
        Frame().ShowWarning(LoadText(IDS_FILE_IN_PROJECT, {DisplayPath(file)}));
        return false;
    }
    OfferConverters(workspace.GetFileFullPath(project, file));
    workspace.AddFile(project, file);
    Frame().WorkspaceBar().AddFile(workspace.ProjectFullPath(project), file);
    return true;
}

void CProjectCommands::AddFiles(const std::string &project) {
    bool added = false;
    for (const std::string &path : AskForFilesToAdd(project)) added |= AddFile(project, ListedName(project, path));
    if (added) CIDEApp::Get().symbols.UpdateBrowseInfo();
}

void CProjectCommands::AddNewFile(const std::string &project) {
    CWorkspace &workspace = WorkspaceOrNone();
    const std::string path = AskForNewFile(project);
    if (path.empty()) return;
    const std::string file = ListedName(project, path);
    if (workspace.HasFile(project, file)) {
        Frame().ShowWarning(LoadText(IDS_FILE_IN_PROJECT, {DisplayPath(file)}));
        return;
    }
    const CPath parts(path);
    const std::string extension = parts.GetDottedExtension();
    std::string content;
    if (EqualNoCase(extension, workspace.GetFilterExt(project)))
        content = workspace.EmptySrcContent(project, parts.GetTitle());
    else if (EqualNoCase(extension, workspace.GetHeaderExt(project)))
        content = workspace.EmptyHdrContent(project, parts.GetTitle());
    if (!MayOverwrite(path) || !CreateFileOrTell(path, content)) return;
    if (!AddFile(project, file)) return;
    CIDEApp::Get().symbols.UpdateBrowseInfo();
    CIDEApp::Get().OpenDocumentFile(path);
}

void CProjectCommands::AddSystemLibrary(const std::string &project) {
    CSysLibrariesDlg dialog(&Frame(), WorkspaceOrNone().GetTarget());
    if (dialog.exec() != QDialog::Accepted || dialog.GetSelection().empty()) return;
    if (AddFile(project, dialog.GetSelection())) CIDEApp::Get().symbols.UpdateBrowseInfo();
}

void CProjectCommands::RemoveFile(const std::string &project, const std::string &file) {
    CWorkspace &workspace = WorkspaceOrNone();
    const std::string shown = DisplayPath(file);
    if (Frame().AskUser(LoadText(IDS_REMOVE_FILE_QUESTION, {shown})) != IDYES) return;
    if (!workspace.RemoveFile(project, file)) {
        Frame().ShowError(LoadText(IDS_CANT_REMOVE_FILE, {shown}));
        return;
    }
    Frame().WorkspaceBar().RemoveFile(workspace.ProjectFullPath(project), file);
    CIDEApp::Get().symbols.UpdateBrowseInfo();
}

std::string CProjectCommands::ActiveDocumentFile() const {
    const CView *view = Frame().GetActiveView();
    const CDocument *document = view != nullptr ? view->GetDocument() : nullptr;
    if (document == nullptr || document->GetPathName().empty()) return {};
    const std::string file = WorkspaceOrNone().GetFileFullPath({}, document->GetPathName());
    return WorkspaceOrNone().HasFile({}, file) ? file : "";
}

void CProjectCommands::RemoveActiveDocument() {
    if (const std::string file = ActiveDocumentFile(); !file.empty()) RemoveFile({}, ListedName({}, file));
}

void CProjectCommands::FollowTargetChange() {
    CIDEApp::Get().session.ClearViews();
    ShowTarget();
    CIDEApp::Get().symbols.UpdateBrowseInfo();
}

void CProjectCommands::TargetDialog() {
    CWorkspace &workspace = WorkspaceOrNone();
    const std::string present = workspace.GetTarget();
    std::string target = present;
    if (workspace.SelectTarget({}, &Frame(), target) != kTargetChosen || target == present) return;
    workspace.SetTarget({}, target);
    FollowTargetChange();
}

void CProjectCommands::ClockRateDialog() {
    const int stored = ProjectClockRate();
    CClockRateDlg dialog(&Frame(), stored >= 0 && stored <= kHighestClockRate ? stored : kDefaultClockRate);
    if (dialog.exec() != QDialog::Accepted || dialog.Rate() == stored) return;
    SetProjectString("Settings", "ClockRate", std::to_string(dialog.Rate()));
    const bool debugging = CIDEApp::Get().session.IsOpen();
    Frame().SetStatusText(debugging ? kPaneClock + 1 : kPaneClock, ClockRateText(dialog.Rate()));
    for (int slot = 0; slot < CPluginBar::kSlots; ++slot)
        Frame().PluginBar(slot).TellClockRate(static_cast<int>(dialog.Rate()));
    CIDEApp::Get().debugger.SetClockRate(static_cast<int>(dialog.Rate()));
}

void CProjectCommands::ProjectOptions() {
    CWorkspace &workspace = WorkspaceOrNone();
    const std::string present = workspace.GetTarget();
    const auto browser = std::make_unique<CBrowserPage>();
    const auto debugger = std::make_unique<CDebuggerPage>();
    QWidget *pages[] = {browser.get(), debugger.get()};
    const bool confirmed = workspace.Configure({}, &Frame(), pages, static_cast<int>(std::size(pages)));
    for (QWidget *page : pages) page->setParent(nullptr);
    if (!confirmed) return;
    // The sheet's way to choose another target is the project's file.
    const std::string chosen = GetProjectString("Settings", "Target");
    if (!chosen.empty() && chosen != present) workspace.SetTarget({}, chosen);
    const bool otherSymbols = browser->Store();
    debugger->Store();
    if (workspace.GetTarget() != present)
        FollowTargetChange();
    else if (otherSymbols)
        CIDEApp::Get().symbols.UpdateBrowseInfo();
}

void CProjectCommands::CompilerDialog() {
    const std::string present = GetUserString("Settings", "Active Compiler", kFallbackCompiler);
    CActiveCompilerDlg dialog(&Frame(), present);
    if (dialog.exec() != QDialog::Accepted) return;
    if (dialog.GetCompiler() != present || dialog.GetCompiler() != WorkspaceOrNone().GetToolName())
        if (!SetActiveCompiler(dialog.GetCompiler()))
            Frame().ShowError(LoadText(IDS_CANT_SET_COMPILER, {dialog.GetCompiler()}));
    RecolourViews();
}

void CProjectCommands::RecolourViews() {
    for (CDocument *document : CIDEApp::Get().GetDocuments())
        if (auto *source = dynamic_cast<CIDEDoc *>(document))
            for (CIDEView *view : source->GetCodeViews()) {
                view->ApplyLexer(FileKindOf(source->GetPathName()));
                view->Send(SCI_COLOURISE, 0, -1);
            }
}

void CProjectCommands::BuildOptions() {
    CBuildOptionsDlg(&Frame()).exec();
    Frame().UpdateCommandUI();
}
