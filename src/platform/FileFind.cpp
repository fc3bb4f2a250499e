#include "platform/FileFind.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

size_t CharacterLength(std::string_view text, size_t at) {
    size_t end = at + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
    return end - at;
}

// Both texts in lower case. Goes back to the last star only, so that no pattern takes more than pattern x text steps.
bool MatchesFolded(std::string_view pattern, std::string_view text) {
    size_t p = 0, t = 0, star = pattern.npos, retry = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            retry = t;
        } else if (p < pattern.size() && pattern[p] == '?') {
            ++p;
            t += CharacterLength(text, t);
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p, ++t;
        } else if (star != pattern.npos) {
            p = star + 1;
            retry += CharacterLength(text, retry);
            t = retry;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

}  // namespace

std::vector<FoundFile> FindFiles(const std::string &pattern) {
    const SplitPath parts = _splitpath(pattern);
    const std::string name = parts.name + parts.extension;
    if (name.empty()) return {};
    const std::string directory = ToNativePath(parts.drive + parts.directory);
    std::unique_ptr<DIR, int (*)(DIR *)> listing(opendir(directory.empty() ? "." : directory.c_str()), closedir);
    if (!listing) return {};

    const bool plain = name.find_first_of("*?") == name.npos;
    const std::string folded = name == "*.*" ? "*" : LowerCase(name);
    std::vector<FoundFile> found;
    while (const dirent *entry = readdir(listing.get())) {
        const std::string_view candidate = entry->d_name;
        if (candidate == "." || candidate == ".." || !MatchesFolded(folded, LowerCase(candidate))) continue;
        struct stat status;
        const bool known = fstatat(dirfd(listing.get()), entry->d_name, &status, 0) == 0;  // not for a dangling link
        unsigned attributes = known && S_ISDIR(status.st_mode) ? kFileAttributeDirectory : 0;
        if (known && faccessat(dirfd(listing.get()), entry->d_name, W_OK, 0) != 0) attributes |= kFileAttributeReadOnly;
        found.push_back({std::string(candidate), attributes ? attributes : kFileAttributeNormal});
    }
    std::sort(found.begin(), found.end(), [](const auto &a, const auto &b) { return a.name < b.name; });
    if (plain && found.size() > 1) {
        const auto exact = std::find_if(found.begin(), found.end(), [&](const auto &f) { return f.name == name; });
        if (exact != found.end()) std::swap(found.front(), *exact);
        found.resize(1);
    }
    return found;
}
