// The breakpoints of the active project.
#pragma once

#include "debugger/MarkerList.h"

// What a code view can be asked to do with the breakpoint of one line.
enum BreakpointChange : int {
    kToggleBreakpoint = 0,
    kPlaceBreakpoint = 1,  // shows what the list holds already
    kRemoveBreakpoint = 2,
};

class CBreakpointList : public CMarkerList {
public:
    CBreakpointList() : CMarkerList("Breakpoints", 3) {}

    CMarker *runToCursorMarker = nullptr;  // the temporary one of run to cursor; null when there is none

    void OnAddMarker(CMarker &marker) override;
    void OnRemoveMarker(CMarker &marker) override;
    void SaveMarkerData(const CMarker &marker, CMarkerSection &section, int index) const override;
    void LoadMarkerData(CMarker &marker, const CMarkerSection &section, int index) override;

    void TakeFromView(CIDEView &view) override;  // finds runToCursorMarker again
};
