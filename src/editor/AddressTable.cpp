#include "editor/AddressTable.h"

#include <algorithm>
#include <optional>

#include "editor/ListingFormat.h"

bool CAddressTable::Set(uint64_t address, int32_t line) {
    if (address >= kLimit) return false;
    size_ = std::max(size_, address + 1);
    const uint64_t number = address / kPageSize;
    if (number >= pages_.size()) pages_.resize(number + 1);
    std::unique_ptr<Page> &page = pages_[number];
    if (!page) {
        page = std::make_unique<Page>();
        page->fill(-1);
    }
    (*page)[address % kPageSize] = line;
    return true;
}

int32_t CAddressTable::LineOf(uint64_t address) const {
    const uint64_t number = address / kPageSize;
    return number < pages_.size() && pages_[number] ? (*pages_[number])[address % kPageSize] : -1;
}

void CAddressTable::Clear() {
    pages_.clear();
    size_ = 0;
}

CAddressTable ReadAddressTable(intptr_t lineCount, const std::function<std::string_view(intptr_t)> &lineAt) {
    CAddressTable table;
    std::optional<ListingFormat> format;
    for (intptr_t line = 0; line < lineCount; ++line) {
        const std::string_view text = lineAt(line);
        // What stands before the line that decides is too short to give an address.
        if (!format) format = FormatByHeader(text);
        if (!format) continue;
        if (const auto parsed = ParseListingLine(text, *format)) table.Set(parsed->address, static_cast<int32_t>(line));
    }
    return table;
}
