#include "platform/FileText.h"

#include "platform/NativeFile.h"
#include "platform/NativePath.h"

std::optional<std::string> ReadWholeFile(const std::string &path) { return ReadNativeFile(ToNativePath(path)); }

bool ReplaceWholeFile(const std::string &path, std::string_view bytes) {
    return ReplaceNativeFile(ToNativePath(path), bytes);
}
