#include "debugger/WatchList.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "debugger/MarkerSection.h"
#include "platform/Profile.h"

namespace {

constexpr const char *kSection = "Watch";
constexpr const char *kExpression = "Sym";
constexpr const char *kFormat = "_fmt";

bool IsKey(const std::string &text) {
    return text.find_first_of("=\r\n") == text.npos && !text.starts_with(';') && !text.starts_with('[') &&
           !text.starts_with(' ') && !text.empty();
}

}  // namespace

std::string RowKeyOf(const std::string &label) {
    if (IsKey(label)) return label;
    std::string key;
    for (const char c : label) {
        const auto code = static_cast<unsigned char>(c);
        char escaped[4] = {c};
        if (code <= ' ' || c == '=' || c == '%' || c == ';' || c == '[')
            snprintf(escaped, sizeof escaped, "%%%02X", code);
        key += escaped;
    }
    return key;
}

std::string FormatKeyOf(const std::string &label) {
    return RowKeyOf(label) + kFormat;
}

std::vector<StoredWatch> LoadWatches(const std::string &projectFile, int format) {
    std::vector<StoredWatch> watches;
    const CMarkerSection section(kSection, projectFile);
    const int count = section.ReadCount();
    for (int i = 0; i < count; ++i) {
        std::string expression = section.ReadText(kExpression, i, kLongestWatch);
        if (expression.empty()) continue;
        const std::string key = FormatKeyOf(expression);
        const int own = GetPrivateProfileIntA(kSection, key.c_str(), format, projectFile.c_str());
        watches.push_back({std::move(expression), own});
    }
    return watches;
}

bool StoreWatches(const std::string &projectFile, const std::vector<StoredWatch> &watches) {
    CMarkerSection section(kSection, projectFile);
    for (const StoredWatch &watch : watches) section.SetNumber(FormatKeyOf(watch.expression), watch.format);
    int index = 0;
    for (const StoredWatch &watch : watches) section.SetText(kExpression, index++, watch.expression);
    section.SetCount(index);
    return section.Write();
}
