#include "widgets/ReportOrder.h"

#include <charconv>
#include <optional>
#include <string_view>

#include "framework/Text.h"

namespace {

std::string_view Trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool IsHex(std::string_view text) {
    return text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

std::optional<double> NumberIn(std::string_view text) {
    const bool hex = IsHex(text);
    if (hex) text.remove_prefix(2);
    if (!hex && text.ends_with('%')) text = Trimmed(text.substr(0, text.size() - 1));
    if (!hex && text.starts_with('+')) text.remove_prefix(1);
    // Without this, words like "nan" and "infinity" would be numbers.
    if (!hex && text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) return {};
    double number = 0;
    const char *end = text.data() + text.size();
    const auto format = hex ? std::chars_format::hex : std::chars_format::general;
    const auto [stop, error] = std::from_chars(text.data(), end, number, format);
    if (error != std::errc() || stop != end) return {};
    return number;
}

}  // namespace

CReportSortKey::CReportSortKey(const std::string &cell) {
    const std::string_view text = Trimmed(cell);
    if (text.empty()) return;
    if (const auto number = NumberIn(text)) {
        kind_ = Kind::number;
        number_ = *number;
        return;
    }
    kind_ = Kind::text;
    text_ = ToQString(text).toCaseFolded();
}

bool CReportSortKey::operator<(const CReportSortKey &other) const {
    if (kind_ != other.kind_) return kind_ < other.kind_;
    if (kind_ == Kind::number) return number_ < other.number_;
    return text_ < other.text_;
}
