// A new project, with its first source and header.
#pragma once

#include <string>

class CWorkspace;
class QWidget;

// Asks where the project is to lie, starting in `directory`. False when the user cancelled.
bool AskForProjectPath(QWidget *parent, const std::string &directory, std::string &path);

// Asks for toolsuite and kind, makes the project's file at `path` and adds the project to `workspace` as the active
// one. `compiler`: the toolsuite offered first. Failures are shown to the user. False when no project was made.
bool AddNewProject(CWorkspace &workspace, const std::string &path, QWidget *parent, const std::string &compiler);
