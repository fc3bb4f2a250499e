// The remarks in the files of a project, read in steps that hold nobody up.
#pragma once

#include <chrono>
#include <deque>
#include <string>
#include <vector>

#include "navigation/TodoScan.h"

// Paths are in the Windows form. Main thread.
class CTodoList {
public:
    // Forgets the records of `singleFile` and puts that file, if the project has it, on the list of files to read; for
    // an empty `singleFile` all records, and all files of the project. An empty `projectFile` forgets everything.
    void Begin(const std::string &projectFile, const std::string &singleFile);

    // Reads files until none is left or the time is over, at least one. False: call again. A file that can't be read is
    // passed over.
    bool Step(std::chrono::milliseconds limit);

    const std::vector<TodoRecord> &Records() const { return records_; }
    std::vector<TodoRecord> &Records() { return records_; }  // for their row ids

private:
    std::string directory_;            // of the project
    std::deque<std::string> waiting_;  // files to read, as the project spells them
    std::vector<TodoRecord> records_;
};
