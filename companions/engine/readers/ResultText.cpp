#include "ResultText.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

constexpr size_t kMostShared = 35;
constexpr size_t kCountDigits = std::numeric_limits<uint32_t>::digits10 + 1;

void AppendHex(std::string &text, uint32_t value) {
    char digits[8];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, 16).ptr;
    std::transform(digits, end, std::back_inserter(text),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
}

// A name as one word, which the list has for one.
std::string AsWord(const std::string &name) {
    std::string word = name;
    for (char &c : word) {
        if (static_cast<unsigned char>(c) <= ' ') c = '_';
    }
    return word.empty() ? "_" : word;
}

}  // namespace

std::string FrameListText(const std::vector<uint32_t> &addresses) {
    std::string text;
    for (const uint32_t address : addresses) {
        if (!text.empty()) text += ' ';
        AppendHex(text, address);
    }
    return text;
}

std::string ProfileListText(const std::vector<ProfileRow> &rows, size_t longest) {
    constexpr size_t kBehindName = 1 + kCountDigits + 1;
    ProfileRow other{"(other)", 0};
    size_t reserved = other.name.size() + kBehindName;
    std::vector<ProfileRow> shown;
    for (const ProfileRow &row : rows) {
        std::string word = AsWord(row.name);
        reserved += word.size() + kBehindName;
        if (reserved <= longest)
            shown.push_back({std::move(word), row.count});
        else
            other.count += row.count;
    }
    if (shown.size() < rows.size()) shown.push_back(other);

    uint64_t all = 0;  // the bits of the counts
    for (const ProfileRow &row : shown) all |= row.count;
    int shift = 0;
    while (all >> shift > std::numeric_limits<uint32_t>::max()) ++shift;
    std::string text;
    for (const ProfileRow &row : shown) text += row.name + ' ' + std::to_string(row.count >> shift) + '\n';
    return text;
}

std::string BitNamesText(const std::vector<NamedBit> &bits) {
    std::string text;
    for (const NamedBit &bit : bits) {
        if (!text.empty()) text += ' ';
        text += std::to_string(bit.bit) + ':' + AsWord(bit.name);
    }
    return text;
}

std::string RegisterText(const std::vector<RegisterGroupRows> &groups) {
    constexpr char kDigits[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    std::string text;
    for (const RegisterGroupRows &group : groups) {
        text += '[' + group.name + ']';
        const std::string none, *before = &none;
        for (const RegisterRow &row : group.registers) {
            const auto differs = std::mismatch(row.name.begin(), row.name.end(), before->begin(), before->end()).first;
            // One character at least stands there.
            const size_t shared = std::min({static_cast<size_t>(differs - row.name.begin()), kMostShared,
                                            row.name.empty() ? size_t{0} : row.name.size() - 1});
            text += kDigits[shared] + row.name.substr(shared);
            if (row.value) {
                text += {'=', kDigits[*row.value >> 4], kDigits[*row.value & 15]};
            } else {
                text += '?';
            }
            before = &row.name;
        }
    }
    return text;
}
