// The commands on one project: its files, options, target and compiler.
#pragma once

#include <string>

#include "framework/CmdTarget.h"

// An empty project name is the active project. Main thread.
class CProjectCommands : public CCmdTarget {
public:
    CProjectCommands();

    void AddFiles(const std::string &project);          // asks which
    void AddNewFile(const std::string &project);        // asks for its name, makes it, adds and opens it
    void AddSystemLibrary(const std::string &project);  // asks which
    void RemoveFile(const std::string &project, const std::string &file);  // asks first

    // Adds one file with its row in the tree; warns and gives false when the project has it. The symbol index is the
    // caller's business.
    bool AddFile(const std::string &project, const std::string &file);

    bool SetActiveCompiler(const std::string &name);  // the active project's toolsuite, and all that shows it
    void ShowTarget();
    void ShowClockRate();

private:
    void RemoveActiveDocument();
    void ProjectOptions();
    void TargetDialog();
    void CompilerDialog();
    void ClockRateDialog();
    void BuildOptions();
    void RecolourViews();
    void FollowTargetChange();
    std::string ActiveDocumentFile() const;  // empty unless the active project has it
};
