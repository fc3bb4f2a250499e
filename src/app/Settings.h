// The user's settings: his own store, with the machine's behind it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/UserStore.h"

// Both stores of one profile. Writes go to the user's store, each at once. Main thread.
class CSettings {
public:
    explicit CSettings(const std::string &profile);
    CSettings(std::string userStorePath, std::string machineStorePath);  // native paths

    // The two-root rule: the user's store answers for every section that it has, with `fallback` for a missing key; the
    // machine's store answers for the others. A value of another type reads as missing.
    int GetInt(const std::string &section, const std::string &key, int fallback) const;
    std::string GetString(const std::string &section, const std::string &key, const std::string &fallback) const;
    std::vector<uint8_t> GetBinary(const std::string &section, const std::string &key) const;  // empty when missing

    CUserStore &User() { return user_; }

private:
    const CUserStore &StoreOf(const std::string &section) const;

    CUserStore user_;
    CUserStore machine_;
};

inline constexpr const char *kDefaultProfileName = "Thornwell IDE";

// The program's settings, made at the first call with the default profile name unless OpenUserSettings came first.
CSettings &UserSettings();
void OpenUserSettings(const std::string &profile);

int GetUserInt(const std::string &section, const std::string &key, int fallback);
std::string GetUserString(const std::string &section, const std::string &key, const std::string &fallback);
std::vector<uint8_t> GetUserBinary(const std::string &section, const std::string &key);

// The framework's calls. They read and write the user's own store only.
bool WriteUserInt(const std::string &section, const std::string &key, int value);
bool WriteUserString(const std::string &section, const std::string &key, const std::string &value);
bool WriteUserBinary(const std::string &section, const std::string &key, const std::vector<uint8_t> &value);
bool HasUserSection(const std::string &section);
int GetProfileIntA(const std::string &section, const std::string &key, int fallback);
std::string GetProfileStringA(const std::string &section, const std::string &key, const std::string &fallback);
