#include "platform/NativeFile.h"

#include <fcntl.h>
#include <limits.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <new>
#include <stdexcept>
#include <utility>

namespace {

// Closes a descriptor at the end of its scope.
class CDescriptor {
public:
    explicit CDescriptor(int descriptor) : descriptor_(descriptor) {}
    ~CDescriptor() { Close(); }
    CDescriptor(const CDescriptor &) = delete;
    CDescriptor &operator=(const CDescriptor &) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }
    int Get() const { return descriptor_; }
    bool Close() {  // false when the system lost what was written
        const int descriptor = std::exchange(descriptor_, -1);
        return descriptor < 0 || close(descriptor) == 0 || errno == EINTR;
    }

private:
    int descriptor_;
};

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        bytes.remove_prefix(static_cast<size_t>(count));
    }
    return true;
}

// The file that `path` leads to through symbolic links, the last of which may lead to nothing yet; empty for a circle.
std::string FollowLinks(std::string path) {
    for (int links = 0; links < 40; ++links) {
        char target[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), target, sizeof target);
        if (length < 0) return path;
        const std::string_view next(target, static_cast<size_t>(length));
        path = next.starts_with('/') ? std::string(next) : path.substr(0, path.rfind('/') + 1) + std::string(next);
    }
    return {};
}

bool OverwriteInPlace(const std::string &path, std::string_view bytes) {
    const std::optional<std::string> old = ReadNativeFile(path);
    CDescriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!old || !file.IsOpen()) return false;
    const auto put = [&](std::string_view text) {
        return lseek(file.Get(), 0, SEEK_SET) == 0 && WriteAll(file.Get(), text) &&
               ftruncate(file.Get(), static_cast<off_t>(text.size())) == 0;
    };
    if (put(bytes)) return file.Close();
    put(*old);
    return false;
}

// Makes a new empty file beside `path`; its name goes to `name`.
int CreateBeside(const std::string &path, std::string &name) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        uint64_t number = 0;
        if (getrandom(&number, sizeof number, 0) != static_cast<ssize_t>(sizeof number)) return -1;
        char tail[24];
        snprintf(tail, sizeof tail, ".%012llx~", static_cast<unsigned long long>(number & 0xFFFFFFFFFFFFull));
        const size_t slash = path.rfind('/') + 1;
        // A name near the limit of the file system is cut to leave room for the tail.
        name = path.substr(0, slash) + "." + path.substr(slash, 200) + tail;
        const int file = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file >= 0 || errno != EEXIST) return file;
    }
    return -1;
}

}  // namespace

std::optional<std::string> ReadNativeFile(const std::string &nativePath) try {
    CDescriptor file(open(nativePath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status;
    if (!file.IsOpen() || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    std::string bytes;
    size_t filled = 0;
    // What another program appends meanwhile isn't waited for. Files of the system tell no size.
    const auto size = static_cast<size_t>(status.st_size);
    bytes.resize(size ? size : 4096);
    while (!size || filled < size) {
        if (filled == bytes.size()) bytes.resize(bytes.size() * 2);
        const ssize_t count = read(file.Get(), bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return {};
        if (count == 0) break;
        filled += static_cast<size_t>(count);
    }
    bytes.resize(filled);
    return bytes;
} catch (const std::bad_alloc &) {
    return {};
} catch (const std::length_error &) {
    return {};
}

bool ReplaceNativeFile(const std::string &nativePath, std::string_view bytes) {
    const std::string path = FollowLinks(nativePath);
    if (path.empty() || path.find('\0') != path.npos) return false;
    struct stat old;
    const bool exists = stat(path.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return false;
    // A rename would replace a write-protected file too, if only its directory may be written.
    if (exists && (!S_ISREG(old.st_mode) || access(path.c_str(), W_OK) != 0)) return false;
    if (exists && old.st_nlink > 1) return OverwriteInPlace(path, bytes);

    std::string temporary;
    CDescriptor file(CreateBeside(path, temporary));
    if (!file.IsOpen()) return false;
    bool good = WriteAll(file.Get(), bytes);
    if (good && exists) {
        // Owner first: a change of owner drops set-id bits. Only the superuser can give a file away; others go on.
        if (fchown(file.Get(), old.st_uid, old.st_gid) != 0) errno = 0;
        good = fchmod(file.Get(), old.st_mode & 07777) == 0;
    }
    good = file.Close() && good && rename(temporary.c_str(), path.c_str()) == 0;
    if (!good) unlink(temporary.c_str());
    return good;
}
