#include "image/ImageSymbols.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::string_view kSymbolTable = "\nSYMBOL TABLE\n";

using Storage = CObjectFile::Storage;

bool NamesAPlace(const CObjectFile::Symbol &symbol) {
    return symbol.section > 0 && !symbol.name.empty() &&
           (symbol.storage == Storage::external || symbol.storage == Storage::variable ||
            symbol.storage == Storage::label);
}

}  // namespace

CImageSymbols::CImageSymbols(const CLinkedImage &image) {
    for (const LinkedPart &part : image.Data()) {
        auto next = part.labels.begin();  // the first that lies behind the label
        for (const LinkedLabel &label : part.labels) {
            while (next != part.labels.end() && next->address <= label.address) ++next;
            const uint32_t end = next == part.labels.end() ? part.end : next->address;
            Add({label.name, label.address, false, end - label.address}, label.global);
        }
    }
    const std::vector<CObjectFile::Section> &sections = image.File().Sections();
    for (const CObjectFile::Symbol &symbol : image.File().Symbols()) {
        if (!NamesAPlace(symbol) || static_cast<size_t>(symbol.section) > sections.size()) continue;
        const CObjectFile::Section &section = sections[static_cast<size_t>(symbol.section) - 1];
        if (!section.IsProgram() || IsAutoLabel(symbol.name, section.name)) continue;
        Add({symbol.name, symbol.value, true, 1}, symbol.storage == Storage::external);
    }
}

void CImageSymbols::Add(ImageSymbol symbol, bool isGlobal) {
    const size_t index = entries_.size();
    const auto enter = [&](auto &map, const auto &key) {
        const auto [known, isNew] = map.insert({key, index});
        if (!isNew && isGlobal && !entries_[known->second].isGlobal) known->second = index;
    };
    enter(byName_, symbol.name);
    enter(byAddress_[symbol.inProgram], symbol.address);
    entries_.push_back({std::move(symbol), isGlobal});
}

void CImageSymbols::AddListed(std::string_view listing) {
    const size_t table = listing.find(kSymbolTable);
    if (table == listing.npos) return;
    listing.remove_prefix(table + kSymbolTable.size());
    while (!listing.empty()) {
        const std::string_view line = listing.substr(0, listing.find('\n'));
        listing.remove_prefix(std::min(line.size() + 1, listing.size()));
        const std::string_view name = line.substr(0, line.find(' '));
        const size_t digits = line.find_first_not_of(' ', name.size());
        if (name.empty() || digits == line.npos || Find(std::string(name))) continue;
        uint32_t address = 0;
        const char *end = line.data() + line.size();
        const auto read = std::from_chars(line.data() + digits, end, address, 16);
        if (read.ec != std::errc() || read.ptr != end) continue;
        byName_.insert({std::string(name), entries_.size()});
        entries_.push_back({{std::string(name), address, false, 1}, false});
    }
}

const ImageSymbol *CImageSymbols::Find(const std::string &name) const {
    auto found = byName_.find(name);
    if (found == byName_.end()) found = byName_.find('_' + name);
    return found == byName_.end() ? nullptr : &entries_[found->second].symbol;
}

const ImageSymbol *CImageSymbols::At(uint32_t address, bool inProgram) const {
    const auto found = byAddress_[inProgram].find(address);
    return found == byAddress_[inProgram].end() ? nullptr : &entries_[found->second].symbol;
}
