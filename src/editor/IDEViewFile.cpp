// How a code view comes to show its document's file, and what the outside does to that file.
#include <QPointer>
#include <optional>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/TextSize.h"
#include "editor/ViewSetup.h"
#include "framework/Language.h"
#include "framework/WaitCursor.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

// Keeps the component from telling about changes for the life of the object.
class CModifiedQuiet {
public:
    explicit CModifiedQuiet(const CIDEView &view) : view_(view) { view_.Send(SCI_SETMODEVENTMASK, 0); }
    ~CModifiedQuiet() { view_.Send(SCI_SETMODEVENTMASK, kChangesOfText); }
    CModifiedQuiet(const CModifiedQuiet &) = delete;
    CModifiedQuiet &operator=(const CModifiedQuiet &) = delete;

private:
    const CIDEView &view_;
};

// Lets a read-only view be written to for the life of the object.
class CWritable {
public:
    explicit CWritable(const CIDEView &view) : view_(view), readOnly_(view.IsReadOnly()) {
        if (readOnly_) view_.Send(SCI_SETREADONLY, 0);
    }
    ~CWritable() {
        if (readOnly_) view_.Send(SCI_SETREADONLY, 1);
    }
    CWritable(const CWritable &) = delete;
    CWritable &operator=(const CWritable &) = delete;

private:
    const CIDEView &view_;
    const bool readOnly_;
};

bool IsReadOnlyOnDisk(const std::string &path) {
    const unsigned attributes = GetFileAttributesA(path);
    return attributes != kInvalidFileAttributes && (attributes & kFileAttributeReadOnly);
}

void TellAboutFile(int text, const std::string &path) {
    CIDEApp::Get().AddOutputLine(LoadText(text, {DisplayPath(path)}));
}

}  // namespace

void CIDEView::LoadFileIntoView() {
    const CModifiedQuiet quiet(*this);
    const std::string &path = GetDocument()->GetPathName();
    if (!path.empty()) {
        const intptr_t topLine = Send(SCI_GETFIRSTVISIBLELINE);
        plain_ = false;
        ApplyLexer(FileKindOf(path));
        const bool filled = FillFromFile(path);
        Send(SCI_LINESCROLL, 0, topLine - Send(SCI_GETFIRSTVISIBLELINE));
        if (!filled) return;
    }
    GetIDEDoc()->SetModifiedMark(false);
    Send(SCI_SETSAVEPOINT);
}

bool CIDEView::FillFromFile(const std::string &path) {
    if (GetFileAttributesA(path) == kInvalidFileAttributes) {
        ReleaseFile();
        partial_ = 0;
        Send(SCI_SETREADONLY, CIDEApp::Get().session.IsOpen());
        ShowText({});
        TellAboutFile(IDS_FILE_MISSING, path);
        return true;
    }
    const CWaitCursor wait;
    std::optional<std::string> bytes = ReadWholeFile(path);
    if (!bytes) {
        // What is on show is not the file's text: it must not pass for saved, and nothing must not replace the file.
        TellAboutFile(IDS_CANT_READ_FILE, path);
        if (holdsFile_)
            GetIDEDoc()->SetModifiedMark(true);
        else
            Send(SCI_SETREADONLY, 1);
        return false;
    }
    if (holdsFile_) TakeOverMarks();
    FitToSize(*bytes);
    ShowText(*bytes);
    bytes.reset();
    PlaceFunctionMarks();
    const bool readOnly = IsReadOnlyOnDisk(path);
    Send(SCI_SETREADONLY, partial_ || readOnly || CIDEApp::Get().session.IsOpen());
    if (readOnly) TellAboutFile(IDS_FILE_READ_ONLY, path);
    if (partial_) TellAboutFile(partial_, path);
    PlaceMarks();
    holdsFile_ = true;
    return true;
}

// Makes of the file's bytes what can be shown of them without holding the window up, and drops colours in time.
void CIDEView::FitToSize(std::string &bytes) {
    partial_ = 0;
    if (const size_t zero = bytes.find('\0'); zero != std::string::npos) {
        bytes.resize(zero);
        partial_ = IDS_FILE_CUT;
    }
    const size_t longest = LongestLine(bytes);
    plain_ = bytes.size() > kPlainText || longest > kPlainLine;
    if (plain_) {
        ApplyLexer(FileKind::other);
        const int reason = longest > kPlainLine ? IDS_FILE_LONG_LINES : IDS_FILE_SHOWN_PLAIN;
        if (longest <= kBrokenLine) TellAboutFile(reason, GetDocument()->GetPathName());
    }
    if (longest > kBrokenLine) {
        bytes = BreakLongLines(bytes);
        partial_ = IDS_FILE_LINES_BROKEN;
    }
}

