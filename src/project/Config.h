// One of the two ways in which a project is built: "Debug" or "Release".
#pragma once

#include <string>

class CProject;

// Owned by its project. Paths are in the Windows form.
class CConfig {
public:
    // Makes the output directory beside the project when it isn't there and can be made.
    CConfig(CProject *project, std::string name);

    const std::string &GetName() const { return name_; }
    CProject *GetProject() const { return project_; }
    void SetBaseDir(const std::string &directory);  // with its trailing separator

    std::string GetFilePath() const;   // full path of the configuration's file, which need not exist
    std::string GetOutputDir() const;  // full, with its trailing separator; made when it isn't there

private:
    CProject *project_;
    std::string name_;
    std::string file_;     // relative to the base directory, as the project's stored name is
    std::string baseDir_;  // with its trailing separator
};
