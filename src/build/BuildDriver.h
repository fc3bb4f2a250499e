// From a build command to the queue of steps, and the tool bar that shows what runs.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "framework/CmdTarget.h"

// Handles the commands of building and of the output bar. Main thread.
class CBuildDriver : public CCmdTarget {
public:
    enum StandardStep { kFirstStep, kSecondStep, kThirdStep, kFourthStep, kFifthStep, kStandardSteps };

    CBuildDriver();

    bool OnCmdMsg(int id, CCmdUI *ui) override;  // its own map, then the output bar's lists

    // Builds the project of file `project` (full name) with `arguments` behind the makefile. `clean`: no batch files
    // and no RTOS question. `first`: this call starts the queue; later projects of one command only add their steps.
    // False when the user cancelled, or nothing was queued or started; the build list tells why.
    bool BuildProject(const std::string &project, const std::string &arguments, bool clean, bool first);

    // Writes the makefile and adds the project's steps. False, with the reason in the build list, when there is no
    // step.
    bool QueueProjectBuild(bool clean, const std::string &project, const std::string &arguments);

    // Runs one step of the active project's toolsuite; `heading` is written above its output. False when something runs
    // already or it can't be started.
    bool RunToolStep(int index, const std::string &heading = {});

    void StopBuild();

    // The question about a library of the RTOS without its linker switch. False: the user cancelled.
    bool CheckSableProject(const std::string &project);

    // Shows the form `resource` of the build tool bar, without the buttons that the active toolsuite has no use for.
    void LoadBuildToolBar(int resource);

    void BuildBehindStop(int id);  // a build that has waited for the target of a debug run to stop

    bool IsIdle() const;  // no child runs and no step waits

private:
    void RunWithoutSession(int id, const std::function<void()> &build);
    void MapCommands();
    bool CanBuild() const;
    bool CanBuildAll() const;
    void BuildActive(const std::string &arguments, bool clean);
    void BuildAll(const std::string &arguments, bool clean);
    void RunStandardStep(StandardStep step);
    void FindStandardSteps();
    void AddBatchStep(const std::string &project, const std::string &name);
    void TellError(const std::string &text);

    std::array<int, kStandardSteps> standardSteps_;
    std::vector<std::string> errors_;  // of the projects of one command that couldn't be queued
};

// "all", or "-a all" while the control key is held down.
std::string BuildArguments();
