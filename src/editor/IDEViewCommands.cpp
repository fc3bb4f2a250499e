// The commands of the code view.
#include <algorithm>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "editor/GotoLineDlg.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListingRedirect.h"
#include "editor/ViewSetup.h"
#include "navigation/BrowseNavigation.h"

namespace {

constexpr int kFirstFunctionCommand = 36000, kLastFunctionCommand = 36999;

}  // namespace

void CIDEView::MapCommands() {
    const auto send = [this](unsigned message) { return [this, message] { Send(message); }; };
    const auto quietly = [this](unsigned message) {
        return [this, message] {
            EditQuietly([&] {
                Send(message);
                return true;
            });
        };
    };
    const auto enabledBy = [this](unsigned question) {
        return [this, question](CCmdUI &ui) { ui.Enable(Send(question) != 0); };
    };
    const auto enabledBySelection = [this](CCmdUI &ui) {
        ui.Enable(Send(SCI_GETSELECTIONSTART) != Send(SCI_GETSELECTIONEND));
    };
    OnCommand(ID_EDIT_UNDO, quietly(SCI_UNDO), enabledBy(SCI_CANUNDO));
    OnCommand(ID_EDIT_REDO, quietly(SCI_REDO), enabledBy(SCI_CANREDO));
    OnCommand(ID_EDIT_CUT, send(SCI_CUT), enabledBySelection);
    OnCommand(ID_EDIT_COPY, send(SCI_COPY), enabledBySelection);
    OnCommand(ID_EDIT_PASTE, send(SCI_PASTE),
              [this](CCmdUI &ui) { ui.Enable(!IsReadOnly() && Send(SCI_CANPASTE) != 0); });
    OnCommand(ID_EDIT_SELECT_ALL, send(SCI_SELECTALL));
    MapSearchCommands();
    MapPrintCommands();
    MapMacroCommands();
    OnCommand(ID_GOTO_LINE, [this] { GotoLine(); });
    OnCommand(ID_MATCH_BRACE, [this] { MatchBrace(); });
    OnCommand(ID_BOOKMARK_TOGGLE, [this] { ToggleBookmark(); });
    OnCommand(ID_BOOKMARK_NEXT, [this] { GotoBookmark(true); });
    OnCommand(ID_BOOKMARK_PREVIOUS, [this] { GotoBookmark(false); });
    OnCommand(ID_BOOKMARK_CLEAR, [this] { Send(SCI_MARKERDELETEALL, kMarkerBookmark); });
    MapBreakpointCommands();
    MapWatchCommands();
    OnCommand(ID_LAST_EDIT, [this] { GotoLastEdit(); });
    OnCommand(ID_OPEN_COUNTERPART, [this] { OpenCounterpart(); });
    OnCommandRange(kFirstFunctionCommand, kLastFunctionCommand,
                   [this](int id) { GotoFunction(static_cast<size_t>(id - kFirstFunctionCommand)); });
}

bool CIDEView::OnCmdMsg(int id, CCmdUI *ui) {
    // The number is a plug-in bar's too; it means the symbol only while the menu that names one is open.
    if (id == ID_VIEW_GOTO_DEFINITION && menuSymbol_) {
        if (!ui) ShowDefinition(*menuSymbol_);
        return true;
    }
    return RedirectToListing(id, ui) || CView::OnCmdMsg(id, ui);
}

void CIDEView::GotoLine() {
    CGotoLineDlg dialog(this, static_cast<int>(CaretLine()) + 1, static_cast<int>(Send(SCI_GETLINECOUNT)));
    if (dialog.exec() == QDialog::Accepted) ShowViewLine(dialog.Line() - 1, true);
}

void CIDEView::MatchBrace() {
    const auto caret = static_cast<uintptr_t>(Send(SCI_GETCURRENTPOS));
    if (!IsBrace(Send(SCI_GETCHARAT, caret))) return;
    const intptr_t match = Send(SCI_BRACEMATCH, caret);
    if (match < 0) return;
    ShowViewLine(Send(SCI_LINEFROMPOSITION, static_cast<uintptr_t>(match)), false);
    Send(SCI_SETSEL, static_cast<uintptr_t>(match), match);
}

void CIDEView::ToggleBookmark() {
    const CIDEDoc *document = GetIDEDoc();
    if (!document || document->GetPathName().empty()) return;
    const auto line = static_cast<uintptr_t>(CaretLine());
    for (const CIDEView *view : document->GetCodeViews()) {
        const bool marked = view->Send(SCI_MARKERGET, line) & (1 << kMarkerBookmark);
        view->Send(marked ? SCI_MARKERDELETE : SCI_MARKERADD, line, kMarkerBookmark);
    }
}

void CIDEView::GotoBookmark(bool next) {
    const intptr_t caretLine = CaretLine();
    const auto search = [&](intptr_t from) {
        const unsigned message = next ? SCI_MARKERNEXT : SCI_MARKERPREVIOUS;
        return from < 0 ? -1 : Send(message, static_cast<uintptr_t>(from), 1 << kMarkerBookmark);
    };
    intptr_t line = search(next ? caretLine + 1 : caretLine - 1);
    if (line < 0) line = search(next ? 0 : Send(SCI_GETLINECOUNT));
    if (line >= 0 && line != caretLine) Send(SCI_GOTOLINE, static_cast<uintptr_t>(line));
}

void CIDEView::GotoLastEdit() {
    if (lastEditPos_ == -1) return;
    Send(SCI_LINESCROLL, 0, lastEditTopLine_ - Send(SCI_GETFIRSTVISIBLELINE));
    Send(SCI_SETSEL, static_cast<uintptr_t>(lastEditPos_), lastEditPos_);
}

void CIDEView::OpenCounterpart() {
    const std::string counterpart = CounterpartOf(GetDocument()->GetPathName());
    if (!counterpart.empty()) CIDEApp::Get().OpenDocumentFile(counterpart);
}
