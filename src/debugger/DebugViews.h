// What a debug run does to the windows of the sources and to the listing.
#pragma once

// Main thread.
void LockViews();                        // all sources become read-only
void UnlockViews();                      // writable again, but for files that are read-only on disk
void RemoveExecutionMarksFromSources();  // the mark of the place where the target stands
void RemoveExecutionMarks();             // from the listing, too
void ShowAsRunning();                    // the mark pales while the target runs
void RefreshValueTips();                 // at a stop: the value under the pointer anew
void StoreWindowState();  // whether the first source's window is maximised, for the first place of the next run
