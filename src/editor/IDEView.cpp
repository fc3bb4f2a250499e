#include "editor/IDEView.h"

#include <QResizeEvent>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "debugger/DebugViews.h"
#include "editor/Folding.h"
#include "editor/IDEDoc.h"
#include "editor/Keywords.h"
#include "editor/ViewPrint.h"
#include "editor/ViewSetup.h"
#include "project/Workspace.h"

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
    MarkExecutionIn(*this);
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
    if (changes == kChangesOfText || (changes && notification.linesAdded))
        CIDEApp::Get().breakpoints.TakeFromView(*this);
    if (!CIDEApp::Get().editorProperties.lineNumbers) return;
    const int width = CEditorProperties::LineNumberWidth(sci_, static_cast<int>(Send(SCI_GETLINECOUNT)));
    if (width != Send(SCI_GETMARGINWIDTHN, 0)) Send(SCI_SETMARGINWIDTHN, 0, width);
}
