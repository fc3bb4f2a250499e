#include "debugger/DebugViews.h"

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Settings.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "editor/OpenSources.h"
#include "editor/ViewSetup.h"
#include "framework/MDIChildWnd.h"

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
