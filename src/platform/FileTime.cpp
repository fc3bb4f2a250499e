#include "platform/FileTime.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/NativePath.h"

std::optional<int64_t> ReadLastWriteTime(const std::string &path) {
    // Non-blocking: opening a FIFO must not wait for a writer.
    const int file = open(ToNativePath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0) return {};
    struct stat status;
    const bool known = fstat(file, &status) == 0;
    close(file);
    if (!known) return {};
    return int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
}
