// A document whose file the tracker watches.
#pragma once

#include "framework/Document.h"

class CFileTracker;

class CTrackingDoc : public CDocument {
public:
    explicit CTrackingDoc(CFileTracker &tracker) : tracker_(tracker) {}

    void OnCloseDocument() override;

protected:
    CFileTracker &Tracker() const { return tracker_; }

private:
    CFileTracker &tracker_;
};
