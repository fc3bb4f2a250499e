// The function statistics that a build leaves.
#include <algorithm>

#include "fuzz/FuzzTarget.h"
#include "navigation/FunctionStats.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string_view text = AsText(data, size);
    const auto stats = ParseFunctionStats(text);
    if (!stats) return 0;
    Expect(static_cast<std::ptrdiff_t>(stats->size()) <= std::count(text.begin(), text.end(), '\n') + 1,
           "a line gives at most one function");
    for (const SStatData &stat : *stats) {
        Expect(!stat.name.empty() && stat.name.back() != ' ', "a function has a name");
        Expect(stat.line >= 0 && stat.rom >= 0 && stat.ramWhole >= 0 && stat.ramPart >= 0, "no number is negative");
        Expect(stat.file.find_first_of("\"\n") == std::string::npos, "a file's name ends at its quote");
    }
    return 0;
}
