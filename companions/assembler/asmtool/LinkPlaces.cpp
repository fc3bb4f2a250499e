#include "LinkPlaces.h"

#include <algorithm>

#include "SourceScan.h"
#include "platform/NativePath.h"

namespace {

enum class Subject {
    use,         // symbol, object that needs it
    duplicate,   // symbol, first object, second object
    objectPart,  // object, section
    section,     // section of any object
    address,     // "section/symbol", twice
    object,      // object as a whole
};

struct Kind {
    std::string_view words;  // what the message begins with
    Subject subject;
};

constexpr Kind kKinds[] = {
    {"Missing definition for symbol ", Subject::use},
    {"Duplicate symbol ", Subject::duplicate},
    {"File \"", Subject::objectPart},
    {"No target memory available for section ", Subject::section},
    {"Linker script has no definition that matches the type of section ", Subject::section},
    {"Section types for ", Subject::section},
    {"Different addresses for absolute overlay sections ", Subject::section},
    {"Relocation of section ", Subject::section},
    {"Destination address must be word aligned at ", Subject::section},
    {"Relative branch out of range ", Subject::section},
    {"Absolute code section ", Subject::section},
    {"Fill section ", Subject::section},
    {"More ", Subject::address},
    {"Processor mismatch in ", Subject::object},
    {"Processor family mismatch in ", Subject::object},
};

std::vector<std::string> QuotedWords(std::string_view message) {
    std::vector<std::string> words;
    for (size_t i = 0; (i = message.find('"', i)) != std::string_view::npos;) {
        const size_t end = message.find('"', i + 1);
        if (end == std::string_view::npos) break;
        words.emplace_back(message.substr(i + 1, end - i - 1));
        i = end + 1;
    }
    return words;
}

using Places = std::vector<SourcePlace>;

CObjectFile Open(const std::string &object) {
    return CObjectFile(FromNativePath(object));
}

void AddUse(Places &places, const std::string &symbol, const std::string &object) {
    const CObjectFile file = Open(object);
    if (auto place = file.FirstUse(symbol)) {
        places.push_back(*place);
    } else if (auto line = FindWord(file.SourceName(), symbol)) {
        places.push_back({file.SourceName(), *line});
    }
}

void AddDefinition(Places &places, const std::string &symbol, const std::string &object) {
    const CObjectFile file = Open(object);
    if (auto line = FindLabel(file.SourceName(), symbol)) {
        places.push_back({file.SourceName(), *line});
    } else if (auto place = file.Definition(symbol)) {
        places.push_back(*place);
    }
}

void AddSection(Places &places, const CObjectFile &file, const std::string &section) {
    if (!file.FindSection(section)) return;
    if (auto line = FindSectionDirective(file.SourceName(), section)) {
        places.push_back({file.SourceName(), *line});
    } else if (auto place = file.FirstLine(section)) {
        places.push_back(*place);
    }
}

// The object whose share of the section is the largest is the one to look at first.
void AddSectionOfAny(Places &places, const std::string &section, const std::vector<std::string> &objects) {
    std::vector<std::pair<uint32_t, std::string>> holders;
    for (const std::string &object : objects)
        if (const CObjectFile file = Open(object); const auto *found = file.FindSection(section))
            holders.emplace_back(found->size, object);
    const auto largest = std::max_element(holders.begin(), holders.end(),
                                          [](const auto &a, const auto &b) { return a.first < b.first; });
    if (largest != holders.end()) AddSection(places, Open(largest->second), section);
}

}  // namespace

std::vector<SourcePlace> FindLinkPlaces(std::string_view message, const std::vector<std::string> &objects) {
    const auto kind =
        std::find_if(std::begin(kKinds), std::end(kKinds), [&](const Kind &k) { return message.starts_with(k.words); });
    const std::vector<std::string> words = QuotedWords(message);
    if (kind == std::end(kKinds) || words.empty()) return {};

    Places places;
    switch (kind->subject) {
        case Subject::use:
            if (words.size() >= 2) AddUse(places, words[0], words[1]);
            break;
        case Subject::duplicate:
            if (words.size() < 3) break;
            AddDefinition(places, words[0], words[2]);
            AddDefinition(places, words[0], words[1]);
            break;
        case Subject::objectPart:
            if (words.size() >= 2) AddSection(places, Open(words[0]), words[1]);
            break;
        case Subject::section:
            AddSectionOfAny(places, words[0], objects);
            break;
        case Subject::address:
            for (const std::string &word : words) AddSectionOfAny(places, word.substr(0, word.find('/')), objects);
            break;
        case Subject::object:
            if (const std::string source = Open(words[0]).SourceName(); !source.empty()) places.push_back({source, 1});
            break;
    }
    return places;
}
