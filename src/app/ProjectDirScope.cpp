#include "app/ProjectDirScope.h"

#include "app/Path.h"
#include "platform/PathCalls.h"

ProjectDirScope::ProjectDirScope(const char *file) {
    if (!file) return;
    before_ = GetCurrentDirectoryA();
    SetCurrentDirectoryA(CPath(file).GetDirectory());
    after_ = GetCurrentDirectoryA();
}

ProjectDirScope::~ProjectDirScope() {
    if (!before_.empty()) SetCurrentDirectoryA(before_);
}
