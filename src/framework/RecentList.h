// A list of recently used names, kept in the user's store.
#pragma once

#include <string>
#include <vector>

class CUserStore;

class CRecentList {
public:
    static constexpr size_t kEntries = 8;
    static constexpr size_t kShownCharacters = 30;

    // Keys are `section` and `keyFormat` ("File%d"), numbered from 1.
    CRecentList(std::string section, std::string keyFormat);

    // Replaces the entries by those of `store`, which takes every change from now on and outlives the list or the next
    // Load.
    void Load(CUserStore &store);
    void Add(const std::string &name);  // to the top; another spelling of the same file's name goes
    void Remove(size_t index);
    const std::vector<std::string> &Entries() const { return entries_; }

    // What a menu shows: "&1 name", shortened in the middle to at most kShownCharacters, native form.
    std::string MenuText(size_t index) const;

private:
    void Store() const;

    std::string section_, keyFormat_;
    CUserStore *store_ = nullptr;
    std::vector<std::string> entries_;
};
