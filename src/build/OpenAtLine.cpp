#include "build/OpenAtLine.h"

#include <algorithm>

#include "app/IDEApp.h"
#include "app/ProjectDirScope.h"
#include "build/MessagePlace.h"
#include "editor/IDEView.h"
#include "framework/MDIChildWnd.h"

void OpenAtLine(const std::string &name, int line) {
    CIDEApp &app = CIDEApp::Get();
    const std::string project = app.GetActiveProjectPath();
    const ProjectDirScope scope(project.empty() ? nullptr : project.c_str());
    if (!MessageFileExists(name)) return;
    const std::string file = TrimFileName(name);

    CDocument *document = app.FindOrOpenDocument(file, false);
    if (!document)
        document = app.FindOrOpenDocument(file, true);
    else if (CView *view = document->GetFirstView(); view && view->GetParentFrame())
        view->GetParentFrame()->ActivateFrame();
    if (!document || line == -1) return;
    if (auto *view = dynamic_cast<CIDEView *>(document->GetFirstView())) view->ShowViewLine(std::max(0, line - 1), true);
}
