#include "editor/IDEDoc.h"

#include <cerrno>
#include <filesystem>
#include <optional>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "editor/IDEView.h"
#include "editor/TextSize.h"
#include "framework/Language.h"
#include "navigation/WorkspaceBar.h"
#include "platform/FileText.h"
#include "platform/FileTime.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/ProgramDirectory.h"
#include "project/Workspace.h"

namespace {

constexpr std::string_view kStar = " *";

std::string StarredTitle(std::string title, bool modified) {
    if (title.ends_with(kStar) == modified || title.empty()) return title;
    return modified ? title + std::string(kStar) : title.substr(0, title.size() - kStar.size());
}

// The text that tells why a file can't be opened; 0 when it can.
int WhyUnreadable(const std::string &path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(ToNativePath(path), error);
    if (std::filesystem::is_directory(status)) return IDS_FILE_IS_FOLDER;
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) return IDS_FILE_IS_SPECIAL;
    if (ReadLastWriteTime(path)) return 0;
    return errno == EACCES ? IDS_FILE_FORBIDDEN : IDS_CANT_READ_FILE;
}

// Whether a file of that size is to be opened; asks the user, or tells why not.
bool AcceptsSize(const std::string &path) {
    std::error_code error;
    const uintmax_t size = std::filesystem::file_size(ToNativePath(path), error);
    if (error || size < kQuestionedFile) return true;
    const std::string name = DisplayPath(path), megabytes = std::to_string(size / 1'000'000);
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (size < kMostText)
        return frame && frame->AskUser(LoadText(IDS_FILE_LARGE_QUESTION, {name, megabytes})) == IDYES;
    CIDEApp::Get().AddOutputLine(LoadText(IDS_FILE_TOO_LARGE, {name, megabytes}));
    return false;
}

void RefreshTabs() {
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->RefreshTabs();
}

}  // namespace

CIDEDoc::CIDEDoc() : CTrackingDoc(CIDEApp::Get().fileTracker) {
    OnCommand(
        ID_FILE_SAVE, [this] { SaveWithFramework(false); }, [this](CCmdUI &ui) { ui.Enable(IsModified()); });
    OnCommand(ID_FILE_SAVE_AS, [this] { SaveWithFramework(true); });
}

std::vector<CIDEView *> CIDEDoc::GetCodeViews() const {
    std::vector<CIDEView *> views;
    for (CView *each : GetViews())
        if (auto *view = dynamic_cast<CIDEView *>(each)) views.push_back(view);
    return views;
}

CIDEView *CIDEDoc::GetFirstCodeView() const {
    return dynamic_cast<CIDEView *>(GetFirstView());
}

void CIDEDoc::SetPathName(const std::string &path, bool addToRecent) {
    CTrackingDoc::SetPathName(path, false);
    for (CIDEView *view : GetCodeViews()) view->OnPathNamed();
    SetTitle(StarredTitle(DisplayPath(path), IsModified()));
    RefreshTabs();
    if (addToRecent) CIDEApp::Get().AddToRecentFileList(path);
}

void CIDEDoc::DeleteContents() {
    CTrackingDoc::DeleteContents();
    for (CIDEView *view : GetCodeViews()) view->Send(SCI_CLEARALL);
}

bool CIDEDoc::OnNewDocument() {
    if (!CTrackingDoc::OnNewDocument()) return false;
    const auto workspace = CIDEApp::Get().workspace;
    const std::string toolsuite = workspace ? workspace->GetToolName() : std::string();
    if (toolsuite.empty()) return true;
    const std::optional<std::string> text = ReadWholeFile(ProgramFile("boiler.plates\\" + toolsuite));
    if (!text) return true;
    for (CIDEView *view : GetCodeViews()) {
        view->SendText(SCI_SETTEXT, 0, text->c_str());
        view->Send(SCI_SETSEL, static_cast<uintptr_t>(-1), -1);
    }
    return true;
}

