#include "navigation/TagFile.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <unordered_map>

#include "platform/NativePath.h"

namespace {

struct KindRoute {
    char letter;
    SymbolMap SymbolMaps::*map;
};

constexpr KindRoute kPlainRoutes[] = {
    {'c', &SymbolMaps::Containers}, {'s', &SymbolMaps::Containers}, {'u', &SymbolMaps::Containers},
    {'f', &SymbolMaps::Functions},  {'v', &SymbolMaps::Variables},  {'d', &SymbolMaps::Macros},
    {'e', &SymbolMaps::Enums},      {'g', &SymbolMaps::Enums},      {'t', &SymbolMaps::Typedefs},
};
constexpr KindRoute kPascalRoutes[] = {{'p', &SymbolMaps::Functions}};
constexpr KindRoute kBasicRoutes[] = {
    {'t', &SymbolMaps::Containers}, {'f', &SymbolMaps::Functions}, {'s', &SymbolMaps::Functions},
    {'d', &SymbolMaps::Variables},  {'e', &SymbolMaps::Enums},     {'g', &SymbolMaps::Enums},
};

constexpr bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

// Walks the lines of a text, which ends at its first zero byte, passing over empty ones and the file's own remarks.
class CTagLines {
public:
    explicit CTagLines(std::string_view text) : rest_(text.substr(0, text.find('\0'))) {}

    bool Next(std::string_view &line) {
        do {
            const size_t begin = rest_.find_first_not_of("\r\n");
            if (begin == std::string_view::npos) return false;
            rest_.remove_prefix(begin);
            const size_t length = std::min(rest_.find_first_of("\r\n"), rest_.size());
            line = rest_.substr(0, length);
            rest_.remove_prefix(length);
        } while (line.starts_with('!'));
        return true;
    }

private:
    std::string_view rest_;
};

// Takes a field off the front of a line. False when no tab ends it.
bool TakeField(std::string_view &line, std::string_view &field) {
    const size_t tab = line.find('\t');
    if (tab == std::string_view::npos) return false;
    field = line.substr(0, tab);
    line.remove_prefix(tab + 1);
    return true;
}

// Takes a decimal number off the front; a number that is too large ends at the largest.
int32_t TakeNumber(std::string_view &line) {
    int64_t number = 0;
    size_t digits = 0;
    for (; digits < line.size() && line[digits] >= '0' && line[digits] <= '9'; ++digits)
        number = std::min<int64_t>(number * 10 + (line[digits] - '0'), std::numeric_limits<int32_t>::max());
    line.remove_prefix(digits);
    return static_cast<int32_t>(number);
}

void SkipRun(std::string_view &line, char c) {
    line.remove_prefix(std::min(line.find_first_not_of(c), line.size()));
}

// Where the kind letters of a language lead; null for a letter that means nothing.
class CRouting {
public:
    explicit CRouting(TagLanguage language) {
        if (language == TagLanguage::basic) {
            Add(kBasicRoutes);
            return;
        }
        Add(kPlainRoutes);
        if (language == TagLanguage::pascal) Add(kPascalRoutes);
    }

    SymbolMap SymbolMaps::*MapOf(char letter) const { return maps_[static_cast<unsigned char>(letter)]; }

private:
    template <size_t n>
    void Add(const KindRoute (&routes)[n]) {
        for (const KindRoute &route : routes) maps_[static_cast<unsigned char>(route.letter)] = route.map;
    }

    SymbolMap SymbolMaps::*maps_[256] = {};
};

}  // namespace

struct CTagReader::State {
    State(std::string_view text, TagLanguage language) : lines(text), routing(language) {}

    // Many tags share few files, and a tag file is sorted by name.
    const std::string &StoredName(std::string_view file) {
        if (const auto known = files.find(file); known != files.end()) return known->second;
        return files.emplace(file, FromNativePath(file)).first->second;
    }

    CTagLines lines;
    CRouting routing;
    std::unordered_map<std::string_view, std::string> files;  // by what the text has
};

CTagReader::CTagReader(std::string_view text, TagLanguage language, SymbolMaps &maps)
    : state_(std::make_unique<State>(text, language)), maps_(maps) {}

CTagReader::~CTagReader() = default;

bool CTagReader::Read(size_t most) {
    std::string_view line;
    for (size_t count = 0; count < most; ++count) {
        if (!state_->lines.Next(line)) return false;
        std::string_view name, file;
        if (!TakeField(line, name) || !TakeField(line, file)) continue;
        const int32_t number = TakeNumber(line);
        SkipRun(line, ';');
        SkipRun(line, '"');
        SkipRun(line, '\t');
        if (line.empty()) continue;
        const auto member = state_->routing.MapOf(line.front());
        if (!member) continue;
        SymbolMap &map = maps_.*member;
        BrowseRecord record;
        record.name = name;
        record.file = state_->StoredName(file);
        record.line = number;
        std::string key = record.name;
        map.insert_or_assign(map.end(), std::move(key), std::move(record));  // most often the place is the end
    }
    return true;
}

void ParseTags(std::string_view text, TagLanguage language, SymbolMaps &maps) {
    CTagReader(text, language, maps).Read(std::numeric_limits<size_t>::max());
}

struct CPrototypeReader::State {
    explicit State(std::string_view text) : lines(text) {}

    CTagLines lines;
};

CPrototypeReader::CPrototypeReader(std::string_view text, std::map<std::string, std::string> &prototypes)
    : state_(std::make_unique<State>(text)), prototypes_(prototypes) {}

CPrototypeReader::~CPrototypeReader() = default;

bool CPrototypeReader::Read(size_t most) {
    std::string_view line;
    for (size_t count = 0; count < most; ++count) {
        if (!state_->lines.Next(line)) return false;
        std::string_view name, file;
        if (!TakeField(line, name) || !TakeField(line, file)) continue;
        if (line.starts_with('/')) line.remove_prefix(1);
        if (line.starts_with('^')) line.remove_prefix(1);
        // A long pattern ends without the mark of the line's end.
        const std::string_view prototype = line.substr(0, std::min(line.find('$'), line.find("/;\"")));
        if (std::ranges::count(prototype, '(') != std::ranges::count(prototype, ')')) continue;
        prototypes_.insert_or_assign(prototypes_.end(), std::string(name), std::string(prototype));
    }
    return true;
}

void ParsePrototypes(std::string_view text, std::map<std::string, std::string> &prototypes) {
    CPrototypeReader(text, prototypes).Read(std::numeric_limits<size_t>::max());
}

std::vector<TagLine> ParseFunctionTags(std::string_view text) {
    std::vector<TagLine> functions;
    CTagLines lines(text);
    std::string_view line;
    while (lines.Next(line)) {
        std::string_view name, file;
        if (!TakeField(line, name) || !TakeField(line, file) || name.empty()) continue;
        functions.push_back({std::string(name), TakeNumber(line)});
    }
    return functions;
}
