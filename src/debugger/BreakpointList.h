// The breakpoints of the active project.
#pragma once

#include "debugger/MarkerList.h"

class CBreakpointList : public CMarkerList {
public:
    CBreakpointList() : CMarkerList("Breakpoints", 3) {}

    void FollowEdit(CIDEView &view) { TakeFromView(view); }  // lines may have moved
};
