// What becomes of the breakpoints in the engine: put there at the start of a run, taken away at its end.
#pragma once

// All on the main thread, with an open session; names are resolved against the active project's directory.

// Takes the breakpoints over from the views of all open sources, so that the list has the lines of the saved texts.
void RebuildBreakpointsFromViews();

// Puts all breakpoints into the engine. One on a line without code slides to the next line that has some, where it
// joins one that is there already; one that no code follows or that the engine refuses leaves the list, with a line in
// the build list. Gives the count of those that slid, which is the caller's to tell.
int ArmBreakpoints();

// Deletes all breakpoints in the engine; one that it keeps is told in the build list.
void DisarmBreakpoints();

// The temporary breakpoint of run to cursor leaves engine, views and list; nothing without one.
void RemoveRunToCursorMarker();
