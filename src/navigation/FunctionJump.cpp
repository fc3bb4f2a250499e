#include "navigation/FunctionJump.h"

#include <string_view>

#include "app/IDEApp.h"
#include "app/Path.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "navigation/CallTree.h"
#include "navigation/FunctionStats.h"
#include "navigation/OpenSource.h"
#include "navigation/ProjectFiles.h"
#include "platform/PathCalls.h"

namespace {

// As the files of a build can hold it: a "_" stands for each character that their names don't take.
std::string WithoutOddCharacters(const std::string &path) {
    std::string text;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xc0) == 0x80) continue;  // not the first byte of its character
        text += byte >= 0x80 || std::string_view("'\",;[]{}`<>|*?").find(c) != std::string_view::npos ? '_' : c;
    }
    return text;
}

// The full name of a file that the build spelled. Inside a scope of the project's directory.
std::string Resolve(const std::string &file) {
    const CPath path(file);
    const std::string folder = path.GetDirectory();
    const bool local = folder.empty() || folder.starts_with('.');
    const std::string project = CIDEApp::Get().GetActiveProjectPath();
    const std::string full = GetFullPathNameA((local ? CPath(project).GetDirectory() : "") + path.GetFullPath());
    if (FileExists(full)) return full;
    const CPath sought(WithoutOddCharacters(full));
    const ProjectFiles files = ReadProjectFiles(project);
    for (const std::string &name : files.names)
        if (const std::string source = FullNameFrom(files.directory, name);
            sought.IsSamePath(WithoutOddCharacters(source)))
            return source;
    return full;
}

bool OpenByIndex(const std::string &name, const std::string &file) {
    const SymbolMap &functions = CIDEApp::Get().symbols.Maps().Functions;
    const auto found = functions.find(name);
    if (found == functions.end()) return false;
    const BrowseRecord record = found->second;  // opening a document can build the index anew
    return CPath(GetFullPathNameA(record.file)).IsSamePath(file) && OpenSourceAtLine(record.file, record.line);
}

void TellNoSource(const std::string &name) {
    CIDEApp::Get().AddOutputLine(LoadText(IDS_SYMBOL_NOT_FOUND, {name}));
}

}  // namespace

void JumpToFunction(const std::string &name, const CallTreeLocation &location) {
    const ProjectDirScope scope(CIDEApp::Get().GetActiveProjectPath());
    const std::string file = Resolve(location.file);
    if (OpenByIndex(name, file)) return;
    if (FileExists(file) && OpenSourceAtLine(file, location.line)) return;
    TellNoSource(name);
}

void JumpToFunction(const SStatData &function) {
    if (function.file.empty()) return;
    const ProjectDirScope scope(CIDEApp::Get().GetActiveProjectPath());
    std::string name = function.name.substr(0, function.name.find('('));
    name.resize(name.find_last_not_of(' ') + 1);
    const std::string file = Resolve(function.file);
    if (OpenByIndex(name, file)) return;
    const std::string folder = CPath(function.file).GetDirectory();
    const bool known = function.line != 0 && !folder.empty() && DirectoryExists(folder);
    if (known && OpenSourceAtLine(file, function.line)) return;
    if (function.name == kGlobalData)
        CIDEApp::Get().AddOutputLine(LoadText(IDS_GLOBAL_NO_SOURCE));
    else
        TellNoSource(function.name);
}
