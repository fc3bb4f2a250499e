#include "editor/ListingView.h"

#include <array>
#include <charconv>
#include <chrono>
#include <thread>
#include <utility>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/Path.h"
#include "app/StringIds.h"
#include "debugger/AddressText.h"
#include "editor/IDEDoc.h"
#include "editor/ViewSetup.h"
#include "framework/CommandReplay.h"
#include "framework/Language.h"
#include "platform/PathCalls.h"
#include "project/Workspace.h"

namespace {

using namespace std::chrono_literals;

constexpr auto kTrackerWait = 400ms;
constexpr auto kTrackerNap = 50ms;
constexpr size_t kShortLine = 128;  // bytes; shorter lines are read without an allocation

// Where the build of the active configuration puts the listing; empty without one. Has the toolsuite make it if need
// be.
std::string FindListing() {
    const auto workspace = CIDEApp::Get().workspace;
    const std::string project = CIDEApp::Get().GetActiveProjectPath();
    if (!workspace || project.empty()) return {};
    const CPath parts(project);
    const std::string path = parts.GetDirectory() + workspace->GetActiveConfigName() + "\\" + parts.GetTitle();
    if (FileExists(path + ".casm")) return path + ".casm";
    if (!FileExists(path + ".lst")) {
        CStringList sources = workspace->GetSourceFiles();
        const ProjectDirScope scope(project);
        workspace->PreprocessListing({}, sources);
    }
    return path + ".lst";
}

// Gives the lines of a view's text one by one.
class CLineReader {
public:
    explicit CLineReader(const CIDEView &view) : view_(view) {}

    std::string_view Line(intptr_t line) {
        const auto number = static_cast<uintptr_t>(line);
        const auto length = static_cast<size_t>(view_.Send(SCI_LINELENGTH, number));
        if (length >= kShortLine) long_.resize(std::max(length, long_.size()));
        char *buffer = length < kShortLine ? short_.data() : long_.data();
        view_.Send(SCI_GETLINE, number, reinterpret_cast<intptr_t>(buffer));
        return {buffer, length};
    }

private:
    const CIDEView &view_;
    std::array<char, kShortLine> short_;
    std::string long_;
};

void DeleteExecutionMark(const CIDEView &view) {
    const intptr_t line = view.Send(SCI_MARKERNEXT, 0, 1 << kMarkerExecution);
    if (line >= 0) view.Send(SCI_MARKERDELETE, static_cast<uintptr_t>(line), kMarkerExecution);
}

}  // namespace

CListingView::CListingView(QWidget *parent) : CIDEView(parent) {
    OnMessage(kCommandMessage, [this](intptr_t id, intptr_t) { SendCommand(*this, static_cast<int>(id)); });
    // Nobody types here, and what a load replaces needn't be kept.
    Send(SCI_SETUNDOCOLLECTION, 0);
}

void CListingView::OnInitialUpdate() {
    CIDEView::OnInitialUpdate();
    ClearListing();
}

bool CListingView::OnCmdMsg(int id, CCmdUI *ui) {
    if (id != ID_EDIT_CUT && id != ID_EDIT_PASTE) return CCmdTarget::OnCmdMsg(id, ui);
    if (ui) ui->Enable(false);
    return true;
}

void CListingView::LoadListing(bool onlyIfEmpty) {
    const std::string path = FindListing();
    const std::string oldPath = GetDocument()->GetPathName();
    if (path != oldPath) ReleaseFile();  // its marks are kept under its own name
    GetDocument()->SetPathName(path, false);
    if (!oldPath.empty() && path != oldPath) Send(SCI_MARKERDELETEALL, static_cast<uintptr_t>(-1));
    if (path.empty() || !FileExists(path)) {
        ClearListing();
    } else if (!onlyIfEmpty || noListing_ || path != oldPath) {
        BuildAddressTable();
    }
}

void CListingView::DropListing() {
    ReleaseFile();
    GetDocument()->SetPathName({}, false);
    ClearListing();
}

