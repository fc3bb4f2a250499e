#include "platform/NativePath.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>

#include "platform/PathCalls.h"

namespace {

bool Exists(const std::string &path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

// The entry of `directory` that equals `name` but for case, the first in byte order; empty when there is none.
std::string FindEntryNoCase(const std::string &directory, const std::string &name) {
    std::unique_ptr<DIR, int (*)(DIR *)> listing(opendir(directory.empty() ? "." : directory.c_str()), closedir);
    if (!listing) return {};
    std::string found;
    while (const dirent *entry = readdir(listing.get())) {
        const std::string_view candidate = entry->d_name;
        if ((found.empty() || candidate < found) && EqualNoCase(candidate, name)) found = candidate;
    }
    return found;
}

// Follows `path` element by element as far as it leads.
std::string LookUp(const std::string &path) {
    std::string reached;
    size_t at = 0;
    while (at < path.size()) {
        if (path[at] == '/') {
            reached += path[at++];
            continue;
        }
        const size_t end = std::min(path.find('/', at), path.size());
        std::string element = path.substr(at, end - at);
        if (!Exists(reached + element)) {
            element = FindEntryNoCase(reached, element);
            if (element.empty()) return reached + path.substr(at);
        }
        reached += element;
        at = end;
    }
    return reached;
}

}  // namespace

std::string NativePathAsSpelled(std::string_view windows) {
    std::string native;
    if (windows.size() >= 2 && windows[1] == ':' && ((windows[0] | 32) >= 'a' && (windows[0] | 32) <= 'z')) {
        const char drive = static_cast<char>(windows[0] | 32);
        windows.remove_prefix(2);
        if (drive != 'c') native = std::string("/mnt/") + drive;
        if ((drive == 'c' || !windows.empty()) && !windows.starts_with('\\') && !windows.starts_with('/'))
            native += '/';
    }
    native += windows;
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

std::string ToNativePath(std::string_view windows) {
    std::string native = NativePathAsSpelled(windows);
    // A text with a zero inside names nothing; the system would read its front part only.
    if (native.empty() || native.find('\0') != native.npos || Exists(native)) return native;
    return LookUp(native);
}

std::string FromNativePath(std::string_view native) {
    std::string windows(native);
    std::replace(windows.begin(), windows.end(), '/', '\\');
    // A relative name such as "a:b" must not be read as a drive.
    if (windows.size() >= 2 && windows[1] == ':') windows.insert(0, ".\\");
    return windows;
}

std::string DisplayPath(std::string_view windows) { return ToNativePath(windows); }

bool NamesOneFile(const std::string &a, const std::string &b) {
    return EqualNoCase(a, b) && (a == b || ToNativePath(a) == ToNativePath(b));
}
