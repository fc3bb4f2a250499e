#include "navigation/BuildViews.h"

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "editor/ListBar.h"
#include "navigation/WorkspaceBar.h"

void RefreshBuildViews() {
    // The rows of the output folder follow what the build left.
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (!frame) return;
    frame->WorkspaceBar().RebuildOutputRows();
    frame->ListBar().LoadAll(false);
}
