#include "app/IDEApp.h"

#include <QApplication>
#include <QIcon>
#include <algorithm>

#include "app/CommandIds.h"
#include "app/CommandLine.h"
#include "app/DocTemplateEx.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/ProjectDirScope.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "app/TipsOfTheDay.h"
#include "build/OutputBar.h"
#include "editor/ChildFrame.h"
#include "editor/EditorSettingsCommand.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/PageMarginsDlg.h"
#include "framework/FileDialog.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "navigation/ExtraLocations.h"
#include "framework/Text.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/ProgramDirectory.h"
#include "platform/Profile.h"
#include "project/ToolsuiteTable.h"
#include "project/Workspace.h"

namespace {

constexpr const char *kProfile = "ThornwellIDE";

// The four kinds of documents, in the order in which they are asked whose a file is.
struct TemplateRow {
    int id;
    const char *strings;
    std::vector<std::string> furtherExtensions;
};

const TemplateRow kTemplates[] = {
    {129, "\nThornwell\nThornwell\nC Files (*.c)\n.c\nThornwellIDE.Document\nThornwell Document", {"cpp"}},
    {130, "\nThornwell\nThornwell\nH Files (*.h)\n.h\nThornwellIDE.Document\nThornwell Document", {"hpp"}},
    {131, "\nThornwell\nThornwell\nAsm Files (*.asm)\n.asm\nThornwellIDE.Document\nThornwell Document", {}},
    {132, "\nThornwell\nThornwell\nLst Files (*.lst)\n.lst\nThornwellIDE.Document\nThornwell Document", {"txt", "map"}},
};

bool IsProjectOrWorkspace(const std::string &name) {
    const std::string extension = name.size() < 4 ? "" : name.substr(name.size() - 4);
    return EqualNoCase(extension, ".__c") || EqualNoCase(extension, ".__w");
}

bool IsWorkspaceFile(const std::string &name) { return EqualNoCase(CPath(name).GetExtension(), "__w"); }

// A project or workspace without content is no use at start.
bool HasContent(const std::string &file) {
    const char *section = IsWorkspaceFile(file) ? "Workspace" : "Files";
    return FileExists(file) && GetPrivateProfileIntA(section, "Count", 0, file.c_str()) != 0;
}

}  // namespace

static void InitIcons() { Q_INIT_RESOURCE(icons); }  // names a symbol of the global namespace

CIDEApp::CIDEApp(std::string commandLine) : commandLine_(std::move(commandLine)) {
    InitIcons();
    MapCommands();
}

CIDEApp::~CIDEApp() {
    redirect.Stop();
    workspace.reset();
    FreeToolsuites();
    lexer.Free();
    CLanguage::Current().Free();
}

CIDEApp &CIDEApp::Get() { return *static_cast<CIDEApp *>(CWinApp::Get()); }

CMainFrame *CIDEApp::GetMainFrame() const { return frame_.get(); }

bool CIDEApp::InitInstance() {
    OpenUserSettings(kProfile);
    if (!LoadLibraries()) return false;
    editorProperties.Load();
    CDocTemplateEx::RecentFiles().Load(UserSettings().User());
    CDocTemplateEx::RecentWorkspaces().Load(UserSettings().User());
    macro.Load();
    abbreviations.Load(ProgramFile("abbreviations.txt"));
    childDisplayMode = GetUserInt("Settings", "ChildDispMode", 0);
    AddTemplates();

    QApplication::setWindowIcon(LoadIcon("app"));
    frame_ = std::make_unique<CMainFrame>();
    mainWnd_ = frame_.get();
    if (!frame_->Create()) return false;
    redirect.SetPort(frame_->Port());

    DiscoverToolsuites();
    TakeCommandLine();
    frame_->BeginStartup(std::move(startupFiles_));
    if (showSplash && CTipsOfTheDay::AreWantedAtStart()) ShowTipOfTheDay();
    return true;
}

int CIDEApp::ExitInstance() {
    session.EndAtOnce();
    debugger.DLLCleanup();  // its thread uses the session and the frame
    WriteUserInt("Settings", "ChildDispMode", childDisplayMode);
    CloseAllDocuments();
    mainWnd_ = nullptr;
    frame_.reset();
    return 0;
}

bool CIDEApp::LoadLibraries() {
    if (!CLanguage::Current().Load(ProgramFile("ide.lang.dll"))) {
        RunMessageBox(nullptr, "Thornwell IDE startup error", "Can't load language DLL", BoxIcon::stop, BoxButtons::ok);
        return false;
    }
    if (!lexer.Load(ProgramFile("SciLexer.dll"))) {
        RunMessageBox(nullptr, LoadText(IDS_NO_LEXER_TITLE), LoadText(IDS_NO_LEXER), BoxIcon::stop, BoxButtons::ok);
        return false;
    }
    return true;
}

