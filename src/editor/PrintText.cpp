#include "editor/PrintText.h"

#include <algorithm>
#include <array>

namespace {

std::string TimeText(const char *format, const std::tm &now) {
    std::array<char, 256> text;
    return {text.data(), std::strftime(text.data(), text.size(), format, &now)};
}

}  // namespace

std::string ExpandHeaderText(std::string_view text, int page, std::string_view file, const std::tm &now) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        const char code = text[i] == '&' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (code == 'D')
            result += TimeText("%x", now);
        else if (code == 'T')
            result += TimeText("%X", now);
        else if (code == 'F')
            result += file;
        else if (code == 'P')
            result += std::to_string(page);
        else {
            result += text[i];
            continue;
        }
        ++i;
    }
    return result;
}

std::string ExpandTabs(std::string_view line, int tabSize, size_t limit) {
    const auto blanks = static_cast<size_t>(std::max(1, tabSize));
    std::string result;
    for (const char c : line.substr(0, line.find_first_of("\r\n"))) {
        if (result.size() >= limit) break;
        if (c == '\t')
            result.append(blanks, ' ');
        else
            result += c;
    }
    return result;
}
