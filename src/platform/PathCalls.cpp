#include "platform/PathCalls.h"

#include <algorithm>
#include <vector>

namespace {

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

bool HasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' && ((path[0] | 32) >= 'a' && (path[0] | 32) <= 'z');
}

// A path cut at its separators.
struct PathElements {
    std::string root;  // drive and leading separators, as "c:\", "\", "\\", "c:" or empty
    std::vector<std::string_view> elements;
    bool separatorAtEnd = false;  // behind the last element
};

PathElements Cut(std::string_view path) {
    PathElements cut;
    size_t at = HasDrive(path) ? 2 : 0;
    cut.root = path.substr(0, at);
    const size_t leading = std::find_if_not(path.begin() + at, path.end(), IsSeparator) - path.begin() - at;
    if (leading) cut.root += at == 0 && leading == 2 ? "\\\\" : "\\";
    at += leading;
    while (at < path.size()) {
        const size_t end = std::find_if(path.begin() + at, path.end(), IsSeparator) - path.begin();
        if (end > at) cut.elements.push_back(path.substr(at, end - at));
        at = end + 1;
    }
    cut.separatorAtEnd = !cut.elements.empty() && IsSeparator(path.back());
    return cut;
}

std::string Join(const PathElements &cut) {
    std::string path = cut.root;
    for (size_t i = 0; i < cut.elements.size(); ++i) {
        if (i) path += '\\';
        path += cut.elements[i];
    }
    if (cut.separatorAtEnd && !cut.elements.empty()) path += '\\';
    return path;
}

// "c:\" and "\" name one root.
std::string_view RootName(const PathElements &cut) {
    return EqualNoCase(cut.root, "c:\\") ? std::string_view("\\") : std::string_view(cut.root);
}

}  // namespace

std::string PathUnquoteSpacesA(std::string_view text) {
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
    return std::string(text);
}

SplitPath _splitpath(std::string_view path) {
    SplitPath parts;
    if (HasDrive(path)) {
        parts.drive = path.substr(0, 2);
        path.remove_prefix(2);
    }
    const size_t separator = path.find_last_of("\\/");
    if (separator != path.npos) {
        parts.directory = path.substr(0, separator + 1);
        path.remove_prefix(separator + 1);
    }
    const size_t dot = path == "." || path == ".." ? path.npos : path.rfind('.');
    parts.name = path.substr(0, dot);
    if (dot != path.npos) parts.extension = path.substr(dot);
    return parts;
}

bool PathCanonicalizeA(std::string &out, std::string_view path) {
    if (path.empty()) return false;
    PathElements cut = Cut(path);
    std::vector<std::string_view> kept;
    bool separatorAtEnd = cut.separatorAtEnd;
    for (size_t i = 0; i < cut.elements.size(); ++i) {
        const std::string_view element = cut.elements[i];
        if (element == ".") continue;
        if (element != "..") {
            kept.push_back(element);
        } else if (kept.empty()) {
            return false;
        } else {
            kept.pop_back();
        }
    }
    cut.elements = std::move(kept);
    cut.separatorAtEnd = separatorAtEnd;
    std::string result = Join(cut);
    out = result.empty() ? "." : std::move(result);
    return true;
}

bool PathRelativePathToA(std::string &out, std::string_view from, unsigned fromAttributes, std::string_view to,
                         unsigned toAttributes) {
    PathElements source = Cut(from);
    const PathElements target = Cut(to);
    if (!(fromAttributes & kFileAttributeDirectory) && !source.separatorAtEnd && !source.elements.empty())
        source.elements.pop_back();
    if (!EqualNoCase(RootName(source), RootName(target))) return false;

    size_t common = 0;
    while (common < source.elements.size() && common < target.elements.size() &&
           EqualNoCase(source.elements[common], target.elements[common]))
        ++common;
    if (source.root.empty() && common == 0) return false;
    // A file is never its own directory: its name stays in the result.
    if (!(toAttributes & kFileAttributeDirectory) && common && common == target.elements.size()) --common;
    if (std::find(source.elements.begin() + common, source.elements.end(), "..") != source.elements.end()) return false;

    PathElements result;
    result.elements.assign(source.elements.size() - common, "..");
    if (result.elements.empty()) result.elements.push_back(".");
    result.elements.insert(result.elements.end(), target.elements.begin() + common, target.elements.end());
    result.separatorAtEnd = target.separatorAtEnd;
    out = Join(result);
    return true;
}

std::string GetFullPathNameA(const std::string &name) {
    const SplitPath parts = _splitpath(name);
    const bool rooted = parts.directory.starts_with('\\') || parts.directory.starts_with('/');
    std::string full = parts.drive.empty() && !rooted ? GetCurrentDirectoryA() + "\\" + name : name;
    PathCanonicalizeA(full, full);
    return full;
}
