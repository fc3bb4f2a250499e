#include "editor/TextSize.h"

#include <algorithm>

namespace {

constexpr std::string_view kLineEnds = "\r\n";

// Calls `visit` with each part of the text between `separators`.
template <typename Separators, typename Visit>
void ForEachPart(std::string_view text, Separators separators, Visit visit) {
    for (size_t at = 0; at <= text.size();) {
        const size_t end = std::min(text.find_first_of(separators, at), text.size());
        visit(text.substr(at, end - at));
        at = end + 1;
    }
}

bool ContinuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// The length of the first piece of a longer line: a character of UTF-8 has at most three bytes behind its first.
size_t PieceLength(std::string_view line) {
    size_t length = kPiece;
    while (length > kPiece - 3 && ContinuesCharacter(line[length])) --length;
    return ContinuesCharacter(line[length]) ? kPiece : length;
}

}  // namespace

size_t LongestLine(std::string_view text) {
    size_t longest = 0;
    // Looking for one character is much the faster, and few parts between line feeds are longer than all before them.
    ForEachPart(text, '\n', [&](std::string_view part) {
        if (part.size() <= longest) return;
        ForEachPart(part, '\r', [&](std::string_view line) { longest = std::max(longest, line.size()); });
    });
    return longest;
}

std::string BreakLongLines(std::string_view text) {
    std::string broken;
    broken.reserve(text.size() + text.size() / kPiece + 1);
    ForEachPart(text, kLineEnds, [&](std::string_view line) {
        const size_t end = static_cast<size_t>(line.data() - text.data()) + line.size();
        if (line.size() > kBrokenLine) {
            while (line.size() > kPiece) {
                const size_t length = PieceLength(line);
                broken.append(line.substr(0, length)) += '\n';
                line.remove_prefix(length);
            }
        }
        broken.append(line);
        if (end < text.size()) broken += text[end];
    });
    return broken;
}

std::string WithWindowsLineEnds(std::string_view text) {
    std::string converted;
    converted.reserve(text.size() + text.size() / 16);
    for (size_t at = 0; at < text.size();) {
        const size_t end = text.find_first_of(kLineEnds, at);
        converted.append(text.substr(at, end - at));
        if (end == std::string_view::npos) break;
        converted += kLineEnds;
        at = end + (text.substr(end, 2) == kLineEnds ? 2 : 1);
    }
    return converted;
}
