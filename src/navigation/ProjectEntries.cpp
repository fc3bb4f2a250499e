#include "navigation/ProjectEntries.h"

#include <algorithm>

#include "platform/PathCalls.h"

namespace {

struct FileIcon {
    const char *extension;
    const char *icon;
};

constexpr FileIcon kFileIcons[] = {
    {".asm", "file-asm"},    {".s", "file-asm"},   {".c", "file-c"},      {".cpp", "file-c"},
    {".cxx", "file-c"},      {".cc", "file-c"},    {".h", "file-header"}, {".hpp", "file-header"},
    {".inc", "file-header"}, {".lib", "file-lib"}, {".a", "file-lib"},    {".hex", "chip"},
};

}  // namespace

std::vector<std::string> SplitOutputList(std::string_view list) {
    constexpr std::string_view kSeparators = ";, \t";
    std::vector<std::string> entries;
    size_t begin = list.find_first_not_of(kSeparators);
    while (begin != std::string_view::npos) {
        const size_t end = std::min(list.find_first_of(kSeparators, begin), list.size());
        entries.emplace_back(list.substr(begin, end - begin));
        begin = list.find_first_not_of(kSeparators, end);
    }
    return entries;
}

std::vector<FileEntry> MakeOutputEntries(std::string_view list, const std::function<std::string(std::string)> &expand,
                                         const std::function<std::string(const std::string &)> &fullPath) {
    std::vector<FileEntry> entries;
    for (std::string &piece : SplitOutputList(list)) {
        FileEntry entry;
        entry.name = expand(std::move(piece));
        if (entry.name.empty()) continue;
        entry.path = fullPath(entry.name);
        entry.exists = FileExists(entry.path);
        entries.push_back(std::move(entry));
    }
    return entries;
}

bool ComesBefore(const FileEntry &a, const FileEntry &b) {
    const int order = lstrcmpiA(a.name, b.name);
    return order != 0 ? order < 0 : a.name < b.name;
}

std::string FileKey(std::string_view path) {
    std::string key = LowerCase(path);
    std::replace(key.begin(), key.end(), '/', '\\');
    return key;
}

const char *FileIconName(std::string_view file) {
    const std::string extension = _splitpath(file).extension;
    for (const FileIcon &icon : kFileIcons)
        if (EqualNoCase(extension, icon.extension)) return icon.icon;
    return "file-other";
}
