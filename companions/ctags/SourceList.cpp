#include "SourceList.h"

#include <glob.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <utility>

#include "platform/PathCalls.h"

namespace {

namespace fs = std::filesystem;

constexpr off_t kLargestSource = 20'000'000;  // bytes
constexpr std::string_view kAssembler[] = {".asm", ".inc", ".s", ".as"};
constexpr std::string_view kInclude = ".inc";

bool IsAssembler(const std::string &path) {
    const std::string extension = fs::path(path).extension().string();
    return std::ranges::any_of(kAssembler, [&](std::string_view known) { return EqualNoCase(extension, known); });
}

class CCollector {
public:
    explicit CCollector(bool recurse) : recurse_(recurse) {}

    void AddName(const std::string &name);
    void Add(const std::string &path);
    SourceList List() &&;

private:
    void AddDirectory(const std::string &path);

    const bool recurse_;
    std::set<std::pair<dev_t, ino_t>> entered_;
    std::deque<std::string> links_;  // to directories, entered last: a file goes by its own path where it has one
    SourceList list_;
};

void CCollector::Add(const std::string &path) {
    struct stat state;
    if (stat(path.c_str(), &state) != 0) return;
    if (S_ISDIR(state.st_mode)) {
        if (recurse_ && entered_.emplace(state.st_dev, state.st_ino).second) AddDirectory(path);
    } else if (S_ISREG(state.st_mode) && state.st_size <= kLargestSource) {
        (IsAssembler(path) ? list_.assembler : list_.others).push_back(path);
    }
}

void CCollector::AddDirectory(const std::string &path) {
    std::vector<std::string> names;
    std::error_code failure;
    for (fs::directory_iterator it(path, failure), end; !failure && it != end; it.increment(failure)) {
        std::string name = it->path().filename().string();
        if (!name.starts_with('.')) names.push_back(std::move(name));
    }
    std::ranges::sort(names);
    const std::string base = path.ends_with('/') ? path : path + "/";
    for (const std::string &name : names) {
        const std::string entry = base + name;
        if (fs::is_symlink(entry, failure) && fs::is_directory(entry, failure))
            links_.push_back(entry);
        else
            Add(entry);
    }
}

SourceList CCollector::List() && {
    for (; !links_.empty(); links_.pop_front()) Add(std::string(links_.front()));
    return std::move(list_);
}

void CCollector::AddName(const std::string &name) {
    if (name.find_first_of("*?") == std::string::npos || access(name.c_str(), F_OK) == 0) {
        Add(name);
        return;
    }
    if (recurse_ && name.ends_with("/*")) {  // all of a directory, which links in it may lead back to
        Add(name.substr(0, name.size() - 1));
        return;
    }
    std::string pattern;
    for (const char c : name) {
        if (c == '[' || c == '\\') pattern += '\\';
        pattern += c;
    }
    glob_t found{};
    if (glob(pattern.c_str(), 0, nullptr, &found) == 0)
        for (size_t i = 0; i < found.gl_pathc; ++i) Add(found.gl_pathv[i]);
    globfree(&found);
}

void AddLines(std::istream &lines, CCollector &collector) {
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (!line.empty()) collector.Add(line);
    }
}

}  // namespace

SourceList ListSources(const TagRequest &request) {
    CCollector collector(request.recurse);
    if (request.list == "-") {
        AddLines(std::cin, collector);
    } else if (request.list) {
        std::ifstream file(*request.list, std::ios::binary);
        AddLines(file, collector);
    }
    for (const std::string &name : request.names) collector.AddName(name);
    return std::move(collector).List();
}

bool IsIncludeFile(const std::string &path) {
    return EqualNoCase(fs::path(path).extension().string(), kInclude);
}
