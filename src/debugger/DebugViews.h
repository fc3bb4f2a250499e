// What a debug run does to the windows of the sources and to the listing.
#pragma once

#include <string>

class CIDEView;

// Main thread.

// The source line of the program counter, from 1. False where none is known.
bool FindExecutionPlace(std::string &file, int &line);
// A source that is opened while the target stands gets the mark of that place, if it is there.
void MarkExecutionIn(const CIDEView &view);

void LockViews();                        // all sources become read-only
void UnlockViews();                      // writable again, but for files that are read-only on disk
void RemoveExecutionMarksFromSources();  // the mark of the place where the target stands
void RemoveExecutionMarks();             // from the listing, too
void ShowAsRunning();                    // the mark pales while the target runs
void RefreshValueTips();                 // at a stop: the value under the pointer anew
void StoreWindowState();  // whether the first source's window is maximised, for the first place of the next run
