// Tag files with search patterns, of which the prototypes are read.
#include <algorithm>

#include "fuzz/FuzzTarget.h"
#include "navigation/TagFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    std::map<std::string, std::string> prototypes, piecewise;
    ParsePrototypes(AsText(data, size), prototypes);
    CPrototypeReader reader(AsText(data, size), piecewise);
    while (reader.Read(2)) continue;
    Expect(prototypes == piecewise, "reading in pieces finds the same");
    for (const auto &[name, text] : prototypes) {
        Expect(name.find('\t') == std::string::npos, "a name ends at a tab");
        Expect(text.find('$') == std::string::npos, "a prototype ends at the sign for a line's end");
        Expect(std::count(text.begin(), text.end(), '(') == std::count(text.begin(), text.end(), ')'),
               "a prototype ends on its line");
    }
    return 0;
}
