#include "Watchpoints.h"

#include <algorithm>

std::optional<int> CWatchpoints::Set(int id, const std::string &name, std::string &error) {
    std::vector<uint32_t> bytes = names_.Bytes(name);
    if (bytes.empty() && (name == "$W" || name == "$w")) bytes = {CSimChip::kWorking};
    if (bytes.empty()) {
        error = names_.WhyNoBytes(name);
        return std::nullopt;
    }
    for (const auto &[there, entry] : entries_)
        if (entry.bytes == bytes) return there;
    const auto refused =
        std::find_if(bytes.begin(), bytes.end(), [&](uint32_t byte) { return !chip_.WatchByte(byte, true); });
    if (refused != bytes.end()) {
        for (auto byte = bytes.begin(); byte != refused; ++byte) chip_.WatchByte(*byte, false);
        error = '"' + name + "\" can't be watched: it has no byte of its own.";
        return std::nullopt;
    }
    entries_.emplace(id, Entry{name, std::move(bytes)});
    return id;
}

bool CWatchpoints::Delete(int id) {
    auto found = entries_.find(id);
    if (found == entries_.end()) return false;
    for (uint32_t byte : found->second.bytes) chip_.WatchByte(byte, false);
    entries_.erase(found);
    return true;
}

void CWatchpoints::Clear() {
    while (!entries_.empty()) Delete(entries_.begin()->first);
}
