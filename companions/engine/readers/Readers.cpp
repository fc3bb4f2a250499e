// The entry points of dbgpars.dll. A text that doesn't read to its end tells nothing at all.
#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "OrgLine.h"
#include "debugger/EngineApi.h"

#define THORNWELL_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

template <typename Number>
bool ReadNumber(std::string_view text, Number &number, int base) {
    const char *last = text.data() + text.size();
    const auto [end, failure] = std::from_chars(text.data(), last, number, base);
    return failure == std::errc() && end == last && number >= 0;
}

// The text up to `end`, which goes with it.
std::string_view TakeUpTo(std::string_view &text, char end) {
    const size_t size = text.find(end);
    const std::string_view part = text.substr(0, size);
    text.remove_prefix(size == std::string_view::npos ? text.size() : size + 1);
    return part;
}

struct Counted {
    std::string name;
    int64_t number = 0;
};

bool ReadProfileLine(std::string_view line, Counted &row) {
    const size_t blank = line.rfind(' ');
    if (blank == std::string_view::npos || blank == 0) return false;
    row.name = line.substr(0, blank);
    return ReadNumber(line.substr(blank + 1), row.number, 10);
}

bool ReadBit(std::string_view word, Counted &row) {
    const size_t colon = word.find(':');
    if (colon == std::string_view::npos || colon + 1 == word.size()) return false;
    row.name = word.substr(colon + 1);
    return ReadNumber(word.substr(0, colon), row.number, 10) && row.number < 32;
}

bool ReadAll(std::string_view text, char end, bool read(std::string_view, Counted &), std::vector<Counted> &rows) {
    while (!text.empty()) {
        if (!read(TakeUpTo(text, end), rows.emplace_back())) return false;
    }
    return true;
}

struct TreeRow {
    bool isGroup = false;
    std::string name, value;
};

bool IsNamePart(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

// One register; what its name shares with the one before it stands in `previous`.
bool ReadRegister(std::string_view &text, const std::string &previous, TreeRow &row) {
    size_t shared = 0, size = 1;
    if (!ReadNumber(text.substr(0, 1), shared, 36) || shared > previous.size()) return false;
    while (size < text.size() && IsNamePart(text[size])) ++size;
    if (size == 1 || size == text.size()) return false;
    row.name = previous.substr(0, shared).append(text.substr(1, size - 1));
    text.remove_prefix(size);
    if (text.front() == '?') {
        text.remove_prefix(1);
        row.value = "?";
        return true;
    }
    unsigned value = 0;
    if (text.front() != '=' || text.size() < 3 || !ReadNumber(text.substr(1, 2), value, 16)) return false;
    text.remove_prefix(3);
    row.value = std::to_string(value);
    return true;
}

bool ReadTree(std::string_view text, std::vector<TreeRow> &rows) {
    std::string previous;
    while (!text.empty()) {
        TreeRow row;
        if (text.front() == '[') {
            text.remove_prefix(1);
            if (text.find(']') == std::string_view::npos) return false;
            row.isGroup = true;
            row.name = TakeUpTo(text, ']');
            previous.clear();
            if (row.name.empty()) return false;
        } else {
            if (rows.empty() || !ReadRegister(text, previous, row)) return false;
            previous = row.name;
        }
        rows.push_back(std::move(row));
    }
    return true;
}

}  // namespace

THORNWELL_EXPORT bool dbgFrameList(const char *text, DbgFrameFn *fn, void *user) {
    if (!text || !fn) return false;
    std::vector<int> addresses;
    for (std::string_view rest = text; !rest.empty();) {
        if (!ReadNumber(TakeUpTo(rest, ' '), addresses.emplace_back(), 16)) return false;
    }
    for (const int address : addresses) fn(address, user);
    return true;
}

THORNWELL_EXPORT bool dbgProfileList(const char *text, DbgProfileFn *fn, void *user) {
    std::vector<Counted> rows;
    if (!text || !fn || !ReadAll(text, '\n', ReadProfileLine, rows)) return false;
    constexpr int64_t kMost = std::numeric_limits<uint32_t>::max();
    for (const Counted &row : rows)
        fn(row.name.c_str(), static_cast<int>(static_cast<uint32_t>(std::min(row.number, kMost))), user);
    return true;
}

THORNWELL_EXPORT bool dbgBitNames(const char *text, DbgBitFn *fn, void *user) {
    std::vector<Counted> rows;
    if (!text || !fn || !ReadAll(text, ' ', ReadBit, rows)) return false;
    for (const Counted &row : rows) fn(row.name.c_str(), static_cast<int>(row.number), user);
    return true;
}

THORNWELL_EXPORT bool dbgSymbolValue(const char *text, int parent, DbgOpenFn *open, DbgCloseFn *close, void *user) {
    std::vector<TreeRow> rows;
    if (!text || !open || !close || !ReadTree(text, rows)) return false;
    bool inGroup = false;
    int group = 0;
    for (const TreeRow &row : rows) {
        if (row.isGroup) {
            if (inGroup) close(group, user);
            group = open(parent, row.name.c_str(), "", user);
            inGroup = true;
        } else {
            close(open(group, row.name.c_str(), row.value.c_str(), user), user);
        }
    }
    if (inGroup) close(group, user);
    return true;
}

THORNWELL_EXPORT bool dbgParseOrgString(const char *line, char *name, uint16_t *address, uint16_t *size) {
    const auto variable = line && name && address && size ? ParseOrgLine(line) : std::nullopt;
    if (!variable) return false;
    std::memcpy(name, variable->name.data(), variable->name.size());
    name[variable->name.size()] = '\0';
    *address = variable->address;
    *size = variable->size;
    return true;
}
