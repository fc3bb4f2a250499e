// Makes a file's directory the process's current one for the life of the object.
#pragma once

#include <string>

// Relative names are resolved inside such a scope. Scopes nest; each puts back what it found. Main thread only, because
// the current directory is the process's.
class ProjectDirScope {
public:
    explicit ProjectDirScope(const char *file);  // null: changes nothing
    explicit ProjectDirScope(const std::string &file) : ProjectDirScope(file.c_str()) {}
    ~ProjectDirScope();
    ProjectDirScope(const ProjectDirScope &) = delete;
    ProjectDirScope &operator=(const ProjectDirScope &) = delete;

    // The current directory as the scope left it, for a process that is to start in it: the former one when the file's
    // directory can't be entered; empty for a null file.
    const std::string &Directory() const { return after_; }

private:
    std::string before_;
    std::string after_;
};
