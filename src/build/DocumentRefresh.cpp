#include "build/DocumentRefresh.h"

#include <algorithm>

#include "app/IDEApp.h"
#include "app/PathNames.h"
#include "app/StringIds.h"
#include "editor/IDEDoc.h"
#include "framework/Language.h"
#include "framework/MDIChildWnd.h"
#include "framework/View.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

std::string RelativeTo(const std::string &project, std::string name) {
    MakeRelativeToFile(project, name);
    return name;
}

// Later, when nobody works with the document any more.
void PostClose(const CDocument &document) {
    CView *view = document.GetFirstView();
    CMDIChildWnd *frame = view ? view->GetParentFrame() : nullptr;
    if (frame) QMetaObject::invokeMethod(frame, "close", Qt::QueuedConnection);
}

void Tell(int text, const CDocument &document) {
    CIDEApp::Get().AddOutputLine(LoadText(text, {DisplayPath(document.GetPathName())}));
}

}  // namespace

void RefreshOpenDocuments(const std::string &project, const CStringList &outputs) {
    for (CDocument *document : CIDEApp::Get().GetDocuments()) {
        auto *source = dynamic_cast<CIDEDoc *>(document);
        if (!source || source->GetPathName().empty()) continue;
        if (!FileExists(source->GetPathName())) {
            PostClose(*source);
            Tell(IDS_DOCUMENT_CLOSED, *source);
            continue;
        }
        const std::string name = RelativeTo(project, source->GetPathName());
        const bool written = std::any_of(outputs.begin(), outputs.end(), [&](const std::string &output) {
            return EqualNoCase(RelativeTo(project, PathUnquoteSpacesA(output)), name);
        });
        if (!written) continue;
        source->ReloadFromDisk();
        Tell(IDS_DOCUMENT_RELOADED, *source);
    }
}
