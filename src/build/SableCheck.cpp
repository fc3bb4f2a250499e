#include "build/SableCheck.h"

#include <algorithm>

#include "app/Path.h"
#include "platform/FileText.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"
#include "platform/ProfileText.h"

namespace {

constexpr const char *kSettings = "Settings", *kCheckKey = "SableCheck";
constexpr const char *kLinker = "Linker", *kExtraKey = "Extra";
constexpr const char *kSwitch = "-swcs", *kSlashedSwitch = "/swcs";
constexpr uint32_t kExtraBytes = 32768;  // the whole value: it is written back

bool IsSableLibrary(const std::string &name) {
    const CPath path(name);
    return EqualNoCase(path.GetExtension(), "lib") && StartsWithNoCase(path.GetTitle(), "sable");
}

bool HasSableLibrary(const std::string &projectFile) {
    const std::string bytes = ReadWholeFile(projectFile).value_or("");
    const int count = GetPrivateProfileIntA("Files", "Count", 0, projectFile.c_str());
    const CProfileText profile(bytes);  // read once: projects may have thousands of files
    const size_t mostFiles = bytes.size();
    for (size_t i = 0; i < std::min<size_t>(std::max(count, 0), mostFiles); ++i) {
        const auto name = profile.Find("Files", "File" + std::to_string(i));
        if (name && IsSableLibrary(std::string(*name))) return true;
    }
    return false;
}

std::string ReadExtra(const std::string &configFile) {
    return ReadProfileString(kLinker, kExtraKey, "", configFile, kExtraBytes);
}

}  // namespace

bool NeedsSableSwitch(const std::string &projectFile, const std::string &configFile) {
    if (GetPrivateProfileIntA(kSettings, kCheckKey, 1, configFile.c_str()) == 0) return false;
    if (!HasSableLibrary(projectFile)) return false;
    const std::string extra = ReadExtra(configFile);
    return extra.find(kSwitch) == std::string::npos && extra.find(kSlashedSwitch) == std::string::npos;
}

void AddSableSwitch(const std::string &configFile) {
    const std::string extra = ReadExtra(configFile);
    const std::string longer = extra.empty() ? kSwitch : extra + " " + kSwitch;
    WritePrivateProfileStringA(kLinker, kExtraKey, longer.c_str(), configFile.c_str());
}

void EndSableCheck(const std::string &configFile) {
    WritePrivateProfileStringA(kSettings, kCheckKey, "0", configFile.c_str());
}
