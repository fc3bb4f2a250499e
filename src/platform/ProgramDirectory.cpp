#include "platform/ProgramDirectory.h"

#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

bool IsProgram(const std::string &native) {
    struct stat status;
    return stat(native.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(native.c_str(), X_OK) == 0;
}

bool EndsInExe(std::string_view name) { return name.size() > 4 && EqualNoCase(name.substr(name.size() - 4), ".exe"); }

// The program of this name in the Windows form, or of the name without its ".exe"; empty when neither can be run.
std::string LookUpProgram(std::string_view name) {
    if (std::string native = ToNativePath(name); IsProgram(native)) return native;
    if (!EndsInExe(name)) return {};
    std::string native = ToNativePath(name.substr(0, name.size() - 4));
    return IsProgram(native) ? native : std::string();
}

}  // namespace

std::string ProgramDirectory() {
    if (const char *given = getenv("THORNWELL_PROGRAM_DIR"); given && *given) {
        std::string directory = FromNativePath(given);
        while (directory.size() > 1 && directory.back() == '\\') directory.pop_back();
        return directory;
    }
    char program[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", program, sizeof program);
    if (length <= 0) return {};
    const std::string_view file(program, static_cast<size_t>(length));
    return FromNativePath(file.substr(0, std::max<size_t>(file.rfind('/'), 1)));
}

std::string ProgramFile(const std::string &name) {
    const std::string directory = ProgramDirectory();
    return directory.ends_with('\\') ? directory + name : directory + "\\" + name;
}

std::string FindProgram(const std::string &word) {
    if (word.empty() || word.find('\0') != word.npos) return {};
    if (word.find_first_of("\\/:") != word.npos) return LookUpProgram(word);
    if (std::string found = LookUpProgram(ProgramFile(word)); !found.empty()) return found;

    const char *path = getenv("PATH");
    std::string_view rest = path ? path : "/usr/local/bin:/usr/bin:/bin";
    while (!rest.empty()) {
        const size_t colon = std::min(rest.find(':'), rest.size());
        const std::string directory(rest.substr(0, colon));
        rest.remove_prefix(std::min(colon + 1, rest.size()));
        if (!directory.starts_with('/')) continue;  // the current directory is no place for tools
        std::string found = directory + "/" + word;
        if (IsProgram(found)) return found;
        if (EndsInExe(word) && IsProgram(found = found.substr(0, found.size() - 4))) return found;
    }
    return {};
}
