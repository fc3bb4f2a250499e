#include "debugger/BreakpointArming.h"

#include <vector>

#include "app/IDEApp.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "debugger/BreakpointCommands.h"
#include "editor/IDEDoc.h"
#include "editor/OpenSources.h"
#include "framework/Language.h"

namespace {

CBreakpointList &List() {
    return CIDEApp::Get().breakpoints;
}

void Tell(const std::string &line) {
    CIDEApp::Get().AddOutputLine(line);
}

// What is done with each marker may end that one, but no other.
template <typename Step>
void ForEachMarker(Step step) {
    std::vector<CMarker *> markers;
    for (CMarker &marker : List().Markers()) markers.push_back(&marker);
    for (CMarker *marker : markers) step(*marker);
}

void DropWithoutCode(CMarker &marker) {
    const bool temporary = &marker == List().runToCursorMarker;
    Tell(temporary ? LoadText(IDS_RUN_TO_CURSOR_NO_CODE) : TextOfPlace(IDS_BREAKPOINT_NO_CODE, marker));
    DropBreakpoint(marker);
}

// The code line has a breakpoint of its own already: the two are one from now on.
void Join(CMarker &marker, CMarker &there) {
    CBreakpointList &list = List();
    if (&marker == list.runToCursorMarker)
        Tell(LoadText(IDS_RUN_TO_CURSOR_MOVED));
    else if (&there == list.runToCursorMarker) {
        list.runToCursorMarker = nullptr;  // the line is the user's now: its breakpoint outlives the run to it
        there.props = std::move(marker.props);
    }
    DropBreakpoint(marker);
}

// Moves a marker to the line of its code. True when a breakpoint of the user's has moved.
bool Slide(CMarker &marker, int codeLine) {
    CBreakpointList &list = List();
    const std::string file = marker.File();
    if (CMarker *there = list.Find(file, codeLine)) {
        Join(marker, *there);
        return true;
    }
    const bool temporary = &marker == list.runToCursorMarker;
    if (temporary) Tell(LoadText(IDS_RUN_TO_CURSOR_MOVED));
    CMarker *const moved = list.Add(file, codeLine, 0);
    ShowBreakpoint(*moved);
    if (temporary) list.runToCursorMarker = moved;
    DropBreakpoint(marker);
    return !temporary;
}

// Gives the count of those that moved.
int SlideToCode() {
    int moved = 0;
    ForEachMarker([&moved](CMarker &marker) {
        int address = 0, codeLine = -1;
        if (!CIDEApp::Get().debugger.PosToAddr(marker.File(), marker.line, address, codeLine) || codeLine < 0)
            DropWithoutCode(marker);
        else if (codeLine != marker.line && Slide(marker, codeLine))
            ++moved;
    });
    return moved;
}

void Arm(CMarker &marker) {
    if (!CIDEApp::Get().debugger.SetBreakpoint(marker.File(), marker.line, marker.id)) {
        marker.id = 0;
        Tell(TextOfPlace(IDS_BREAKPOINT_REFUSED, marker));
        DropBreakpoint(marker);
    } else if (!SetConditionsInEngine(marker)) {
        Tell(RefusalOfConditions(marker));
        DeleteInEngine(marker);
        DropBreakpoint(marker);
    }
}

}  // namespace

void RebuildBreakpointsFromViews() {
    for (CIDEDoc *document : OpenSources()) List().TakeFromDocument(*document);
}

int ArmBreakpoints() {
    const ProjectDirScope scope(CIDEApp::Get().GetActiveProjectPath());
    for (CMarker &marker : List().Markers()) marker.id = 0;  // what an earlier run gave
    const int moved = SlideToCode();
    ForEachMarker(Arm);
    return moved;
}

void DisarmBreakpoints() {
    RemoveRunToCursorMarker();
    for (CMarker &marker : List().Markers()) DeleteInEngine(marker);
}

void RemoveRunToCursorMarker() {
    CMarker *const marker = List().runToCursorMarker;
    if (!marker) return;
    DeleteInEngine(*marker);
    DropBreakpoint(*marker);
}
