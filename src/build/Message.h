// One step of a build: a console command with what is to happen before and after it.
#pragma once

#include <string>

#include "platform/SharedTypes.h"

// Made by the build driver or a project, owned by the queue of steps. Main thread.
class CMessage {
public:
    CMessage(std::string projectFile, int toolIndex) : project(std::move(projectFile)), tool(toolIndex) {}
    virtual ~CMessage() = default;

    // Runs when the child has ended, with the project's directory as current directory. False ends the build.
    virtual bool PostProcess();

    std::string GetName() const;  // what the user knows the step by
    bool Execute();               // starts the step's child; false when it can't be started

    std::string logFile;      // a file that the step writes, shown after it; may be empty
    CStringList outputFiles;  // files that must exist after the step, relative to the project's directory
    std::string command;      // of a plain step: the whole command line
    std::string project;      // full name of the project's file, Windows form
    int tool;                 // -1: a plain step; 0 and up: a step of the toolsuite

private:
    bool ExecuteTool(const std::string &directory);
    bool Launch(const std::string &commandLine, const std::string &directory, int parameter);
    bool CheckOutputs() const;
    void ShowLog() const;
};
