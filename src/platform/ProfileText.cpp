#include "platform/ProfileText.h"

#include <algorithm>

#include "platform/PathCalls.h"

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n\v\f";

std::string_view Trim(std::string_view text) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view Unquote(std::string_view text) {
    if (text.size() < 2 || text.front() != text.back() || (text.front() != '"' && text.front() != '\'')) return text;
    return text.substr(1, text.size() - 2);
}

// The name in a line "[name]", what follows the bracket being passed over.
std::optional<std::string_view> SectionName(std::string_view line) {
    line = Trim(line);
    const size_t end = line.find(']');
    if (!line.starts_with('[') || end == line.npos) return {};
    return Trim(line.substr(1, end - 1));
}

struct KeyLine {
    std::string_view key;    // trimmed
    std::string_view value;  // trimmed, with its quotes
    size_t valueAt;          // where the value begins in the line
};

std::optional<KeyLine> ReadKeyLine(std::string_view line) {
    const size_t equals = line.find('=');
    if (equals == line.npos) return {};
    KeyLine result;
    result.key = Trim(line.substr(0, equals));
    if (result.key.empty() || result.key.front() == ';') return {};
    result.value = Trim(line.substr(equals + 1));
    const size_t first = line.find_first_not_of(" \t", equals + 1);
    result.valueAt = first == line.npos ? line.size() : first;
    return result;
}

std::string_view LineEnd(std::string_view line) {
    if (!line.ends_with('\n')) return {};
    return line.substr(line.size() - (line.ends_with("\r\n") ? 2 : 1));
}

// Whether a line "key=" is read back under this name.
bool IsKeyName(std::string_view key) {
    return !key.empty() && key.front() != ';' && key.front() != '[' &&
           key.find_first_of(std::string_view("=\r\n\0", 4)) == key.npos;
}

bool IsSectionName(std::string_view section) {
    return section.find_first_of(std::string_view("]\r\n\0", 4)) == section.npos;
}

}  // namespace

CProfileText::CProfileText(std::string_view bytes) {
    if (bytes.starts_with(kByteOrderMark)) {
        mark_ = kByteOrderMark;
        bytes.remove_prefix(kByteOrderMark.size());
    }
    while (!bytes.empty()) {
        const size_t length = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
        lines_.emplace_back(bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
    if (!lines_.empty()) lineEnd_ = LineEnd(lines_.front());
    if (lineEnd_.empty()) lineEnd_ = "\r\n";
    Index();
}

std::string CProfileText::Bytes() const {
    size_t size = mark_.size();
    for (const std::string &line : lines_) size += line.size();
    std::string bytes;
    bytes.reserve(size);
    bytes += mark_;
    for (const std::string &line : lines_) bytes += line;
    return bytes;
}

void CProfileText::Index() {
    sections_.clear();
    Section *open = nullptr;  // null: ahead of all sections, or in a later one of a name that was seen
    for (size_t i = 0; i < lines_.size(); ++i) {
        if (const auto name = SectionName(lines_[i])) {
            const auto [place, isNew] = sections_.try_emplace(LowerCase(*name));
            open = isNew ? &place->second : nullptr;
            if (open) open->first = open->last = i + 1;
        } else if (open) {
            open->last = i + 1;
            if (const auto line = ReadKeyLine(lines_[i])) open->keys.try_emplace(LowerCase(line->key), i);
        }
    }
}

const CProfileText::Section *CProfileText::FindSection(std::string_view section) const {
    const auto place = sections_.find(LowerCase(Trim(section)));
    return place == sections_.end() ? nullptr : &place->second;
}

std::optional<std::string_view> CProfileText::Find(std::string_view section, std::string_view key) const {
    const Section *found = FindSection(section);
    if (!found) return {};
    const auto place = found->keys.find(LowerCase(Trim(key)));
    if (place == found->keys.end()) return {};
    return Unquote(ReadKeyLine(lines_[place->second])->value);
}

void CProfileText::InsertLine(size_t at, std::string line) {
    if (at > 0 && LineEnd(lines_[at - 1]).empty()) lines_[at - 1] += lineEnd_;
    lines_.insert(lines_.begin() + static_cast<ptrdiff_t>(at), std::move(line));
    changed_ = true;
}

bool CProfileText::Set(std::string_view section, std::string_view key, std::string_view value) {
    section = Trim(section);
    key = Trim(key);
    if (!IsSectionName(section) || !IsKeyName(key)) return false;
    value = value.substr(0, value.find_first_of("\r\n"));

    const Section *found = FindSection(section);
    if (!found) {
        InsertLine(lines_.size(), "[" + std::string(section) + "]" + lineEnd_);
        InsertLine(lines_.size(), std::string(key) + "=" + std::string(value) + lineEnd_);
        Index();
        return true;
    }
    if (const auto place = found->keys.find(LowerCase(key)); place != found->keys.end()) {
        std::string &line = lines_[place->second];
        const size_t valueAt = std::min(ReadKeyLine(line)->valueAt, line.size() - LineEnd(line).size());
        std::string edited = line.substr(0, valueAt) + std::string(value) + std::string(LineEnd(line));
        if (edited == line) return true;
        line = std::move(edited);
        changed_ = true;
        return true;
    }
    // Behind the section's last line that isn't blank, so that the gap to the next section stays.
    size_t at = found->last;
    while (at > found->first && Trim(lines_[at - 1]).empty()) --at;
    const bool isAtEnd = at == lines_.size();
    InsertLine(at, std::string(key) + "=" + std::string(value) + lineEnd_);
    if (isAtEnd) {
        // The ordinary way of growth, a file written key by key, needs no new index.
        Section &grown = sections_.find(LowerCase(section))->second;
        grown.keys.emplace(LowerCase(key), at);
        grown.last = lines_.size();
    } else {
        Index();
    }
    return true;
}

bool CProfileText::RemoveKey(std::string_view section, std::string_view key) {
    key = Trim(key);
    const Section *found = FindSection(section);
    if (!found || !found->keys.contains(LowerCase(key))) return true;
    // All of that name: a former second one must not come to light.
    const auto first = lines_.begin() + static_cast<ptrdiff_t>(found->first);
    const auto last = lines_.begin() + static_cast<ptrdiff_t>(found->last);
    const auto end = std::remove_if(first, last, [&](const std::string &text) {
        const auto line = ReadKeyLine(text);
        return line && EqualNoCase(line->key, key);
    });
    lines_.erase(end, last);
    changed_ = true;
    Index();
    return true;
}

bool CProfileText::RemoveSection(std::string_view section) {
    section = Trim(section);
    if (!FindSection(section)) return true;
    std::vector<std::string> kept;
    bool removing = false;
    for (std::string &line : lines_) {
        if (const auto name = SectionName(line)) removing = EqualNoCase(*name, section);
        if (!removing) kept.push_back(std::move(line));
    }
    lines_ = std::move(kept);
    changed_ = true;
    Index();
    return true;
}
