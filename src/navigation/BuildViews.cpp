#include "navigation/BuildViews.h"

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "navigation/WorkspaceBar.h"

void RefreshBuildViews() {
    // The rows of the output folder follow what the build left.
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->WorkspaceBar().RebuildOutputRows();
}
