#include "ListingGaps.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <optional>

namespace {

// The hexadecimal address that a line begins with, if `end` follows it. `line` goes on behind both.
std::optional<uint32_t> TakeAddress(std::string_view &line, char end) {
    uint32_t address = 0;
    const char *last = line.data() + line.size();
    const auto read = std::from_chars(line.data(), last, address, 16);
    if (read.ec != std::errc() || read.ptr == last || *read.ptr != end) return {};
    line.remove_prefix(static_cast<size_t>(read.ptr - line.data()) + 1);
    return address;
}

std::set<uint32_t> ListedAddresses(std::string_view listing) {
    std::set<uint32_t> listed;
    while (!listing.empty()) {
        const size_t end = std::min(listing.find('\n'), listing.size());
        std::string_view line = listing.substr(0, end);
        if (const auto address = TakeAddress(line, ' ')) listed.insert(listed.end(), *address);
        listing.remove_prefix(std::min(end + 1, listing.size()));
    }
    return listed;
}

}  // namespace

std::set<uint32_t> ListingGaps(std::string_view listing, const CLinkedImage &image) {
    const std::set<uint32_t> listed = ListedAddresses(listing);
    // Where addresses count bytes, packed data may be listed from the upper byte of a word on.
    const uint32_t step = 2 / image.BytesPerUnit(), slack = step - 1;
    std::set<uint32_t> gaps;
    for (const LinkedPart &part : image.Program()) {
        const size_t units = image.BytesAt(part, part.begin).size() / image.BytesPerUnit();
        for (uint32_t unit = 0; unit < units; unit += step) {
            const uint32_t address = part.begin + unit;
            const auto near = listed.lower_bound(address - std::min(address, slack));
            if (near == listed.end() || *near > address + slack) gaps.insert(gaps.end(), address);
        }
    }
    return gaps;
}

std::string ListingLineOf(std::string_view disassembled, const std::set<uint32_t> &gaps) {
    const auto address = TakeAddress(disassembled, ':');
    if (!address || !gaps.contains(*address)) return {};
    disassembled.remove_prefix(std::min(disassembled.find_first_not_of(' '), disassembled.size()));
    const size_t code = std::min(disassembled.find(' '), disassembled.size());
    const size_t text = std::min(disassembled.find_first_not_of(' ', code), disassembled.size());
    char line[40];
    std::snprintf(line, sizeof line, text < disassembled.size() ? "%06x   %-4.8s     " : "%06x   %.8s", *address,
                  std::string(disassembled.substr(0, code)).c_str());
    return line + std::string(disassembled.substr(text));
}
