#include "ListingGaps.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <optional>

#include "SourceScan.h"

namespace {

constexpr std::string_view kSecondWord = "; second word";

// The hexadecimal address that a line begins with, if `end` follows it. `line` goes on behind both.
std::optional<uint32_t> TakeAddress(std::string_view &line, char end) {
    uint32_t address = 0;
    const char *last = line.data() + line.size();
    const auto read = std::from_chars(line.data(), last, address, 16);
    if (read.ec != std::errc() || read.ptr == last || *read.ptr != end) return {};
    line.remove_prefix(static_cast<size_t>(read.ptr - line.data()) + 1);
    return address;
}

std::string_view Trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \r"), text.size()));
    return text.substr(0, text.find_last_not_of(" \r") + 1);
}

std::set<uint32_t> ListedAddresses(std::string_view listing) {
    std::set<uint32_t> listed;
    while (!listing.empty()) {
        std::string_view line = TakeLine(listing);
        if (const auto address = TakeAddress(line, ' ')) listed.insert(listed.end(), *address);
    }
    return listed;
}

std::string LineText(uint32_t address, std::string_view word, std::string_view text) {
    char columns[40];
    std::snprintf(columns, sizeof columns, "%06x   %-4.8s     ", address, std::string(word).c_str());
    return columns + std::string(text.empty() ? kSecondWord : text);
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

std::string WithSecondWords(std::string_view listing) {
    std::string text;
    text.reserve(listing.size() + listing.size() / 8);
    while (!listing.empty()) {
        const std::string_view line = TakeLine(listing);
        std::string_view rest = line;
        const auto address = TakeAddress(rest, ' ');
        const std::string_view word = Trimmed(rest);
        const bool alone = address && !word.empty() && word.find(' ') == word.npos;
        text.append(alone ? LineText(*address, word, {}) : line) += '\n';
    }
    return text;
}

std::string ListingLineOf(std::string_view disassembled, const std::set<uint32_t> &gaps) {
    const auto address = TakeAddress(disassembled, ':');
    if (!address || !gaps.contains(*address)) return {};
    const std::string_view columns = Trimmed(disassembled), word = columns.substr(0, columns.find(' '));
    return LineText(*address, word, Trimmed(columns.substr(word.size())));
}
