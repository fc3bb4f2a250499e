#include "editor/OpenSources.h"

#include "app/IDEApp.h"
#include "editor/IDEDoc.h"

std::vector<CIDEDoc *> OpenSources() {
    std::vector<CIDEDoc *> sources;
    for (CDocument *document : CIDEApp::Get().GetDocuments())
        if (auto *source = dynamic_cast<CIDEDoc *>(document)) sources.push_back(source);
    return sources;
}
