// The one road of every jump to a source line.
#pragma once

#include <string>

class CIDEDoc;

// Opens `file` (relative names from the active project's directory) or brings its window to the front, and shows `line`
// (from 1) in its views: selected, or with `mark` as the place where the target stands. A file of a kind that no editor
// is for goes to the desktop's program for it. Null when no document came of it. Main thread.
CIDEDoc *OpenSourceAtLine(const std::string &file, int line, bool mark = false);
