#include "project/AddFileDialogs.h"

#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/Settings.h"
#include "framework/FileDialog.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "project/CurrentWorkspace.h"
#include "project/Screen.h"
#include "project/Workspace.h"

namespace {

constexpr const char *kSourceFilter =
    "Source Files|*.c;*.cpp;*.h;*.pas;*.asm;*.lst;*.lib|C Files(*.c)|*.c|C++ Files(*.cpp)|*.cpp|Header Files(*.h)|*.h|"
    "Pascal Files(*.pas)|*.pas|Asm Files(*.asm)|*.asm|Lst Files(*.lst)|*.lst|Lib Files(*.lib)|*.lib|"
    "All Files(*.*)|*.*|";
constexpr const char *kSettings = "Settings";
constexpr const char *kLastExtension = "Last Ext";
constexpr const char *kLastFilter = "Last ExtIdx";
constexpr uint32_t kExtensionSize = 256;  // bytes of a stored extension

std::string StartDirectory(const std::string &project) {
    const std::string directory = WorkspaceOrNone().GetActiveDirectory(project);
    return directory.empty() ? CPath(WorkspaceOrNone().ProjectFullPath(project)).GetDirectory() : directory;
}

// Keeps a value for this project and, for those that have none of their own, for the user.
void Remember(const std::string &file, const char *key, const std::string &value) {
    if (!file.empty()) WritePrivateProfileStringA(kSettings, key, value.c_str(), file.c_str());
}

void RememberDirectory(const std::string &project, const std::string &path) {
    WorkspaceOrNone().SetActiveDirectory(project, DirectoryExists(path) ? path : CPath(path).GetDirectory());
}

}  // namespace

std::vector<std::string> AskForFilesToAdd(const std::string &project) {
    CWorkspace &workspace = WorkspaceOrNone();
    const std::string file = workspace.ProjectFullPath(project);
    CFileDialog dialog(CFileDialog::Kind::open);
    dialog.multiple = true;
    dialog.filter = workspace.GetFileOpenFilter(project);
    if (dialog.filter.empty()) dialog.filter = kSourceFilter;
    dialog.defaultExtension = ReadProfileString(kSettings, kLastExtension,
                                                GetUserString(kSettings, kLastExtension, "c"), file, kExtensionSize);
    dialog.filterIndex =
        GetPrivateProfileIntA(kSettings, kLastFilter, GetUserInt(kSettings, kLastFilter, 1), file.c_str());
    dialog.initialDirectory = StartDirectory(project);
    if (!dialog.DoModal(&Frame()) || dialog.paths.empty()) return {};

    RememberDirectory(project, dialog.paths.front());
    WriteUserInt(kSettings, kLastFilter, dialog.filterIndex);
    Remember(file, kLastFilter, std::to_string(dialog.filterIndex));
    const std::string extension = CPath(dialog.paths.back()).GetExtension();
    WriteUserString(kSettings, kLastExtension, extension);
    Remember(file, kLastExtension, extension);
    return dialog.paths;
}

std::string AskForNewFile(const std::string &project) {
    CWorkspace &workspace = WorkspaceOrNone();
    CFileDialog dialog(CFileDialog::Kind::save);
    dialog.filter = workspace.GetFileOpenFilter(project);
    if (dialog.filter.empty()) dialog.filter = kSourceFilter;
    const std::string extension = workspace.GetFilterExt(project);
    dialog.defaultExtension = extension.starts_with('.') ? extension.substr(1) : extension;
    dialog.initialDirectory = StartDirectory(project);
    if (!dialog.DoModal(&Frame()) || dialog.paths.empty()) return {};
    RememberDirectory(project, dialog.paths.front());
    return dialog.paths.front();
}
