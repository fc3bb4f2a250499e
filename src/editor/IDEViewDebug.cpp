// What the code view does for debug runs: breakpoints on its lines, values under the pointer.
#include <QCursor>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Settings.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ValueTip.h"
#include "editor/ViewSetup.h"
#include "editor/WordAt.h"

namespace {

bool EvaluateOnTarget(const std::string &name, int format, std::string &value) {
    return CIDEApp::Get().debugger.Evaluate(name, value, format, nullptr);
}

void TellInternalError(int number) {
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame())
        frame->ShowError("Internal error #" + std::to_string(number) + " in CIDEView::OnDebugToggleBreakpoint");
}

}  // namespace

void CIDEView::ToggleBreakpoint() {
    if (!GetDocument()->GetPathName().empty()) OnDebugToggleBreakpoint(CaretLine(), kToggleBreakpoint);
}

void CIDEView::OnDebugToggleBreakpoint(intptr_t line, int change, int engineId) {
    const CIDEDoc *document = GetIDEDoc();
    if (line < 0 || !document) return;
    const std::string &file = document->GetPathName();
    const auto number = static_cast<uintptr_t>(line);
    CBreakpointList &breakpoints = CIDEApp::Get().breakpoints;
    if (change == kToggleBreakpoint) {
        const bool marked = Send(SCI_MARKERGET, number) & (1 << kMarkerBreakpoint);
        if (!marked) breakpoints.Add(file, static_cast<int>(line), false, engineId < 0 ? 0 : engineId);
        change = marked ? kRemoveBreakpoint : kPlaceBreakpoint;
    }
    CMarker *marker = breakpoints.Find(file, static_cast<int>(line));
    if (change == kPlaceBreakpoint) {
        if (marker)
            marker->handle = Send(SCI_MARKERADD, number, kMarkerBreakpoint);
        else
            TellInternalError(2);
        return;
    }
    const bool here = marker && marker->handle != 0 &&
                      Send(SCI_MARKERLINEFROMHANDLE, static_cast<uintptr_t>(marker->handle)) == line;
    if (!here) {
        TellInternalError(1);
        return;
    }
    Send(SCI_MARKERDELETE, number, kMarkerBreakpoint);
    breakpoints.Remove(file, static_cast<int>(line));
}

// A breakpoint for the time of the run stands where none of the user's does.
void CIDEView::RunToCursor() {
    CIDEApp &app = CIDEApp::Get();
    const intptr_t line = CaretLine();
    const bool marked = Send(SCI_MARKERGET, static_cast<uintptr_t>(line)) & (1 << kMarkerBreakpoint);
    if (!marked) OnDebugToggleBreakpoint(line, kToggleBreakpoint);
    if (!app.debugCommands.StartRun() && !marked) OnDebugToggleBreakpoint(line, kRemoveBreakpoint);
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
