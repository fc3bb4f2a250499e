#include "project/ProjectSettings.h"

#include "platform/Profile.h"
#include "project/CurrentWorkspace.h"

int GetProjectInt(const std::string &section, const std::string &key, int fallback) {
    const std::string file = ActiveProjectPath();
    return file.empty() ? 0 : GetPrivateProfileIntA(section.c_str(), key.c_str(), fallback, file.c_str());
}

std::string GetProjectString(const std::string &section, const std::string &key, const std::string &fallback,
                             uint32_t size) {
    const std::string file = ActiveProjectPath();
    return file.empty() ? "" : ReadProfileString(section, key, fallback, file, size);
}

void SetProjectString(const std::string &section, const std::string &key, const std::string &value) {
    const std::string file = ActiveProjectPath();
    if (!file.empty()) WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), file.c_str());
}
