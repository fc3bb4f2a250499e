#include "debugger/EngineFileName.h"

#include <optional>
#include <string_view>
#include <vector>

#include "debugger/PathFilterGrammar.h"
#include "platform/PathCalls.h"

namespace {

struct PathParts {
    std::optional<std::string_view> root;
    std::vector<std::string_view> directories;
    std::string_view name;
};

std::optional<PathParts> Cut(std::string_view text) {
    PathParts parts;
    const path_filter_grammar grammar([&](std::string_view root) { parts.root = root; },
                                      [&](std::string_view directory) {
                                          directory.remove_suffix(1);
                                          parts.directories.push_back(directory);
                                      },
                                      [&](std::string_view name) { parts.name = name; });
    return grammar.ParseWhole(text) ? std::optional(std::move(parts)) : std::nullopt;
}

// Takes out each "." but one at the front, and each ".." together with the directory before it.
std::vector<std::string_view> Reduce(const std::vector<std::string_view> &directories) {
    std::vector<std::string_view> kept;
    for (size_t i = 0; i < directories.size(); ++i) {
        if (directories[i] == "." && i > 0) continue;
        if (directories[i] == ".." && !kept.empty() && kept.back() != ".." && kept.back() != ".")
            kept.pop_back();
        else
            kept.push_back(directories[i]);
    }
    return kept;
}

std::string Join(const PathParts &parts) {
    std::string path(*parts.root);
    path.back() = '\\';
    for (const std::string_view directory : Reduce(parts.directories)) path.append(directory) += '\\';
    return path.append(parts.name);
}

// A quote may stand on either side alone.
std::string_view WithoutQuotes(std::string_view text) {
    if (text.starts_with('"')) text.remove_prefix(1);
    if (text.ends_with('"')) text.remove_suffix(1);
    return text;
}

}  // namespace

std::string EngineFileName(const std::string &name) {
    std::optional<PathParts> parts = Cut(name);
    if (!parts) return name;
    if (parts->root) return Join(*parts);
    std::string full = GetCurrentDirectoryA();
    if (!full.ends_with('\\')) full += '\\';
    full += WithoutQuotes(name);
    parts = Cut(full);
    return parts && parts->root ? Join(*parts) : full;
}
