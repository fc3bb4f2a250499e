// What the user has set in a session, in one text that another state of the same session reads.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Breakpoints.h"
#include "Connections.h"
#include "Watchpoints.h"

struct StopSettings {
    struct Breakpoint {
        int id = 0;
        std::string file;
        int line = 0;
        std::vector<uint32_t> addresses;
        BreakpointRule rule;
    };
    int nextId = 1;
    std::vector<Breakpoint> breakpoints;
    std::vector<std::pair<int, std::string>> watchpoints;  // id and name
    std::map<uint32_t, uint8_t> registers;                 // whose changes are told, with the values told last
    std::map<int, Connection> connections;
    int clockRate = 0;  // hertz; 0: not set
};

// The breakpoints and watchpoints, to and from; the other members are left alone. What is there under its id already
// keeps its count of hits.
void TakeStops(const CBreakpoints &from, const CWatchpoints &watchpoints, StopSettings &settings);
void PutStops(const StopSettings &settings, CBreakpoints &breakpoints, CWatchpoints &watchpoints);

std::string WriteStopSettings(const StopSettings &settings);
bool ReadStopSettings(const std::string &text, StopSettings &settings);  // false: not such a text
