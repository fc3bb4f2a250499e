// The text of a profile file as lines, with an index of its sections and keys. Profile.h tells the rules of the format.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class CProfileText {
public:
    explicit CProfileText(std::string_view bytes = {});

    std::string Bytes() const;

    // The value of `key`, without blanks and surrounding quotes.
    std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

    // Each tells whether the text may hold such names; what is there already stays as it is.
    bool Set(std::string_view section, std::string_view key, std::string_view value);
    bool RemoveKey(std::string_view section, std::string_view key);
    bool RemoveSection(std::string_view section);

    bool IsChanged() const { return changed_; }  // in at least one byte, since it was read or last saved
    void MarkSaved() { changed_ = false; }

private:
    struct Section {
        size_t first = 0, last = 0;                    // lines of the body: [first, last)
        std::unordered_map<std::string, size_t> keys;  // by lower-case name: the line of the first of that name
    };

    void Index();
    const Section *FindSection(std::string_view section) const;
    void InsertLine(size_t at, std::string line);

    std::string mark_;                // byte order mark, or empty
    std::vector<std::string> lines_;  // with their ends
    std::string lineEnd_;
    std::unordered_map<std::string, Section> sections_;  // by lower-case name: the first of that name
    bool changed_ = false;
};