void CIDEApp::AddTemplates() {
    for (const TemplateRow &row : kTemplates) {
        CDocTemplate::Parts parts{[] { return std::make_unique<CIDEDoc>(); }, [] { return new CChildFrame; },
                                  [](CMDIChildWnd *frame) { return new CIDEView(frame); }};
        AddDocTemplate(std::make_unique<CDocTemplateEx>(row.id, row.strings, std::move(parts), row.furtherExtensions));
    }
}

void CIDEApp::TakeCommandLine() {
    std::string directory = GetCurrentDirectoryA();
    if (!directory.ends_with('\\')) directory += '\\';
    const std::vector<std::string> arguments = SplitArguments(commandLine_);
    for (size_t i = 1; i < arguments.size(); ++i) {
        std::string name = arguments[i];
        if (name.starts_with('-') || name.starts_with('/')) continue;
        name.erase(name.find_last_not_of(" \t\r\n") + 1);
        if (name.empty()) continue;
        // An absolute name has its separator already: in the root directory it would get a second one.
        const bool here = !name.starts_with('\\') && FileExists(directory + name);
        const std::string candidate = here ? directory + name : name;
        showSplash = false;  // who names a file wants to see that
        if (!IsProjectOrWorkspace(name))
            startupFiles_.push_back(candidate);
        else if (HasContent(candidate))
            WriteUserString("Workspace", "Last Workspace", candidate);
    }
}

void CIDEApp::MapCommands() {
    OnCommand(ID_FILE_NEW, [this] { NewDocument(); });
    OnCommand(ID_FILE_OPEN, [this] { OpenDocumentDialog(); });
    OnCommand(
        ID_FILE_SAVE_ALL, [this] { SaveAllDocuments(false); },
        [this](CCmdUI &ui) { ui.Enable(std::ranges::any_of(GetDocuments(), &CDocument::IsModified)); });
    OnCommand(
        ID_GOTO_DEFINITION, [this] { browseHistory.OnBrowseGotoDefinition(); },
        [](CCmdUI &ui) { ui.Enable(IsSourceViewActive()); });
    OnCommand(
        ID_GO_BACK, [this] { browseHistory.OnBrowseGoBack(); },
        [this](CCmdUI &ui) { ui.Enable(!browseHistory.IsEmpty()); });
    OnCommand(
        ID_BROWSE_EXTRA_LOCATIONS, [] { OnBrowseExtraLocations(); },
        [](CCmdUI &ui) { ui.Enable(!ExtraLocationsFile().empty()); });
    OnCommand(ID_EDITOR_SETTINGS, [] { RunEditorSettings(); });
    OnCommand(ID_PAGE_MARGINS, [] { RunPageMargins(); });
    MapHelpCommands();
}

bool CIDEApp::OnCmdMsg(int id, CCmdUI *ui) {
    if (CWinApp::OnCmdMsg(id, ui) || workspaces.OnCmdMsg(id, ui) || build.OnCmdMsg(id, ui) ||
        debugCommands.OnCmdMsg(id, ui) || breakpointCommands.OnCmdMsg(id, ui) ||
        (GetMainFrame() && GetMainFrame()->DebugBars().OnCmdMsg(id, ui)))
        return true;
    const auto inList = [id](int first) {
        return id >= first && id <= first + static_cast<int>(CRecentList::kEntries);
    };
    if (!inList(ID_RECENT_FILES) && !inList(ID_RECENT_WORKSPACES)) return false;
    return !GetTemplates().empty() && GetTemplates().front()->OnCmdMsg(id, ui);
}

void CIDEApp::AddOutputLine(const char *text) {
    std::lock_guard lock(outputMutex_);
    if (!frame_) return;
    if (!frame_->HasOutput()) {
        if (text) frame_->AddWaitingText(text);
        return;
    }
    const std::string_view line = text ? text : "";
    if (!text)
        frame_->OutputBar().ClearBuildList();
    else if (line.starts_with("!E"))
        frame_->OutputBar().AddBuildLine("Error" + std::string(line.substr(2)));
    else if (line.starts_with("!W"))
        frame_->OutputBar().AddBuildLine("Warning" + std::string(line.substr(2)));
    else
        frame_->OutputBar().AddBuildLine(line);
}

bool CIDEApp::SaveAllDocuments(bool prompt) {
    bool saved = true;
    for (CDocument *document : GetDocuments()) {
        if (!document->IsModified()) continue;
        if (prompt ? !document->SaveModified() : !document->DoFileSave()) saved = false;
        if (prompt && !saved) return false;
    }
    return saved;
}

