#include "navigation/FilePresence.h"

#include <filesystem>

#include "platform/NativePath.h"
#include "platform/PathCalls.h"

bool CFilePresence::Exists(const std::string &path) {
    const SplitPath parts = _splitpath(path);
    const std::string name = LowerCase(parts.name + parts.extension);
    // A name that isn't listed needs no look at the disk, where the search for other spellings of it is slow.
    return NamesIn(parts.drive + parts.directory).contains(name) && FileExists(path);
}

const CFilePresence::Names &CFilePresence::NamesIn(const std::string &directory) {
    const auto [found, isNew] = directories_.try_emplace(directory);
    if (!isNew) return found->second;
    std::error_code error;
    std::filesystem::directory_iterator entry(directory.empty() ? "." : ToNativePath(directory), error), end;
    for (; !error && entry != end; entry.increment(error))
        found->second.insert(LowerCase(entry->path().filename().string()));
    return found->second;
}
