// The bookmarks of the active project.
#pragma once

#include "debugger/MarkerList.h"

class CBookmarkList : public CMarkerList {
public:
    CBookmarkList() : CMarkerList("Bookmarks", 1) {}
};
