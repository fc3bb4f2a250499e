// What the project tree shows of a project, apart from the window that shows it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// A source file of a project, or a file that its build leaves.
struct FileEntry {
    std::string name;    // as the project or its output list spells it
    std::string path;    // full, Windows form
    bool exists = true;  // on disk, when last looked
};

struct ProjectEntry {
    std::string name;  // as the workspace spells it
    std::string path;  // full path of the project file, Windows form
    bool active = false;
    std::vector<FileEntry> files;
    bool hasOutputs = false;  // its output list isn't empty
    std::vector<FileEntry> outputs;
};

// The output list of a project that has none stored and whose toolsuite gives none.
inline constexpr const char *kDefaultOutputs = "%config%/%name%.asm;%config%/%name%.lst;%config%/%name%.hex";

// The entries of an output list; semicolons, commas, tabs and blanks separate them.
std::vector<std::string> SplitOutputList(std::string_view list);

// The rows of a project's output folder: the entries of `list`, each expanded, but for those that are empty then.
// `expand` fills in the variables of an entry, `fullPath` resolves its name from the project's directory.
std::vector<FileEntry> MakeOutputEntries(std::string_view list, const std::function<std::string(std::string)> &expand,
                                         const std::function<std::string(const std::string &)> &fullPath);

// The order of rows: by name without regard to case.
bool ComesBefore(const FileEntry &a, const FileEntry &b);

// A full path brought to the one form under which all its spellings, in case and separators, are equal. Nothing is
// looked up.
std::string FileKey(std::string_view path);

// Name of the drawing for a file in the icon set, by its extension.
const char *FileIconName(std::string_view file);
