#include "navigation/ProjectFiles.h"

#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "project/ProfileBody.h"

ProjectFiles ReadProjectFiles(const std::string &projectFile) {
    ProjectFiles files;
    if (projectFile.empty()) return files;
    const SplitPath parts = _splitpath(projectFile);
    files.directory = parts.drive + parts.directory;
    const size_t count = ReadProfileCount("Files", "Count", projectFile);
    for (size_t i = 0; i < count; ++i) {
        std::string name = ReadProfileString("Files", "File" + std::to_string(i), {}, projectFile);
        if (!name.empty()) files.names.push_back(std::move(name));
    }
    return files;
}

std::string FullNameFrom(const std::string &directory, const std::string &name) {
    const SplitPath parts = _splitpath(name);
    const bool absolute = !parts.drive.empty() || parts.directory.starts_with('\\') || parts.directory.starts_with('/');
    const std::string joined = absolute ? name : directory + name;
    std::string full;
    return PathCanonicalizeA(full, joined) ? full : joined;
}
