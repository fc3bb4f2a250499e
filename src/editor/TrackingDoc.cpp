#include "editor/TrackingDoc.h"

#include "editor/FileTracker.h"

void CTrackingDoc::OnCloseDocument() {
    tracker_.UntrackFile(GetPathName());
    CDocument::OnCloseDocument();
}
