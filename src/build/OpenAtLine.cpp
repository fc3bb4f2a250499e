#include "build/OpenAtLine.h"

#include "app/IDEApp.h"
#include "app/ProjectDirScope.h"
#include "build/MessagePlace.h"
#include "framework/Document.h"
#include "framework/MDIChildWnd.h"
#include "framework/View.h"
#include "navigation/OpenSource.h"

void OpenAtLine(const std::string &name, int line) {
    CIDEApp &app = CIDEApp::Get();
    const std::string project = app.GetActiveProjectPath();
    const ProjectDirScope scope(project.empty() ? nullptr : project.c_str());
    if (!MessageFileExists(name)) return;
    const std::string file = TrimFileName(name);

    if (line != -1) {
        OpenSourceAtLine(file, line);
        return;
    }
    CDocument *document = app.FindOrOpenDocument(file, true);
    CView *view = document ? document->GetFirstView() : nullptr;
    if (view && view->GetParentFrame()) view->GetParentFrame()->ActivateFrame();
}
