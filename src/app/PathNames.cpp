#include "app/PathNames.h"

#include "app/Path.h"
#include "platform/PathCalls.h"

namespace {

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

}  // namespace

std::string AddSlash(std::string_view directory) {
    std::string result(directory);
    if (!result.empty() && !IsSeparator(result.back())) result += '\\';
    return result;
}

void MakeRelativeToFile(std::string_view base, std::string &name) {
    const std::string directory = CPath(base).GetDirectory();
    if (!directory.empty()) {
        const size_t below = MatchPrefixNoCase(CPath(name).GetDirectory(), directory);
        if (below != std::string::npos) {
            if (name.starts_with('"')) name = PathUnquoteSpacesA(name);
            name.erase(0, below);
            // Only here: elsewhere a leading separator is what makes a name absolute.
            while (!name.empty() && IsSeparator(name.front())) name.erase(0, 1);
        }
    }
    const CPath path(name);
    if (path.GetDrive().empty() && !path.GetDir().starts_with('\\')) return;
    if (std::string relative = path.MakeRelative(directory); !relative.empty()) name = std::move(relative);
}

std::string QuoteToolPath(std::string_view path, std::string_view programDirectory) {
    return programDirectory.find(' ') == programDirectory.npos ? std::string(path) : Quoted(path);
}

std::string QuoteIfBlank(std::string_view path) {
    return path.find_first_of(" \t") == path.npos ? std::string(path) : Quoted(path);
}

std::string QuoteListedName(std::string_view name) {
    return name.starts_with('"') || name.find(' ') == name.npos ? std::string(name) : Quoted(name);
}
