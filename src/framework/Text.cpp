#include "framework/Text.h"

QString ToQString(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

std::string FromQString(const QString &text) {
    const QByteArray bytes = text.toUtf8();
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

std::string FormatText(std::string_view format, const std::vector<std::string> &values) {
    static constexpr std::string_view kMarks[] = {"%s", "%d", "%ld"};
    std::string result;
    size_t next = 0;
    while (!format.empty()) {
        if (format.starts_with("%%")) {
            result += '%';
            format.remove_prefix(2);
            continue;
        }
        size_t length = 0;
        for (std::string_view mark : kMarks)
            if (format.starts_with(mark)) length = mark.size();
        if (length == 0) {
            result += format.front();
            format.remove_prefix(1);
            continue;
        }
        if (next < values.size()) result += values[next++];
        format.remove_prefix(length);
    }
    return result;
}
