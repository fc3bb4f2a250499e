// What the browse tree shows of the symbol index, apart from the window that shows it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "navigation/ProjectFiles.h"
#include "navigation/SymbolMaps.h"

enum BrowseGrouping { kGroupByCategory = 1, kGroupByFile = 2 };

// Groups of symbols. The rows hold their own text: they stand when the index has lost or replaced its records.
class CBrowseRows {
public:
    struct Symbol {
        size_t textAt = 0;  // in the text of all rows
        uint32_t textSize = 0;
        uint8_t category = 0;  // place in kSymbolCategories
    };
    struct Group {
        std::string name;  // recognises it: a category's label, or a file as the project or the index has it
        std::vector<Symbol> symbols;
    };

    // Makes the rows anew and notes each symbol's row in its record. By file, there is a group for each file of the
    // project, then one for each further file with symbols, in the order in which the index comes to them.
    void Build(SymbolMaps &maps, int grouping, const ProjectFiles &files);
    void Clear();

    int Grouping() const { return grouping_; }  // of the rows
    const std::vector<Group> &Groups() const { return groups_; }
    std::string_view TextOf(const Symbol &symbol) const {
        return std::string_view(text_).substr(symbol.textAt, symbol.textSize);
    }

    // The record whose row this is; null when the index has none any more.
    const BrowseRecord *FindRecord(const SymbolMaps &maps, size_t group, size_t symbol) const;

private:
    void BuildByCategory(SymbolMaps &maps);
    void BuildByFile(SymbolMaps &maps, const ProjectFiles &files);
    void Append(size_t group, uint8_t category, BrowseRecord &record);

    int grouping_ = kGroupByCategory;
    std::vector<Group> groups_;
    std::string text_;
};
