// The one workspace that is open in the process.
#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

class CWorkspace;

// Main thread.
boost::shared_ptr<CWorkspace> &CurrentWorkspace();  // empty when none is open

// The open workspace, or one without projects, whose calls all give their neutral results.
CWorkspace &WorkspaceOrNone();

// Full path of the active project's file; empty when there is none.
std::string ActiveProjectPath();
