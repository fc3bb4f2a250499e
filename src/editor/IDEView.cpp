#include "editor/IDEView.h"

#include <QPointer>
#include <QResizeEvent>
#include <optional>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "editor/Folding.h"
#include "editor/IDEDoc.h"
#include "editor/Keywords.h"
#include "editor/TextSize.h"
#include "editor/ViewPrint.h"
#include "editor/ViewSetup.h"
#include "framework/Language.h"
#include "framework/WaitCursor.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "project/Workspace.h"

namespace {

constexpr int kChangesOfText = SC_MOD_INSERTTEXT + SC_MOD_DELETETEXT;

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

CIDEView::CIDEView(QWidget *parent) : CView(parent) {
    const auto notify = [](void *view, const SciLexerNotification *notification) {
        static_cast<CIDEView *>(view)->OnNotify(*notification);
    };
    sci_ = CIDEApp::Get().lexer.Create(this, notify, this);
    SetUpWindow(sci_);
    setFocusProxy(sci_.Widget());
    MapCommands();
    OnMessage(kMsgFileChanged, [this](intptr_t, intptr_t) { OnFileChanged(); });
    OnMessage(kMsgFileDeleted, [this](intptr_t, intptr_t) { OnFileDeleted(); });
}

CIDEView::~CIDEView() {
    CIDEApp::Get().lexer.SetNotify(sci_, nullptr, nullptr);
    if (holdsFile_ && GetDocument()) TakeOverMarks();
    if (CIDEDoc *document = GetIDEDoc())
        for (CFunctionData &function : document->functions) function.DropMark(this);
    delete sci_.Widget();
}

CIDEDoc *CIDEView::GetIDEDoc() const {
    return dynamic_cast<CIDEDoc *>(GetDocument());
}

void CIDEView::resizeEvent(QResizeEvent *event) {
    CView::resizeEvent(event);
    if (sci_) sci_.Widget()->resize(event->size());
}

void CIDEView::OnInitialUpdate() {
    CView::OnInitialUpdate();
    SetUpCaret(sci_);
    LoadFileIntoView();
    if (CIDEApp::Get().session.IsOpen()) Send(SCI_SETREADONLY, 1);
    JoinRecording();
    SetUpFolding(sci_);
    Send(SCI_SETMARGINWIDTHN, 2, CIDEApp::Get().editorProperties.FoldsIn(sci_) ? kFoldMarginWidth : 0);
    GetIDEDoc()->SetModifiedMark(false);
    Send(SCI_EMPTYUNDOBUFFER);
    Send(SCI_SETSAVEPOINT);
    shown_ = true;
}

void CIDEView::OnUpdate(CView *, intptr_t) {
    CIDEApp::Get().editorProperties.ClearStyles(sci_);
    ApplySettings();
}

void CIDEView::ApplySettings() {
    CIDEApp::Get().editorProperties.ApplyProperties(sci_, static_cast<int>(Send(SCI_GETLINECOUNT)));
}

void CIDEView::ApplyLexer(FileKind kind) {
    const auto workspace = CIDEApp::Get().workspace;
    std::string words;
    if (workspace && workspace->GetKeywords({}, static_cast<int>(kind), words)) SetKeywords(kind, words);
    SetLexerOf(sci_, plain_ ? FileKind::other : kind, CIDEApp::Get().editorProperties.fold);
}

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
        Send(SCI_SETREADONLY, 0);
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
    // Markers would gather on the first line when their lines go.
    for (const int marker : {kMarkerBookmark, kMarkerBreakpoint, kMarkerBreakpointSecond})
        Send(SCI_MARKERDELETEALL, static_cast<uintptr_t>(marker));
    const CWritable writable(*this);
    if (!shown_) Send(SCI_SETUNDOCOLLECTION, 0);  // there is nothing to go back to, and it would be a second copy
    SendText(SCI_SETTEXT, 0, bytes.c_str());
    Send(SCI_SETUNDOCOLLECTION, 1);
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

intptr_t CIDEView::CaretLine() const {
    return Send(SCI_LINEFROMPOSITION, static_cast<uintptr_t>(Send(SCI_GETCURRENTPOS)));
}

void CIDEView::ShowViewLine(intptr_t line, bool select) {
    const intptr_t anchor = Send(SCI_GETANCHOR), caret = Send(SCI_GETCURRENTPOS);
    Send(SCI_ENSUREVISIBLEENFORCEPOLICY, static_cast<uintptr_t>(line));
    Send(SCI_GOTOLINE, static_cast<uintptr_t>(line));

    // Lines on screen and the first of them count folded text as absent.
    const intptr_t onScreen = Send(SCI_LINESONSCREEN), first = Send(SCI_GETFIRSTVISIBLELINE);
    const intptr_t shown = Send(SCI_VISIBLEFROMDOCLINE, static_cast<uintptr_t>(line));
    const bool inBand = shown >= first + onScreen / 3 && shown <= first + 2 * onScreen / 3;
    if (!inBand && first + onScreen / 2 < Send(SCI_GETLINECOUNT)) Send(SCI_LINESCROLL, 0, shown - onScreen / 2 - first);

    if (select) {
        SelectWholeLine(line);
    } else {
        Send(SCI_SETANCHOR, static_cast<uintptr_t>(anchor));
        Send(SCI_SETCURRENTPOS, static_cast<uintptr_t>(caret));
    }
}

void CIDEView::SelectWholeLine(intptr_t line) {
    const auto number = static_cast<uintptr_t>(line);
    Send(SCI_SETSEL, static_cast<uintptr_t>(Send(SCI_POSITIONFROMLINE, number)), Send(SCI_GETLINEENDPOSITION, number));
}

void CIDEView::GotoFunction(size_t index) {
    const CIDEDoc *document = GetIDEDoc();
    if (!document || index >= document->functions.size()) return;
    const CFunctionData &function = document->functions[index];
    const CFunctionData::Mark *mark = function.FindMark(this);
    intptr_t line = mark ? Send(SCI_MARKERLINEFROMHANDLE, static_cast<uintptr_t>(mark->handle)) : -1;
    if (line < 0) line = function.line - 1;
    ShowViewLine(line, true);
}

void CIDEView::OnNotify(const SciLexerNotification &notification) {
    CIDEDoc *document = GetIDEDoc();
    if (!document) return;
    switch (notification.code) {
        case SCN_SAVEPOINTREACHED:
            document->SetModifiedMark(false);
            break;
        case SCN_SAVEPOINTLEFT:
            document->SetModifiedMark(true);
            break;
        case SCN_MODIFYATTEMPTRO:
            OnModifyAttempt();
            break;
        case SCN_UPDATEUI:
            ShowCaretPosition();
            HighlightBraces();
            break;
        case SCN_MODIFIED:
            OnModified(notification);
            break;
        case SCN_MACRORECORD: {
            const char *text = reinterpret_cast<const char *>(notification.lParam);
            CIDEApp::Get().macro.Append(
                {0, static_cast<int>(notification.message), static_cast<int>(notification.wParam), text ? text : ""});
            break;
        }
        case SCN_MARGINCLICK:
            if (notification.margin == 2)
                FoldClick(sci_, Send(SCI_LINEFROMPOSITION, static_cast<uintptr_t>(notification.position)),
                          notification.modifiers);
            break;
        case SCN_DWELLSTART:
            ShowValueTip(notification);
            break;
        case SCN_DWELLEND:
            Send(SCI_CALLTIPCANCEL);
            break;
    }
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

void CIDEView::ShowCaretPosition() {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (!frame) return;
    const auto caret = static_cast<uintptr_t>(Send(SCI_GETCURRENTPOS));
    const std::string text =
        "Ln " + std::to_string(CaretLine() + 1) + ", Col " + std::to_string(Send(SCI_GETCOLUMN, caret));
    frame->SetStatusText(CIDEApp::Get().session.IsOpen() ? kPaneCompiler : kPanePosition, text);
}

void CIDEView::HighlightBraces() {
    const auto caret = static_cast<uintptr_t>(Send(SCI_GETCURRENTPOS));
    // A brace without a partner has the whole text looked through.
    if (IsLarge() || !IsBrace(Send(SCI_GETCHARAT, caret))) {
        Send(SCI_BRACEBADLIGHT, static_cast<uintptr_t>(-1));
        return;
    }
    const intptr_t match = Send(SCI_BRACEMATCH, caret);
    if (match >= 0) {
        Send(SCI_BRACEHIGHLIGHT, caret, match);
    } else {
        Send(SCI_BRACEBADLIGHT, caret);
    }
}

void CIDEView::OnModified(const SciLexerNotification &notification) {
    lastEditPos_ = Send(SCI_GETCURRENTPOS);
    lastEditTopLine_ = Send(SCI_GETFIRSTVISIBLELINE);
    // A change within a line moves no mark; of many changes told at once the count of lines isn't known.
    const int changes = notification.modificationType & kChangesOfText;
    if (changes == kChangesOfText || (changes && notification.linesAdded)) CIDEApp::Get().breakpoints.TakeFromView(*this);
    if (!CIDEApp::Get().editorProperties.lineNumbers) return;
    const int width = CEditorProperties::LineNumberWidth(sci_, static_cast<int>(Send(SCI_GETLINECOUNT)));
    if (width != Send(SCI_GETMARGINWIDTHN, 0)) Send(SCI_SETMARGINWIDTHN, 0, width);
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
