#include "editor/PrintSettings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "app/Settings.h"
#include "editor/EditorProperties.h"

namespace {

const std::string kSection = "Margins";
const std::string kFontSection = "Font";
const std::string kSchemeSection = "UserColorScheme";

double LoadMargin(const std::string &key) {
    return ParseMargin(GetUserString(kSection, key, "1.0"));
}

// As "%f" writes it in the language of the stored settings.
std::string MarginText(double margin) {
    std::array<char, 400> text;  // holds the largest number
    const auto end = std::to_chars(text.data(), text.data() + text.size(), margin, std::chars_format::fixed, 6);
    return {text.data(), end.ptr};
}

PrintAlignment LoadAlignment(const std::string &key) {
    const int stored = GetUserInt(kSection, key, 1);
    return stored >= 0 && stored <= 2 ? static_cast<PrintAlignment>(stored) : PrintAlignment::centre;
}

}  // namespace

double ParseMargin(const std::string &text) {
    const size_t begin = std::min(text.find_first_not_of(" \t"), text.size());
    const bool plus = begin < text.size() && text[begin] == '+';
    double value = 0;
    std::from_chars(text.data() + begin + plus, text.data() + text.size(), value);
    return std::isfinite(value) ? value : 0;
}

CPrintSettings CPrintSettings::Load() {
    CPrintSettings settings;
    settings.unit = GetUserString(kSection, "Unit", kInches);
    settings.top = LoadMargin("Top");
    settings.bottom = LoadMargin("Bottom");
    settings.left = LoadMargin("Left");
    settings.right = LoadMargin("Right");
    settings.header = GetUserString(kSection, "Header", settings.header);
    settings.footer = GetUserString(kSection, "Footer", settings.footer);
    settings.headerAlignment = LoadAlignment("HAlignment");
    settings.footerAlignment = LoadAlignment("FAlignment");
    return settings;
}

bool CPrintSettings::Store() const {
    bool stored = WriteUserString(kSection, "Unit", unit);
    const std::pair<const char *, std::string> texts[] = {
        {"Top", MarginText(top)},   {"Bottom", MarginText(bottom)},
        {"Left", MarginText(left)}, {"Right", MarginText(right)},
        {"Header", header},         {"Footer", footer},
    };
    for (const auto &[key, text] : texts) stored = WriteUserString(kSection, key, text) && stored;
    stored = WriteUserInt(kSection, "HAlignment", static_cast<int>(headerAlignment)) && stored;
    return WriteUserInt(kSection, "FAlignment", static_cast<int>(footerAlignment)) && stored;
}

CPrintFont CPrintFont::Load() {
    CPrintFont font;
    font.face = GetUserString(kSchemeSection, "Font", font.face);
    font.size = std::clamp(GetUserInt(kSchemeSection, "FontSize", 10), 1, CEditorProperties::kMaxFontSize);
    font.tabSize = std::clamp(GetUserInt(kSchemeSection, "TabSize", 4), 1, CEditorProperties::kMaxTabSize);
    font.bold = GetUserInt(kFontSection, "Bold", 0) != 0;
    font.italic = GetUserInt(kFontSection, "Italic", 0) != 0;
    return font;
}
