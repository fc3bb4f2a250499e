// One settings store: an SQLite file with a table of section, key and typed value.
//
// Each write is a committed transaction. A value read under another type than its own is missing. A file that can't be
// opened or is no store gives an empty store that takes no writes; `IsWritable` tells. Any thread, one at a time.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CUserStore {
public:
    // `nativePath`: the store's file. It is made, with its directory, at the first write. A file that isn't a store is
    // renamed to "<name>.broken" at the first write and a new one begun, so that nothing of it is lost.
    explicit CUserStore(std::string nativePath, bool readOnly = false);
    ~CUserStore();
    CUserStore(const CUserStore &) = delete;
    CUserStore &operator=(const CUserStore &) = delete;

    bool HasSection(const std::string &section) const;  // from the section's first write on, also when it lost its keys
    std::optional<int32_t> ReadInt(const std::string &section, const std::string &key) const;
    std::optional<std::string> ReadString(const std::string &section, const std::string &key) const;
    std::optional<std::vector<uint8_t>> ReadBinary(const std::string &section, const std::string &key) const;

    bool WriteInt(const std::string &section, const std::string &key, int32_t value);
    bool WriteString(const std::string &section, const std::string &key, const std::string &value);
    bool WriteBinary(const std::string &section, const std::string &key, const std::vector<uint8_t> &value);
    bool DeleteKey(const std::string &section, const std::string &key);
    bool DeleteSection(const std::string &section);  // with all sections "<section>\..." below it

    bool IsWritable() const;  // false after a failed write, or for a read-only store

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

// Native path of the current user's store, $XDG_CONFIG_HOME/ThornwellIDE/<profile>.db (or ~/.config/...), and of the
// machine's, in the first directory of $XDG_CONFIG_DIRS (or /etc/xdg).
std::string UserStorePath(const std::string &profile);
std::string MachineStorePath(const std::string &profile);
