#include "ResultText.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

constexpr size_t kMostShared = 35;
constexpr size_t kCountDigits = 20;

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

void AppendProfileRow(std::string &text, const std::string &word, uint64_t count) {
    constexpr uint64_t kMost = std::numeric_limits<int64_t>::max();
    text += word + ' ' + std::to_string(std::min(count, kMost)) + '\n';
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
    const std::string other = "(other)";
    std::string text;
    size_t reserved = other.size() + kBehindName, index = 0;
    for (; index < rows.size(); ++index) {
        const std::string word = AsWord(rows[index].name);
        reserved += word.size() + kBehindName;
        if (reserved > longest) break;
        AppendProfileRow(text, word, rows[index].count);
    }
    if (index == rows.size()) return text;
    uint64_t rest = 0;
    for (; index < rows.size(); ++index) rest += rows[index].count;
    AppendProfileRow(text, other, rest);
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
