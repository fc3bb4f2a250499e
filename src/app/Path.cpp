#include "app/Path.h"

#include <algorithm>

#include "app/PathNames.h"
#include "platform/FileFind.h"
#include "platform/PathCalls.h"

namespace {

CPath::LongPathCall longPathCall = &GetLongPathNameA;

// The path with each element as a file search gives it; empty when the file itself isn't found.
std::string WalkLongPath(const std::string &path) {
    const auto storedName = [](const std::string &name) {
        const std::vector<FoundFile> found = FindFiles(name);
        return found.empty() ? std::string() : found.front().name;
    };
    std::string result = storedName(path);
    if (result.empty()) return {};
    std::string prefix = path;
    for (;;) {
        const size_t separator = prefix.rfind('\\');
        if (separator == prefix.npos) return result;
        prefix.resize(separator);
        if (prefix.size() == 2 && prefix[1] == ':') return prefix + "\\" + result;
        const std::string name = storedName(prefix);
        if (name.empty()) return prefix + "\\" + result;
        result = name + "\\" + result;
    }
}

// "c:\x" and "\x" name one file.
std::string_view WithoutRootDrive(std::string_view path) {
    const bool onRootDrive = path.size() > 2 && (path[0] == 'c' || path[0] == 'C') && path[1] == ':' && path[2] == '\\';
    return onRootDrive ? path.substr(2) : path;
}

}  // namespace

void CPath::Set(std::string_view text) {
    const std::string given(text);  // `text` may lie in this value
    *this = CPath();
    text_ = given;
    const SplitPath parts = _splitpath(PathUnquoteSpacesA(given));
    drive_ = parts.drive;
    directory_ = parts.directory;
    std::replace(directory_.begin(), directory_.end(), '/', '\\');
    relative_ = !directory_.empty() && directory_.front() != '\\';
    title_ = parts.name;
    if (!title_.empty()) extension_ = parts.extension;
    std::erase(extension_, '.');
}

std::string CPath::GetDottedExtension() const { return extension_.empty() ? std::string() : "." + extension_; }

const char *CPath::GetFullPathCached() const {
    fullPath_ = GetFullPath();
    return fullPath_.c_str();
}

std::string CPath::MakeAbsolute(std::string_view base) const {
    std::string absolute;
    if (!relative_ || base.empty() || !PathCanonicalizeA(absolute, AddSlash(base) + GetFullPath())) return {};
    return absolute;
}

std::string CPath::MakeRelative(std::string_view base) const {
    if (relative_) return {};
    // Without the last element as given, as of ".cfg" or "x.", the result would name something else.
    const SplitPath given = _splitpath(PathUnquoteSpacesA(text_));
    if (given.name + given.extension != GetFileName()) return {};
    std::string from(base);
    PathCanonicalizeA(from, base);
    const bool isRoot = from == "\\" || from.ends_with(":\\");
    if (!isRoot && (from.ends_with('\\') || from.ends_with('/'))) from.pop_back();

    std::string result;
    if (!PathRelativePathToA(result, from, kFileAttributeDirectory, GetFullPath(),
                             title_.empty() ? kFileAttributeDirectory : 0))
        return {};
    if (result.size() > 1) {
        const auto isSeparator = [](char c) { return c == '\\' || c == '/'; };
        if (result.starts_with(".\\")) {
            result.erase(0, 2);
        } else if (isSeparator(result[0]) && !isSeparator(result[1])) {
            result.erase(0, 1);
        }
    }
    return result;
}

std::string CPath::GetLongPath() const {
    const std::string full = GetFullPath();
    std::string result;
    if (!longPathCall) {
        result = WalkLongPath(full);
    } else if (!longPathCall(result, full)) {
        result.clear();
    }
    if (result.empty()) result = full;
    std::replace(result.begin(), result.end(), '/', '\\');
    return result;
}

bool CPath::IsSamePath(std::string_view other) const {
    const std::string a = GetLongPath(), b = CPath(other).GetLongPath();
    return EqualNoCase(WithoutRootDrive(a), WithoutRootDrive(b));
}

void CPath::SetLongPathCall(LongPathCall call) { longPathCall = call; }
