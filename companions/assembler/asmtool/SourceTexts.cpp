#include "SourceTexts.h"

#include <algorithm>
#include <array>

#include "SourceScan.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

constexpr std::array<std::string_view, 8> kDataDirectives = {"da", "data", "db", "de", "dt", "dtm", "dw", "fill"};

bool IsDataDirective(std::string_view word) {
    return std::any_of(kDataDirectives.begin(), kDataDirectives.end(),
                       [&](std::string_view directive) { return EqualNoCase(directive, word); });
}

}  // namespace

std::optional<int> CSourceTexts::LabelLine(const std::string &file, std::string_view label, int line) {
    const Text &text = Read(file);
    const auto found = text.labels.find(LowerCase(label));
    if (found == text.labels.end()) return std::nullopt;
    const std::vector<int> &lines = found->second;
    const auto after = std::upper_bound(lines.begin(), lines.end(), line);
    return after == lines.begin() ? lines.front() : *std::prev(after);
}

bool CSourceTexts::IsDataLine(const std::string &file, int line) {
    const Text &text = Read(file);
    return line > 0 && static_cast<size_t>(line) <= text.data.size() && text.data[static_cast<size_t>(line) - 1];
}

const CSourceTexts::Text &CSourceTexts::Read(const std::string &file) {
    const auto [entry, isNew] = texts_.try_emplace(file);
    Text &text = entry->second;
    if (!isNew) return text;
    const std::optional<std::string> bytes = ReadWholeFile(FromNativePath(file));
    if (!bytes) return text;
    for (size_t begin = 0; begin < bytes->size();) {
        const size_t end = std::min(bytes->find('\n', begin), bytes->size());
        const auto words = WordsOfLine(std::string_view(*bytes).substr(begin, end - begin));
        text.data.push_back(words.size() > 1 && IsDataDirective(words[1]));
        if (!words.empty() && !words[0].empty())
            text.labels[LowerCase(words[0])].push_back(static_cast<int>(text.data.size()));
        begin = end + 1;
    }
    return text;
}
