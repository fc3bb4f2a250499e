// A marked place in a source file.
#pragma once

#include <cstdint>
#include <memory>

#include "app/Path.h"
#include "debugger/BreakpointProps.h"

class CMarker {
public:
    CMarker() = default;
    virtual ~CMarker() = default;
    CMarker(const CMarker &) = delete;
    CMarker &operator=(const CMarker &) = delete;

    std::string File() const { return path.GetFullPath(); }

    CPath path;
    int line = -1;            // from 0
    intptr_t handle = 0;      // of the component's marker in the last view; 0 while the file is not on show
    uint8_t secondState = 0;  // 1: shows with the list's second marker; comes from stored data only
    int id = 0;               // of the engine's breakpoint; 0 before it was armed in this run
    std::unique_ptr<CBreakpointProps> props;  // null for a bookmark
};