CDocument *CIDEApp::FindOrOpenDocument(const std::string &path, bool open) {
    const std::string project = GetActiveProjectPath();
    const std::string directory = CPath(project).GetDirectory();
    const ProjectDirScope scope(project.empty() ? nullptr : project.c_str());
    // A directory whose name differs in case alone is another one.
    const bool below = !directory.empty() && StartsWithNoCase(path, directory) &&
                       NamesOneFile(path.substr(0, directory.size()), directory);
    const std::string name = below ? path.substr(directory.size()) : path;
    const std::string full = GetFullPathNameA(name);
    for (CDocument *document : GetDocuments())
        if (dynamic_cast<CIDEDoc *>(document) && NamesOneFile(document->GetPathName(), full)) return document;
    return open ? OpenDocumentFile(name) : nullptr;
}

void CIDEApp::OpenDocumentDialog() {
    CFileDialog dialog(CFileDialog::Kind::open);
    for (const auto &docTemplate : GetTemplates()) {
        const std::string text = docTemplate->GetDocString(DocString::filterName);
        const std::string extension = docTemplate->GetDocString(DocString::filterExt);
        if (!text.empty() && !extension.empty()) dialog.filter += text + "|*" + extension + "|";
    }
    dialog.filter += AllFilesFilter();
    dialog.filterIndex = static_cast<int>(std::ranges::count(dialog.filter, '|')) / 2;
    dialog.multiple = true;
    const CView *view = frame_->GetActiveView();
    const std::string source = view && view->GetDocument() ? view->GetDocument()->GetPathName() : std::string();
    dialog.initialDirectory = CPath(source.empty() ? GetActiveProjectPath() : source).GetDirectory();
    if (!dialog.DoModal(frame_.get())) return;
    for (const std::string &path : dialog.paths) OpenDocumentFile(path);
}

std::string CIDEApp::GetActiveProjectPath() const { return ActiveProjectPath(); }

std::string CIDEApp::GetWorkspacePath() const { return workspace ? workspace->GetPath() : std::string(); }

int CIDEApp::WorkspaceKind() const { return workspace ? workspace->Kind() : kWorkspaceNone; }

void CIDEApp::ReplayCommand(int twinId, const std::function<void()> &twin) {
    ReplayAfterStop({[this] { return session.IsOpen(); }, [this] { return session.IsRunning(); },
                     [this](DeferredCommand command) { session.StopFor(command); },
                     [this] { return frame_->AskUser(LoadText(IDS_STOP_DEBUGGING)) == IDYES; },
                     [this] { session.EndAtOnce(); }},
                    twinId, twin);
}

void CIDEApp::AddToRecentFileList(const std::string &path) { CDocTemplateEx::RecentFiles().Add(path); }

void CIDEApp::AddToRecentWorkspaces(const std::string &path) { CDocTemplateEx::RecentWorkspaces().Add(path); }

void CIDEApp::OpenRecentFile(size_t index) {
    CRecentList &list = CDocTemplateEx::RecentFiles();
    if (index >= list.Entries().size()) return;
    const std::string path = list.Entries()[index];
    for (CDocument *document : GetDocuments()) {
        if (document->GetPathName() != path || !document->GetFirstView()) continue;
        document->GetFirstView()->GetParentFrame()->ActivateFrame();
        return;
    }
    if (!OpenDocumentFile(path)) list.Remove(index);
}

void CIDEApp::OpenRecentWorkspace(size_t index) {
    CRecentList &list = CDocTemplateEx::RecentWorkspaces();
    if (index >= list.Entries().size()) return;
    const std::string path = list.Entries()[index];
    if (!FileExists(path)) {
        const int question = IsWorkspaceFile(path) ? IDS_CREATE_WORKSPACE : IDS_CREATE_PROJECT;
        if (frame_->AskUser(LoadText(question, {DisplayPath(path)})) != IDYES) {
            list.Remove(index);
            return;
        }
    } else if (EqualNoCase(path, GetWorkspacePath())) {
        return;
    }
    if (workspaces.SwitchWorkspace(path) == SwitchResult::failed) {
        const auto entry = std::ranges::find(list.Entries(), path);
        if (entry != list.Entries().end()) list.Remove(static_cast<size_t>(entry - list.Entries().begin()));
    }
}

std::string CIDEApp::UntitledName() const { return LoadText(IDS_UNTITLED); }

std::string CIDEApp::SaveQuestion(const std::string &name) const { return LoadText(IDS_SAVE_CHANGES, {name}); }

std::string CIDEApp::BoxTitle() const { return LoadText(IDS_APP_TITLE); }