bool CIDEDoc::OnOpenDocument(const std::string &path) {
    if (const int reason = WhyUnreadable(path)) {
        CIDEApp::Get().AddOutputLine(LoadText(reason, {DisplayPath(path)}));
        return false;
    }
    if (!AcceptsSize(path)) return false;
    if (!CTrackingDoc::OnOpenDocument(path)) return false;
    CIDEApp::Get().symbols.UpdateDocumentFunctions(path, *this);
    Tracker().TrackFile(TrackedName(path), true);
    return true;
}

bool CIDEDoc::OnSaveDocument(const std::string &path) {
    if (!EqualNoCase(CPath(GetPathName()).GetExtension(), CPath(path).GetExtension())) RecolourAs(path);
    Tracker().UntrackFile(GetPathName());

    CIDEView *view = GetFirstCodeView();
    const bool partial = view && view->IsPartial();
    const bool saved = view && !partial && WriteTextTo(path, *view);

    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (saved) ShowSavedSymbols(path);
    Tracker().TrackFile(TrackedName(path), true);
    if (saved) {
        SetModifiedMark(false);
        view->Send(SCI_SETSAVEPOINT);
    } else if (frame) {
        frame->ShowError(LoadText(partial ? IDS_PARTIAL_NOT_SAVED : IDS_CANT_WRITE_FILE, {DisplayPath(path)}));
    }
    return saved;
}

// What is known of the project's symbols follows the file.
void CIDEDoc::ShowSavedSymbols(const std::string &path) {
    CIDEApp &app = CIDEApp::Get();
    app.symbols.UpdateDocumentFunctions(path, *this);
    for (CIDEView *view : GetCodeViews()) view->PlaceFunctionMarks();
    app.symbols.RequestUpdate();
    if (CMainFrame *frame = app.GetMainFrame()) frame->WorkspaceBar().RescanTodo(path);
}

bool CIDEDoc::WriteTextTo(const std::string &path, CIDEView &view) {
    // In a large text as many steps of the component as lines, each of which can be undone, take too long.
    if (view.IsLarge()) return ReplaceWholeFile(path, WithWindowsLineEnds(GetText()));
    view.ConvertLineEnds();
    return ReplaceWholeFile(path, GetText());
}

// The record is made before a first or new name becomes the document's own.
std::string CIDEDoc::TrackedName(const std::string &path) const {
    return GetPathName().empty() ? path : GetPathName();
}

void CIDEDoc::RecolourAs(const std::string &path) {
    for (CIDEView *view : GetCodeViews()) {
        view->ApplyLexer(FileKindOf(path));
        view->ApplySettings();
        view->Send(SCI_COLOURISE, 0, -1);
    }
    UpdateAllViews(nullptr);
}

void CIDEDoc::SetModifiedMark(bool modified) {
    SetModifiedFlag(modified);
    const std::string title = StarredTitle(GetTitle(), modified);
    if (title != GetTitle()) SetTitle(title);
    RefreshTabs();
}

void CIDEDoc::ReloadFromDisk() {
    const bool tracked = Tracker().IsFileTracked(GetPathName());
    const bool armed = Tracker().IsFileArmed(GetPathName());
    if (tracked) Tracker().UntrackFile(GetPathName());
    for (CIDEView *view : GetCodeViews()) view->LoadFileIntoView();
    if (tracked) Tracker().TrackFile(GetPathName(), armed);
}

std::string CIDEDoc::GetText() const {
    const CIDEView *view = GetFirstCodeView();
    return view ? view->Sci().GetText() : std::string();
}

void CIDEDoc::SaveWithFramework(bool askForName) {
    const std::string project = CIDEApp::Get().GetActiveProjectPath();
    const ProjectDirScope scope(project.empty() ? nullptr : project.c_str());
    if (askForName) {
        DoSave({});
    } else {
        DoFileSave();
    }
}
