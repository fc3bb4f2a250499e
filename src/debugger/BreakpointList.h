// The breakpoints of the active project.
#pragma once

#include "debugger/MarkerList.h"

// What a code view can be asked to do with the breakpoint of one line.
enum BreakpointChange : int {
    kToggleBreakpoint = 0,
    kPlaceBreakpoint = 1,   // shows what the list holds already
    kRemoveBreakpoint = 2,
};

class CBreakpointList : public CMarkerList {
public:
    CBreakpointList() : CMarkerList("Breakpoints", 3) {}

    void FollowEdit(CIDEView &view) { TakeFromView(view); }  // lines may have moved
};
