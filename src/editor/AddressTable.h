// From a program address to the line of the listing that gives it.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

// Grows with its highest address, but takes memory only near addresses that it holds: a listing with data or
// configuration words far above its program costs no more than they do. Lines count from 0.
class CAddressTable {
public:
    // One beyond the widest program address of a PIC, 24 bits. A line with an address from here on has no place.
    static constexpr uint64_t kLimit = 1u << 24;

    bool Set(uint64_t address, int32_t line);  // a later line of an address wins; false beyond the limit
    int32_t LineOf(uint64_t address) const;    // -1 for an address that no line gives
    uint64_t Size() const { return size_; }    // one beyond the highest address
    void Clear();

private:
    static constexpr uint64_t kPageSize = 4096;  // addresses
    using Page = std::array<int32_t, kPageSize>;

    std::vector<std::unique_ptr<Page>> pages_;  // null: no line gives any of its addresses
    uint64_t size_ = 0;
};

// Reads the addresses of a listing of `lineCount` lines. `lineAt` gives each line once, in order, with its line end.
CAddressTable ReadAddressTable(intptr_t lineCount, const std::function<std::string_view(intptr_t line)> &lineAt);
