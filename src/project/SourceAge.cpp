#include "project/SourceAge.h"

#include "app/ProjectDirScope.h"
#include "platform/FileTime.h"
#include "platform/PathCalls.h"
#include "project/CurrentWorkspace.h"
#include "project/Workspace.h"

std::optional<SourceAge> NewestSource() {
    const auto workspace = CurrentWorkspace();
    if (!workspace) return {};
    const ProjectDirScope scope(ActiveProjectPath());
    std::optional<SourceAge> newest;
    for (const std::string &name : workspace->GetFileList()) {
        const std::string file = GetFullPathNameA(name);
        const std::optional<int64_t> written = ReadLastWriteTime(file);
        if (written && (!newest || *written > newest->written)) newest = {file, *written};
    }
    return newest;
}
