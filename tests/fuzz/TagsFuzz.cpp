// Tag files with line numbers: those of a project, read for the language that their size picks, and those of one
// document.
#include <algorithm>

#include "fuzz/FuzzTarget.h"
#include "navigation/TagFile.h"

namespace {

bool SameSymbols(const SymbolMap &a, const SymbolMap &b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto &x, const auto &y) {
        return x.first == y.first && x.second.file == y.second.file && x.second.line == y.second.line;
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    constexpr TagLanguage kLanguages[] = {TagLanguage::c, TagLanguage::pascal, TagLanguage::basic};
    const std::string_view text = AsText(data, size);
    const TagLanguage language = kLanguages[size % 3];

    SymbolMaps maps, piecewise;
    ParseTags(text, language, maps);
    CTagReader reader(text, language, piecewise);
    while (reader.Read(2)) continue;
    for (const SymbolCategory &category : kSymbolCategories) {
        Expect(SameSymbols(maps.*category.map, piecewise.*category.map), "reading in pieces finds the same");
        for (const auto &[name, record] : maps.*category.map) {
            Expect(record.name == name, "a record stands under its name");
            Expect(record.line >= 0, "a line is not negative");
            Expect(record.item == 0 && record.pos == -1 && record.viewIndex == -1, "no other field is set");
        }
    }
    Expect(maps.Prototypes.empty(), "symbols are no prototypes");

    for (const TagLine &tag : ParseFunctionTags(text)) {
        Expect(!tag.name.empty() && tag.line >= 0, "a function has a name and no negative line");
    }
    return 0;
}
