#include "debugger/DebugViews.h"

#include <cstdlib>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/ProjectDirScope.h"
#include "app/Settings.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "editor/OpenSources.h"
#include "editor/ViewSetup.h"
#include "framework/MDIChildWnd.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

template <typename Act>
void ForEachView(Act act) {
    for (const CIDEDoc *document : OpenSources())
        for (CIDEView *view : document->GetCodeViews()) act(*view);
}

CIDEView &Listing() {
    return CIDEApp::Get().GetMainFrame()->ListBar().ListingView();
}

}  // namespace

bool FindExecutionPlace(std::string &file, int &line) {
    const CDbgInterface &debugger = CIDEApp::Get().debugger;
    std::string text;
    return debugger.Evaluate("$pc", text, 0, nullptr) &&
           debugger.AddrToPos(static_cast<int>(std::strtol(text.c_str(), nullptr, 10)), file, line);
}

void MarkExecutionIn(const CIDEView &view) {
    const CIDEApp &app = CIDEApp::Get();
    std::string file;
    int line = 0;
    if (!app.session.IsStanding() || !FindExecutionPlace(file, line)) return;
    const ProjectDirScope scope(app.GetActiveProjectPath());
    if (!NamesOneFile(GetFullPathNameA(file), view.GetDocument()->GetPathName())) return;
    app.editorProperties.ApplyExecutionColour(view.Sci());
    view.Send(SCI_MARKERADD, static_cast<uintptr_t>(line - 1), kMarkerExecution);
}

void LockViews() {
    ForEachView([](const CIDEView &view) { view.Send(SCI_SETREADONLY, 1); });
}

void UnlockViews() {
    ForEachView([](CIDEView &view) { view.AllowEditing(); });
}

void RemoveExecutionMarksFromSources() {
    ForEachView([](const CIDEView &view) { view.Send(SCI_MARKERDELETEALL, kMarkerExecution); });
}

void RemoveExecutionMarks() {
    RemoveExecutionMarksFromSources();
    Listing().Send(SCI_MARKERDELETEALL, kMarkerExecution);
}

void ShowAsRunning() {
    const auto pale = [](const CIDEView &view) { CIDEApp::Get().editorProperties.ApplyRunningColour(view.Sci()); };
    ForEachView(pale);
    pale(Listing());
}

void RefreshValueTips() {
    ForEachView([](CIDEView &view) { view.RefreshValueTip(); });
}

void StoreWindowState() {
    for (const CIDEDoc *document : OpenSources()) {
        const CView *view = document->GetFirstView();
        if (!view || !view->GetParentFrame()) continue;
        WriteUserInt("Settings", "DbgSrcWinState", view->GetParentFrame()->isMaximized() ? 1 : 0);
        return;
    }
}
