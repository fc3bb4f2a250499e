#include "build/FileTracking.h"

#include "app/IDEApp.h"
#include "editor/IDEDoc.h"

namespace {

void ForEachOpenFile(void (CFileTracker::*operation)(const std::string &path)) {
    CIDEApp &app = CIDEApp::Get();
    for (const CDocument *document : app.GetDocuments())
        if (dynamic_cast<const CIDEDoc *>(document) && !document->GetPathName().empty())
            (app.fileTracker.*operation)(document->GetPathName());
}

}  // namespace

void DisarmOpenDocuments() { ForEachOpenFile(&CFileTracker::DisarmFile); }

void ArmOpenDocuments() { ForEachOpenFile(&CFileTracker::ArmFile); }
