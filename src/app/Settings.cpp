#include "app/Settings.h"

#include <memory>
#include <utility>

namespace {

std::unique_ptr<CSettings> &Holder() {
    static std::unique_ptr<CSettings> settings;
    return settings;
}

}  // namespace

CSettings::CSettings(const std::string &profile) : CSettings(UserStorePath(profile), MachineStorePath(profile)) {}

CSettings::CSettings(std::string userStorePath, std::string machineStorePath)
    : user_(std::move(userStorePath)), machine_(std::move(machineStorePath), true) {}

const CUserStore &CSettings::StoreOf(const std::string &section) const {
    return user_.HasSection(section) ? user_ : machine_;
}

int CSettings::GetInt(const std::string &section, const std::string &key, int fallback) const {
    return StoreOf(section).ReadInt(section, key).value_or(fallback);
}

std::string CSettings::GetString(const std::string &section, const std::string &key,
                                 const std::string &fallback) const {
    return StoreOf(section).ReadString(section, key).value_or(fallback);
}

std::vector<uint8_t> CSettings::GetBinary(const std::string &section, const std::string &key) const {
    return StoreOf(section).ReadBinary(section, key).value_or(std::vector<uint8_t>());
}

CSettings &UserSettings() {
    if (!Holder()) OpenUserSettings(kDefaultProfileName);
    return *Holder();
}

void OpenUserSettings(const std::string &profile) { Holder() = std::make_unique<CSettings>(profile); }

int GetUserInt(const std::string &section, const std::string &key, int fallback) {
    return UserSettings().GetInt(section, key, fallback);
}

std::string GetUserString(const std::string &section, const std::string &key, const std::string &fallback) {
    return UserSettings().GetString(section, key, fallback);
}

std::vector<uint8_t> GetUserBinary(const std::string &section, const std::string &key) {
    return UserSettings().GetBinary(section, key);
}

bool WriteUserInt(const std::string &section, const std::string &key, int value) {
    return UserSettings().User().WriteInt(section, key, value);
}

bool WriteUserString(const std::string &section, const std::string &key, const std::string &value) {
    return UserSettings().User().WriteString(section, key, value);
}

bool WriteUserBinary(const std::string &section, const std::string &key, const std::vector<uint8_t> &value) {
    return UserSettings().User().WriteBinary(section, key, value);
}

bool HasUserSection(const std::string &section) { return UserSettings().User().HasSection(section); }

int GetProfileIntA(const std::string &section, const std::string &key, int fallback) {
    return UserSettings().User().ReadInt(section, key).value_or(fallback);
}

std::string GetProfileStringA(const std::string &section, const std::string &key, const std::string &fallback) {
    return UserSettings().User().ReadString(section, key).value_or(fallback);
}
