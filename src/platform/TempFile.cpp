#include "platform/TempFile.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "platform/NativePath.h"

std::string MakeTempFile(const std::string &prefix) {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    if (error) return {};
    std::string name = (folder / (prefix + "XXXXXX")).string();
    const int descriptor = mkstemp(name.data());
    if (descriptor < 0) return {};
    close(descriptor);
    return FromNativePath(name);
}

void DeleteFileA(const std::string &path) {
    if (!path.empty()) unlink(ToNativePath(path).c_str());
}
