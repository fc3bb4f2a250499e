// What the markers of a file leave behind while the list learns their new lines from a view.
#pragma once

#include <memory>
#include <set>

#include "debugger/BreakpointProps.h"

// Of one marker in transit.
struct CTempBData {
    int line = -1;
    std::unique_ptr<CBreakpointProps> props;
    int id = 0;  // of the engine's breakpoint: a list that is refreshed during a run must not lose it

    bool operator<(const CTempBData &other) const { return line < other.line; }
};

// By ascending line; entries of one line in the order of their arrival. New markers take them from the head, so that
// properties pass by their order in the file.
using TempMarkers = std::multiset<CTempBData>;