void CIDEView::ShowText(const std::string &bytes) {
    const intptr_t standing = Send(SCI_MARKERNEXT, 0, 1 << kMarkerExecution);
    // Markers would gather on the first line when their lines go.
    for (const int marker : {kMarkerExecution, kMarkerBookmark, kMarkerBreakpoint, kMarkerBreakpointSecond})
        Send(SCI_MARKERDELETEALL, static_cast<uintptr_t>(marker));
    const CWritable writable(*this);
    if (!shown_) Send(SCI_SETUNDOCOLLECTION, 0);  // there is nothing to go back to, and it would be a second copy
    SendText(SCI_SETTEXT, 0, bytes.c_str());
    if (!shown_) Send(SCI_SETUNDOCOLLECTION, 1);
    if (standing >= 0) Send(SCI_MARKERADD, static_cast<uintptr_t>(standing), kMarkerExecution);
    ApplySettings();
}

void CIDEView::PlaceFunctionMarks() {
    Send(SCI_MARKERDELETEALL, kMarkerFunction);
    for (CFunctionData &function : GetIDEDoc()->functions) {
        const intptr_t handle = Send(SCI_MARKERADD, static_cast<uintptr_t>(function.line - 1), kMarkerFunction);
        function.SetMark(this, handle);
    }
}

void CIDEView::PlaceMarks() {
    const std::string &file = GetDocument()->GetPathName();
    CIDEApp::Get().bookmarks.PlaceInView(file, sci_);
    CIDEApp::Get().breakpoints.PlaceInView(file, sci_);
}

void CIDEView::TakeOverMarks() {
    CIDEApp::Get().bookmarks.TakeFromView(*this);
    CIDEApp::Get().breakpoints.TakeFromView(*this);
}

void CIDEView::ReleaseFile() {
    if (holdsFile_ && GetDocument()) TakeOverMarks();
    holdsFile_ = false;
}

void CIDEView::OnPathNamed() {
    if (!shown_) return;
    holdsFile_ = true;
    TakeOverMarks();
}

bool CIDEView::IsLarge() const {
    return static_cast<size_t>(Send(SCI_GETLENGTH)) > kLargeText;
}

void CIDEView::ConvertLineEnds() {
    const CModifiedQuiet quiet(*this);  // no mark moves by it, and there can be as many changes as lines
    const CWritable writable(*this);
    Send(SCI_CONVERTEOLS, SC_EOL_CRLF);
}

void CIDEView::AllowEditing() {
    if (!IsReadOnlyOnDisk(GetDocument()->GetPathName())) Send(SCI_SETREADONLY, partial_ ? 1 : 0);
}

void CIDEView::OnModifyAttempt() {
    const std::string &path = GetDocument()->GetPathName();
    if (CIDEApp::Get().session.IsOpen()) {
        CIDEApp::Get().AddOutputLine(LoadText(IDS_DEBUG_READ_ONLY));
    } else if (IsReadOnlyOnDisk(path)) {
        TellAboutFile(IDS_FILE_READ_ONLY, path);
    } else if (partial_) {
        TellAboutFile(partial_, path);
    }
}

void CIDEView::OnFileChanged() {
    CIDEDoc *document = GetIDEDoc();
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (!document || !frame) return;
    const std::string path = document->GetPathName();
    const QPointer<QWidget> self(this);  // the document can be closed while the question stands
    if (frame->AskUser(LoadText(IDS_FILE_CHANGED, {DisplayPath(path)}), BoxButtons::yesNo) != IDYES) return;
    if (!self) return;
    document->ReloadFromDisk();
    CIDEApp::Get().symbols.RequestUpdate();
    CIDEApp::Get().fileTracker.TrackFile(path, true);
    Send(SCI_EMPTYUNDOBUFFER);
}

void CIDEView::OnFileDeleted() {
    CIDEDoc *document = GetIDEDoc();
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (!document || !frame) return;
    const QPointer<QWidget> self(this);
    frame->ShowNotice(LoadText(IDS_FILE_DELETED, {DisplayPath(document->GetPathName())}));
    if (self) document->SetModifiedMark(true);
}
