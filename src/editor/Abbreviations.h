// The user's abbreviations for program text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Main thread.
class CAbbreviations {
public:
    virtual ~CAbbreviations() = default;

    // Reads the table from a file (Windows form) of pairs "name <*text*>". A file that is missing, or has one error
    // anywhere, leaves the table as it is.
    void Load(const std::string &path);

    // The text of the first abbreviation with exactly that name.
    bool Find(std::string_view name, std::string &body) const;

    size_t Count() const { return entries_.size(); }

private:
    struct Entry {
        std::string name, body;
    };
    std::vector<Entry> entries_;  // in the order of the file
};
