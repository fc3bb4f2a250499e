#include "editor/Abbreviations.h"

#include <optional>

#include "editor/AbbreviationsGrammar.h"
#include "platform/FileText.h"

void CAbbreviations::Load(const std::string &path) {
    const std::optional<std::string> text = ReadWholeFile(path);
    if (!text) return;
    std::vector<Entry> entries;
    std::string name;
    const abbreviations_grammar grammar{
        [&](std::string_view word) { name = word; },
        [&](std::string_view body) {
            entries.push_back({name, std::string(body)});
        },
    };
    if (grammar.ParseWhole(*text)) entries_ = std::move(entries);
}

bool CAbbreviations::Find(std::string_view name, std::string &body) const {
    for (const Entry &entry : entries_) {
        if (entry.name != name) continue;
        body = entry.body;
        return true;
    }
    return false;
}
