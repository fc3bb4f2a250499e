#include "navigation/BrowseRows.h"

#include <unordered_map>

#include "platform/PathCalls.h"

namespace {

// The handle of a row, as records keep it; never 0.
intptr_t ItemOf(size_t group, size_t symbol) {
    return static_cast<intptr_t>((static_cast<uint64_t>(group + 1) << 32) | symbol);
}

// Finds the group of a record's file. The files of the project are also found when they are spelled with other letters,
// as long as no other file is spelled that way.
class CFileGroups {
public:
    CFileGroups(std::vector<CBrowseRows::Group> &groups, const ProjectFiles &files)
        : groups_(groups), directory_(files.directory) {
        groups.reserve(files.names.size());
        for (const std::string &name : files.names) {
            const std::string full = FullNameFrom(directory_, name);
            exact_.try_emplace(full, groups.size());
            anyCase_.try_emplace(LowerCase(full), groups.size());
            groups.push_back({name, {}});
        }
    }

    // `file` has to stay where it is.
    size_t Find(const std::string &file) {
        const auto [known, isNew] = seen_.try_emplace(file, 0);
        if (isNew) known->second = FindNew(file);
        return known->second;
    }

private:
    size_t FindNew(const std::string &file) {
        const std::string full = FullNameFrom(directory_, file);
        if (const auto found = exact_.find(full); found != exact_.end()) return found->second;
        if (const auto found = anyCase_.find(LowerCase(full)); found != anyCase_.end()) return found->second;
        groups_.push_back({file, {}});
        return groups_.size() - 1;
    }

    std::vector<CBrowseRows::Group> &groups_;
    std::string directory_;
    std::unordered_map<std::string, size_t> exact_, anyCase_;  // of the project's files, by full name
    std::unordered_map<std::string_view, size_t> seen_;        // by the file of a record
};

}  // namespace

void CBrowseRows::Append(size_t group, uint8_t category, BrowseRecord &record) {
    std::vector<Symbol> &symbols = groups_[group].symbols;
    record.item = ItemOf(group, symbols.size());
    symbols.push_back({text_.size(), static_cast<uint32_t>(record.name.size()), category});
    text_ += record.name;
}

void CBrowseRows::BuildByCategory(SymbolMaps &maps) {
    for (uint8_t category = 0; category < kSymbolCategories.size(); ++category) {
        SymbolMap &map = maps.*kSymbolCategories[category].map;
        if (map.empty()) continue;
        groups_.push_back({kSymbolCategories[category].label, {}});
        groups_.back().symbols.reserve(map.size());
        for (auto &[name, record] : map) Append(groups_.size() - 1, category, record);
    }
}

void CBrowseRows::BuildByFile(SymbolMaps &maps, const ProjectFiles &files) {
    CFileGroups groups(groups_, files);
    for (uint8_t category = 0; category < kSymbolCategories.size(); ++category)
        for (auto &[name, record] : maps.*kSymbolCategories[category].map)
            Append(groups.Find(record.file), category, record);
}

void CBrowseRows::Build(SymbolMaps &maps, int grouping, const ProjectFiles &files) {
    Clear();
    grouping_ = grouping;
    if (grouping == kGroupByFile)
        BuildByFile(maps, files);
    else
        BuildByCategory(maps);
}

void CBrowseRows::Clear() {
    groups_.clear();
    text_.clear();
}

const BrowseRecord *CBrowseRows::FindRecord(const SymbolMaps &maps, size_t group, size_t symbol) const {
    const Symbol &row = groups_[group].symbols[symbol];
    const SymbolMap &map = maps.*kSymbolCategories[row.category].map;
    const auto found = map.find(std::string(TextOf(row)));
    if (found == map.end() || found->second.item != ItemOf(group, symbol)) return nullptr;
    return &found->second;
}