void CListingView::ClearListing() {
    ReleaseFile();
    Send(SCI_SETREADONLY, 0);
    Send(SCI_MARKERDELETEALL, static_cast<uintptr_t>(-1));  // else they would gather on the first line
    Send(SCI_CLEARALL);
    Send(SCI_STYLECLEARALL);
    SetUpCaret(Sci());
    SetLexerOf(Sci(), FileKind::other, false);
    SendText(SCI_SETTEXT, 0, LoadText(IDS_NO_LISTING).c_str());
    OnUpdate(nullptr, 0);
    Send(SCI_SETREADONLY, 1);
    GetIDEDoc()->SetModifiedMark(false);
    Send(SCI_SETSAVEPOINT);
    addressTable_.Clear();
    noListing_ = true;
}

void CListingView::BuildAddressTable() {
    const std::string path = GetDocument()->GetPathName();
    CFileTracker &tracker = CIDEApp::Get().fileTracker;
    if (!tracked_.empty()) tracker.UntrackFile(std::exchange(tracked_, {}));  // the text of that record goes
    noListing_ = path.empty() || !FileExists(path);
    Send(SCI_SETREADONLY, 0);
    ReleaseFile();
    LoadFileIntoView();
    if (!HoldsFile()) {  // it can't be read, and the build list says so
        ClearListing();
        return;
    }
    Send(SCI_SETREADONLY, 1);
    GetIDEDoc()->SetModifiedMark(false);
    Send(SCI_SETSAVEPOINT);
    WaitUntilUntracked(path);
    if (tracker.TrackFile(path, true)) tracked_ = path;
    ReadAddresses();
}

// The write time of a file that a tool is still at shouldn't be taken for its last one.
void CListingView::WaitUntilUntracked(const std::string &path) const {
    const auto end = std::chrono::steady_clock::now() + kTrackerWait;
    while (CIDEApp::Get().fileTracker.IsFileTracked(path)) {
        const auto left = end - std::chrono::steady_clock::now();
        if (left <= 0ms) return;
        std::this_thread::sleep_for(std::min<std::chrono::steady_clock::duration>(left, kTrackerNap));
    }
}

void CListingView::ReadAddresses() {
    CLineReader reader(*this);
    addressTable_ = ReadAddressTable(Send(SCI_GETLINECOUNT), [&reader](intptr_t line) { return reader.Line(line); });
}

intptr_t CListingView::LineOfProgramCounter(uint32_t &pc) const {
    pc = 0;
    std::string text;
    if (!CIDEApp::Get().debugger.Evaluate("$pc", text, 0, nullptr)) return -1;
    std::from_chars(text.data(), text.data() + text.size(), pc);
    return addressTable_.LineOf(pc);
}

void CListingView::ShowListingPosition() {
    uint32_t pc = 0;
    const intptr_t line = LineOfProgramCounter(pc);
    DeleteExecutionMark(*this);
    if (line <= 0) {
        CIDEApp::Get().AddOutputLine(LoadText(IDS_NOT_IN_LISTING, {AddressText(pc)}));
        return;
    }
    Send(SCI_MARKERADD, static_cast<uintptr_t>(line), kMarkerExecution);
    const intptr_t start = Send(SCI_POSITIONFROMLINE, static_cast<uintptr_t>(line));
    Send(SCI_SETSEL, static_cast<uintptr_t>(start), start);
    ShowViewLine(line, false);
}

void CListingView::ToggleBookmark() {
    if (!noListing_) CIDEView::ToggleBookmark();
}

void CListingView::OnNotify(const SciLexerNotification &notification) {
    switch (notification.code) {
        case SCN_UPDATEUI:  // the status bar tells of the text where the keyboard is
            if (!Sci() || !Sci().Widget()->hasFocus()) return;
            break;
        case SCN_MODIFIED:  // only a load changes the text
        case SCN_SAVEPOINTLEFT:
        case SCN_SAVEPOINTREACHED:
            return;
    }
    CIDEView::OnNotify(notification);
}
