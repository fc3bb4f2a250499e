// What the user does with breakpoints wherever their files are: the command of their dialog, and the steps that the
// code views and the dialogs share.
#pragma once

#include <string>

#include "framework/CmdTarget.h"

class CIDEDoc;
class CMarker;
class QWidget;

class CBreakpointCommands : public CCmdTarget {
public:
    CBreakpointCommands();
};

// All of these on the main thread, with markers of the list of breakpoints.

// The open document of a marker's file; null when it is closed.
CIDEDoc *FindDocumentOf(const std::string &file);

// Shows a marker of the list in all views of its document.
void ShowBreakpoint(CMarker &marker);

// Takes a marker out of all views and out of the list, which ends it; the engine isn't asked.
void DropBreakpoint(CMarker &marker);

// Takes a marker's breakpoint out of the engine's run. True when there is none; false, with a line in the build list,
// when the engine keeps it.
bool DeleteInEngine(CMarker &marker);

// All of that. False, with everything as it was but for a line in the build list, when the engine keeps the breakpoint.
bool RemoveBreakpoint(CMarker &marker);

// One of the texts that name a file and a line; in the native form, counted from 1.
std::string TextOfPlace(int text, const CMarker &marker);

// A line of the build list as a box has it: without the mark of its kind in front, for which a box has its icon.
std::string BoxText(const std::string &line);

// Gives the engine condition and hit count of a marker that it has. False when it refuses them; what it had before
// stays.
bool SetConditionsInEngine(const CMarker &marker);
std::string RefusalOfConditions(const CMarker &marker);  // behind that, for the build list, with the engine's words

// Lets the user change when a breakpoint stops; during a run the engine is told.
void EditBreakpointProperties(QWidget *parent, const CMarker &marker);
