// What the code view does for debug runs: breakpoints on its lines, values under the pointer.
#include <QApplication>
#include <QCursor>
#include <algorithm>
#include <utility>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "debugger/BreakpointArming.h"
#include "debugger/BreakpointCommands.h"
#include "debugger/WatchBar.h"
#include "debugger/WatchList.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "editor/ValueTip.h"
#include "editor/ViewSetup.h"
#include "editor/WordAt.h"
#include "framework/Language.h"
#include "platform/NativePath.h"

namespace {

bool EvaluateOnTarget(const std::string &name, int format, std::string &value) {
    return CIDEApp::Get().debugger.Evaluate(name, value, format, nullptr);
}

void TellInternalError(int number) {
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame())
        frame->ShowError("Internal error #" + std::to_string(number) + " in CIDEView::OnDebugToggleBreakpoint");
}

bool IsBreakpointMarked(const CIDEView &view, intptr_t line) {
    return view.Send(SCI_MARKERGET, static_cast<uintptr_t>(line)) & kBreakpointMarks;
}

// The breakpoint that the view shows on a line; null when list and view don't agree on one.
CMarker *FindBreakpoint(const CIDEView &view, intptr_t line) {
    if (line < 0 || !view.GetDocument()) return nullptr;
    CMarker *marker = CIDEApp::Get().breakpoints.Find(view.GetDocument()->GetPathName(), static_cast<int>(line));
    const bool agree = marker && marker->handle != 0 &&
                       view.Send(SCI_MARKERLINEFROMHANDLE, static_cast<uintptr_t>(marker->handle)) == line;
    return agree ? marker : nullptr;
}

// Into the list, and during a run into the engine. False, with a line in the build list, when that refuses it.
bool AddBreakpoint(const std::string &file, int line) {
    CIDEApp &app = CIDEApp::Get();
    int id = 0;
    if (app.session.IsOpen() && !app.debugger.SetBreakpoint(file, line, id)) {
        const std::string words = app.debugger.ErrorText();
        app.AddOutputLine(LoadText(IDS_BREAKPOINT_REFUSED, {DisplayPath(file), std::to_string(line + 1)}) +
                          (words.empty() ? "" : " " + words));
        return false;
    }
    app.breakpoints.Add(file, line, 0, id);
    return true;
}

// The bar comes to the front, the keyboard stays with the source.
void WatchExpression(const std::string &text, bool ask) {
    DebugBars &bars = CIDEApp::Get().GetMainFrame()->DebugBars();
    auto &watches = static_cast<CWatchBar &>(*bars.watch);
    if (text.empty()) return;
    if (!watches.IsShowing()) {
        watches.show();
        watches.raise();
    }
    if (ask)
        watches.AddWatchByDialog(text);
    else
        watches.AddWatch(text);
}

bool IsListingInFront() {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    return frame && frame->ListBar().HoldsFocus();
}

}  // namespace

void CIDEView::MapBreakpointCommands() {
    OnCommand(
        ID_DEBUG_RUN_TO_CURSOR, [this] { RunToCursor(); },
        [this](CCmdUI &ui) {
            ui.Enable(CDebugCommands::CanRunOn() && !GetDocument()->GetPathName().empty() && !IsListingInFront());
        });
    OnCommand(
        ID_BREAKPOINT_TOGGLE, [this] { ToggleBreakpoint(); },
        [this](CCmdUI &ui) { ui.Enable(!GetDocument()->GetPathName().empty()); });
    OnCommand(
        ID_BREAKPOINT_AT_POINTER,
        [this] { OnDebugToggleBreakpoint(std::exchange(contextLine, -1), kToggleBreakpoint); },
        [this](CCmdUI &ui) { ui.Enable(contextLine >= 0); });
    OnCommand(
        ID_BREAKPOINT_PROPERTIES, [this] { BreakpointProperties(); },
        [this](CCmdUI &ui) { ui.Enable(FindBreakpoint(*this, contextLine) != nullptr); });
}

void CIDEView::ToggleBreakpoint() {
    if (!GetDocument()->GetPathName().empty()) OnDebugToggleBreakpoint(CaretLine(), kToggleBreakpoint);
}

