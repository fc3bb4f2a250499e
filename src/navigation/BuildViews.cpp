#include "navigation/BuildViews.h"

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "editor/ListBar.h"
#include "navigation/WorkspaceBar.h"

void RefreshBuildViews() {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (!frame) return;
    frame->WorkspaceBar().RebuildOutputRows();  // they show which files are there
    frame->ListBar().LoadAll(false);
}
