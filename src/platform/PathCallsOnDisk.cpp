// The calls of PathCalls.h that look at the disk.
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "platform/FileFind.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

bool Stat(const std::string &path, struct stat &status) {
    return path.find('\0') == path.npos && stat(ToNativePath(path).c_str(), &status) == 0;
}

bool IsShortNameLetter(char c) {
    constexpr std::string_view others = "$%'-_@~`!(){}^#&";
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || others.find(c) != others.npos;
}

bool IsShortName(const SplitPath &parts) {
    const std::string_view extension = std::string_view(parts.extension).substr(parts.extension.empty() ? 0 : 1);
    return !parts.name.empty() && parts.name.size() <= 8 && extension.size() <= 3 && parts.extension != "." &&
           std::all_of(parts.name.begin(), parts.name.end(), IsShortNameLetter) &&
           std::all_of(extension.begin(), extension.end(), IsShortNameLetter);
}

// The letters of `text` that a short name may hold, in capitals, at most `limit` of them.
std::string ShortLetters(std::string_view text, size_t limit) {
    std::string letters;
    for (const char c : text) {
        if (letters.size() == limit) break;
        if (c == ' ' || c == '.') continue;
        letters += !IsShortNameLetter(c) ? '_' : c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    }
    return letters;
}

// What stands before the "~" and behind the dot of a made-up name.
struct ShortStem {
    std::string name, extension;
    bool operator==(const ShortStem &) const = default;
};

ShortStem MakeStem(const SplitPath &parts) {
    // A name that begins with its only dot has no extension.
    if (parts.name.empty()) return {ShortLetters(parts.extension, 6), ""};
    return {ShortLetters(parts.name, 6), ShortLetters(parts.extension, 3)};
}

}  // namespace

bool GetLongPathNameA(std::string &out, const std::string &path) {
    struct stat status;
    if (path.empty() || !Stat(path, status)) return false;
    std::string spelled = FromNativePath(ToNativePath(path));
    const SplitPath parts = _splitpath(path);
    if (!parts.drive.empty()) {
        // The drive letter is the caller's; what follows it is as the disk has it.
        const size_t mapped = FromNativePath(NativePathAsSpelled(parts.drive)).size();
        spelled.erase(0, std::min(spelled.size(), EqualNoCase(parts.drive, "c:") ? mapped - 1 : mapped));
        spelled.insert(0, parts.drive);
    }
    out = std::move(spelled);
    return true;
}

bool GetShortPathNameA(std::string &out, const std::string &path) {
    std::string longName;
    if (!GetLongPathNameA(longName, path)) return false;
    const size_t start = longName.find_last_of("\\:") + 1;  // 0 for a bare name
    const std::string directory = longName.substr(0, start), name = longName.substr(start);
    const SplitPath parts = _splitpath(name);
    if (name.empty() || name == "." || name == ".." || IsShortName(parts)) {
        out = std::move(longName);
        return true;
    }

    // Names of one stem are numbered in byte order, past every name that really stands in the directory.
    const ShortStem stem = MakeStem(parts);
    const std::string dottedExtension = stem.extension.empty() ? "" : "." + stem.extension;
    const std::vector<FoundFile> entries = FindFiles(directory + "*");
    const auto make = [&](int number) {
        const std::string tail = "~" + std::to_string(number);
        return stem.name.substr(0, 8 - std::min<size_t>(tail.size(), 7)) + tail + dottedExtension;
    };
    const auto isTaken = [&](const std::string &candidate) {
        return std::any_of(entries.begin(), entries.end(),
                           [&](const FoundFile &entry) { return EqualNoCase(entry.name, candidate); });
    };
    int number = 0;
    for (const FoundFile &entry : entries) {
        const SplitPath other = _splitpath(entry.name);
        if (IsShortName(other) || MakeStem(other) != stem) continue;
        do ++number;
        while (isTaken(make(number)));
        if (entry.name == name) break;
    }
    out = directory + make(std::max(number, 1));
    return true;
}

std::string GetCurrentDirectoryA() {
    char *directory = getcwd(nullptr, 0);
    if (!directory) return {};
    std::string windows = FromNativePath(directory);
    free(directory);
    return windows;
}

bool SetCurrentDirectoryA(const std::string &directory) {
    return !directory.empty() && chdir(ToNativePath(directory).c_str()) == 0;
}

unsigned GetFileAttributesA(const std::string &path) {
    struct stat status;
    if (path.empty() || !Stat(path, status)) return kInvalidFileAttributes;
    unsigned attributes = S_ISDIR(status.st_mode) ? kFileAttributeDirectory : 0;
    if (access(ToNativePath(path).c_str(), W_OK) != 0) attributes |= kFileAttributeReadOnly;
    return attributes ? attributes : kFileAttributeNormal;
}

bool CreateDirectoryA(const std::string &path) { return mkdir(ToNativePath(path).c_str(), 0777) == 0; }

bool FileExists(const std::string &path) {
    struct stat status;
    return Stat(path, status) && !S_ISDIR(status.st_mode);
}

bool DirectoryExists(const std::string &path) {
    struct stat status;
    return Stat(path, status) && S_ISDIR(status.st_mode);
}