void CIDEView::OnDebugToggleBreakpoint(intptr_t line, int change) {
    const CIDEDoc *document = GetIDEDoc();
    if (line < 0 || !document) return;
    const std::string &file = document->GetPathName();
    if (change == kToggleBreakpoint) {
        change = IsBreakpointMarked(*this, line) ? kRemoveBreakpoint : kPlaceBreakpoint;
        if (change == kPlaceBreakpoint && !AddBreakpoint(file, static_cast<int>(line))) return;
    }
    CMarker *const marker = change == kPlaceBreakpoint ? CIDEApp::Get().breakpoints.Find(file, static_cast<int>(line))
                                                       : FindBreakpoint(*this, line);
    if (!marker)
        TellInternalError(change == kPlaceBreakpoint ? 2 : 1);
    else if (change == kPlaceBreakpoint)
        ShowBreakpoint(*marker);
    else
        RemoveBreakpoint(*marker);
}

void CIDEView::BreakpointProperties() {
    if (const CMarker *marker = FindBreakpoint(*this, std::exchange(contextLine, -1)))
        EditBreakpointProperties(CIDEApp::Get().GetMainFrame(), *marker);
}

// A breakpoint for the time of the run stands where none of the user's does.
void CIDEView::RunToCursor() {
    CIDEApp &app = CIDEApp::Get();
    const std::string &file = GetDocument()->GetPathName();
    if (file.empty() || IsListingInFront()) return;
    const auto line = static_cast<int>(CaretLine());
    RemoveRunToCursorMarker();
    if (!IsBreakpointMarked(*this, line) && !app.breakpoints.Find(file, line)) {
        if (!AddBreakpoint(file, line)) return;
        app.breakpoints.runToCursorMarker = app.breakpoints.Find(file, line);
        ShowBreakpoint(*app.breakpoints.runToCursorMarker);
    }
    if (!app.debugCommands.Continue()) RemoveRunToCursorMarker();
}

void CIDEView::MapWatchCommands() {
    OnCommand(
        ID_WATCH_AT_CARET, [this] { WatchAtCaret(); }, [](CCmdUI &ui) { ui.Enable(CIDEApp::Get().session.IsOpen()); });
    OnCommand(
        ID_WATCH_AT_POINTER,
        [this] {
            const bool ask = !QApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
            WatchExpression(std::exchange(watchText_, {}), ask);
        },
        [this](CCmdUI &ui) { ui.Enable(CIDEApp::Get().session.IsOpen() && !watchText_.empty()); });
}

std::string CIDEView::SelectedLine() const {
    const std::string text = sci_.GetSelectedText();
    return text.substr(0, std::min<size_t>(text.find_first_of("\r\n"), kLongestWatch));
}

void CIDEView::WatchAtCaret() {
    constexpr size_t kLongest = 255;  // bytes
    std::string text = SelectedLine().substr(0, kLongest);
    if (text.empty()) WordAt(sci_, Send(SCI_GETCURRENTPOS), text, IsWordChar);
    WatchExpression(text, true);
}

void CIDEView::ShowValueTip(const SciLexerNotification &notification) {
    if (!sci_ || !CIDEApp::Get().session.IsOpen() || notification.position < 0) return;
    if (!sci_.Widget()->rect().contains(notification.x, notification.y)) return;
    std::string word;
    if (!WordAt(sci_, notification.position, word, IsWordChar)) return;
    const int format = GetUserInt("Debugger", "DefWatchFormat", 0);
    const std::string tip = ValueTip(GetDocument()->GetPathName(), word, format, EvaluateOnTarget);
    if (!tip.empty()) SendText(SCI_CALLTIPSHOW, static_cast<uintptr_t>(notification.position), tip.c_str());
}

void CIDEView::RefreshValueTip() {
    Send(SCI_CALLTIPCANCEL);
    if (!sci_ || !CIDEApp::Get().session.IsOpen()) return;
    const QPoint pointer = sci_.Widget()->mapFromGlobal(QCursor::pos());
    if (!sci_.Widget()->isVisible() || !sci_.Widget()->rect().contains(pointer)) return;
    const intptr_t position =
        Send(SCI_POSITIONFROMPOINTCLOSE, static_cast<uintptr_t>(pointer.x()), static_cast<intptr_t>(pointer.y()));
    std::string word;
    if (!WordAt(sci_, position, word, IsWordChar)) return;
    const std::string tip = ValueTipAtStop(GetDocument()->GetPathName(), word, EvaluateOnTarget);
    if (!tip.empty()) SendText(SCI_CALLTIPSHOW, static_cast<uintptr_t>(position), tip.c_str());
}
