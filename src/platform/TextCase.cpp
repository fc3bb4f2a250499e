// Comparison of UTF-8 texts without regard to case.
//
// Letters fold by the Unicode tables of the C.UTF-8 locale and not by the user's: a file name must not change its
// identity with the language of the desktop (Turkish would part "FILE" from "file"). A byte that is no UTF-8 stands for
// itself.
#include <locale.h>
#include <wctype.h>

#include "platform/PathCalls.h"

namespace {

constexpr char32_t kBadByte = 0x110000;  // a byte b that is no UTF-8 reads as kBadByte + b

locale_t FoldingLocale() {
    static locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

char32_t Fold(char32_t c) {
    if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c;
    if (c >= kBadByte || !FoldingLocale()) return c;
    return static_cast<char32_t>(towlower_l(static_cast<wint_t>(c), FoldingLocale()));
}

// Reads the code point at `at` and moves `at` behind it.
char32_t Next(std::string_view text, size_t &at) {
    const auto first = static_cast<unsigned char>(text[at++]);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 && first < 0xF5 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : 0;
    if (first >= 0xF5 || more == 0 || text.size() - at < static_cast<size_t>(more)) return kBadByte + first;
    char32_t c = first & (0x3F >> more);
    for (int i = 0; i < more; ++i) {
        const auto byte = static_cast<unsigned char>(text[at + i]);
        if ((byte & 0xC0) != 0x80) return kBadByte + first;
        c = (c << 6) | (byte & 0x3F);
    }
    constexpr char32_t shortest[] = {0, 0x80, 0x800, 0x10000};
    if (c < shortest[more] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) return kBadByte + first;
    at += more;
    return c;
}

void Append(std::string &out, char32_t c) {
    if (c >= kBadByte) {
        out += static_cast<char>(c - kBadByte);
    } else if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += {static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))};
    } else if (c < 0x10000) {
        out += {static_cast<char>(0xE0 | (c >> 12)), static_cast<char>(0x80 | ((c >> 6) & 0x3F)),
                static_cast<char>(0x80 | (c & 0x3F))};
    } else {
        out += {static_cast<char>(0xF0 | (c >> 18)), static_cast<char>(0x80 | ((c >> 12) & 0x3F)),
                static_cast<char>(0x80 | ((c >> 6) & 0x3F)), static_cast<char>(0x80 | (c & 0x3F))};
    }
}

}  // namespace

int lstrcmpiA(std::string_view a, std::string_view b) {
    size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        const char32_t x = Fold(Next(a, i)), y = Fold(Next(b, j));
        if (x != y) return x < y ? -1 : 1;
    }
    return i < a.size() ? 1 : j < b.size() ? -1 : 0;
}

bool EqualNoCase(std::string_view a, std::string_view b) { return a == b || lstrcmpiA(a, b) == 0; }

size_t MatchPrefixNoCase(std::string_view text, std::string_view prefix) {
    size_t i = 0, j = 0;
    while (j < prefix.size()) {
        if (i == text.size() || Fold(Next(text, i)) != Fold(Next(prefix, j))) return std::string_view::npos;
    }
    return i;
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
    return MatchPrefixNoCase(text, prefix) != std::string_view::npos;
}

std::string LowerCase(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size();) Append(out, Fold(Next(text, at)));
    return out;
}
