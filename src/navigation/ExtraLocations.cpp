#include "navigation/ExtraLocations.h"

#include <algorithm>
#include <utility>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/WaitCursor.h"
#include "navigation/CtagsCommand.h"
#include "navigation/ExtraBrowseLocationsDlg.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "platform/TempFile.h"
#include "project/Workspace.h"

namespace {

constexpr const char *kCountSection = "Browse", *kPathSection = "Workspace";

std::string KeyOf(size_t index) {
    return "Brws" + std::to_string(index);
}

// False when the tag generator can't be started.
bool MakeExtraTags(const std::string &file, const std::vector<std::string> &locations) {
    const CWaitCursor cursor;
    const ProjectDirScope scope(file);
    for (size_t i = 0; i < locations.size(); ++i) {
        const unsigned attributes = GetFileAttributesA(locations[i]);
        if (locations[i].empty() || attributes == kInvalidFileAttributes) continue;
        const bool isFolder = (attributes & kFileAttributeDirectory) != 0;
        const std::string arguments = LocationArguments(static_cast<int>(i), ToNativePath(locations[i]), isFolder);
        if (!CIDEApp::Get().symbols.RunCtags(ExtraTagsFile(file), kExtraLocationKinds, arguments)) return false;
    }
    return true;
}

}  // namespace

std::string ExtraLocationsFile() {
    const CIDEApp &app = CIDEApp::Get();
    return app.WorkspaceKind() == kWorkspaceMultiple ? app.GetWorkspacePath() : app.GetActiveProjectPath();
}

std::vector<std::string> ReadExtraLocations(const std::string &file) {
    const int count = GetPrivateProfileIntA(kCountSection, "Count", 0, file.c_str());
    std::vector<std::string> locations(static_cast<size_t>(std::clamp(count, 0, kMostExtraLocations)));
    for (size_t i = 0; i < locations.size(); ++i) locations[i] = ReadProfileString(kPathSection, KeyOf(i), {}, file);
    return locations;
}

bool WriteExtraLocations(const std::string &file, const std::vector<std::string> &locations) {
    std::vector<std::pair<std::string, std::string>> values;
    for (size_t i = 0; i < locations.size(); ++i) values.emplace_back(KeyOf(i), locations[i]);
    return (values.empty() || WritePrivateProfileKeys(kPathSection, values, file.c_str())) &&
           WritePrivateProfileStringA(kCountSection, "Count", std::to_string(locations.size()).c_str(), file.c_str());
}

std::string ExtraTagsFile(const std::string &file) {
    const CPath parts(file);
    return parts.GetDirectory() + parts.GetTitle() + ".gbrws";
}

void OnBrowseExtraLocations() {
    CIDEApp &app = CIDEApp::Get();
    const std::string file = ExtraLocationsFile();
    CExtraBrowseLocationsDlg dialog(app.GetMainFrame(), file);
    if (dialog.exec() != QDialog::Accepted || file.empty()) return;
    const std::vector<std::string> locations = ReadExtraLocations(file);
    if (locations.empty())
        DeleteFileA(ExtraTagsFile(file));
    else if (!MakeExtraTags(file, locations))
        return;
    app.symbols.UpdateBrowseInfo();
}
