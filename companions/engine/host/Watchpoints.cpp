#include "Watchpoints.h"

#include <algorithm>

std::optional<int> CWatchpoints::Set(int id, const std::string &name, std::string &error) {
    std::vector<uint32_t> bytes = names_.Bytes(name);
    if (bytes.empty()) {
        error = names_.WhyNoBytes(name);
        return std::nullopt;
    }
    for (const auto &[there, entry] : entries_)
        if (entry.bytes == bytes) return there;
    bool all = std::all_of(bytes.begin(), bytes.end(), [&](uint32_t byte) { return chip_.WatchWrites(byte, true); });
    if (!all) {
        Release(bytes);
        error = "The chip can't watch \"" + name + "\".";
        return std::nullopt;
    }
    entries_.emplace(id, Entry{name, std::move(bytes)});
    return id;
}

void CWatchpoints::Release(const std::vector<uint32_t> &bytes) {
    for (uint32_t byte : bytes) {
        bool needed = std::any_of(entries_.begin(), entries_.end(), [&](const auto &other) {
            return std::find(other.second.bytes.begin(), other.second.bytes.end(), byte) != other.second.bytes.end();
        });
        if (!needed) chip_.WatchWrites(byte, false);
    }
}

bool CWatchpoints::Delete(int id) {
    auto found = entries_.find(id);
    if (found == entries_.end()) return false;
    std::vector<uint32_t> bytes = std::move(found->second.bytes);
    entries_.erase(found);
    Release(bytes);
    return true;
}

void CWatchpoints::Clear() {
    while (!entries_.empty()) Delete(entries_.begin()->first);
}
