#include "editor/TextSearch.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr TextRange kNone;

// As the component's regular expressions see it.
bool IsWordByte(intptr_t c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte == '_' || byte >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= 'a' && byte <= 'z');
}

bool BeginsAtWordStart(std::string_view expression) {
    while (expression.starts_with("\\(")) expression.remove_prefix(2);
    return expression.starts_with("\\<");
}

}  // namespace

CTextSearch::CTextSearch(const CSciWindow &sci, std::string text, intptr_t flags)
    : sci_(sci), text_(std::move(text)), flags_(flags) {
    fromWordStart_ = IsRegExp() && BeginsAtWordStart(text_);
}

void CTextSearch::SetTarget(intptr_t start, intptr_t end) const {
    sci_.Send(SCI_SETTARGETSTART, static_cast<uintptr_t>(start));
    sci_.Send(SCI_SETTARGETEND, static_cast<uintptr_t>(end));
}

// Backward when `to` lies before `from`.
std::optional<TextRange> CTextSearch::Search(intptr_t from, intptr_t to) const {
    SetTarget(from, to);
    sci_.Send(SCI_SETSEARCHFLAGS, static_cast<uintptr_t>(flags_));
    if (sci_.SendText(SCI_SEARCHINTARGET, text_.size(), text_.c_str()) < 0) return std::nullopt;
    return TextRange{sci_.Send(SCI_GETTARGETSTART), sci_.Send(SCI_GETTARGETEND)};
}

// The component takes the place where a search for a regular expression begins for the start of a line and of a word,
// looks at bytes, not at characters, and finds a line's end also from behind it.
bool CTextSearch::IsReal(const TextRange &hit, intptr_t from) const {
    if (!IsRegExp()) return true;
    if (hit.start < from) return false;
    if (hit.start == 0) return true;
    const intptr_t before = Before(hit.start);
    if (After(before) != hit.start) return false;
    return !fromWordStart_ || !IsWordByte(sci_.Send(SCI_GETCHARAT, static_cast<uintptr_t>(hit.start - 1)));
}

std::optional<TextRange> CTextSearch::Forward(intptr_t from, intptr_t end, const TextRange &passed) const {
    for (;;) {
        const std::optional<TextRange> hit = Search(from, end);
        if (!hit || (IsReal(*hit, from) && *hit != passed)) return hit;
        const intptr_t next = After(std::max(hit->start, from));
        if (next <= from || next > end) return std::nullopt;
        from = next;
    }
}

// The last hit of the line that ends at or before `before`.
std::optional<TextRange> CTextSearch::LastOfLine(intptr_t line, intptr_t before, const TextRange &passed) const {
    const intptr_t end = sci_.Send(SCI_GETLINEENDPOSITION, static_cast<uintptr_t>(line));
    intptr_t from = sci_.Send(SCI_POSITIONFROMLINE, static_cast<uintptr_t>(line));
    std::optional<TextRange> last;
    while (from <= end) {
        const std::optional<TextRange> hit = Forward(from, end, kNone);
        if (!hit || hit->end > before) break;
        if (*hit != passed) last = hit;
        const intptr_t next = hit->IsEmpty() ? After(hit->end) : hit->end;
        if (next <= from) break;
        from = next;
    }
    return last;
}

std::optional<TextRange> CTextSearch::Backward(intptr_t from, const TextRange &passed) const {
    if (!IsRegExp()) return Search(from, 0);
    // The component's own backward search finds the line only: within it, it would cut hits short.
    while (const std::optional<TextRange> near = Search(from, 0)) {
        const intptr_t line = sci_.Send(SCI_LINEFROMPOSITION, static_cast<uintptr_t>(near->start));
        if (const std::optional<TextRange> hit = LastOfLine(line, from, passed)) return hit;
        if (line == 0) break;
        from = sci_.Send(SCI_GETLINEENDPOSITION, static_cast<uintptr_t>(line - 1));
    }
    return std::nullopt;
}

std::optional<TextRange> CTextSearch::FindNext(const TextRange &last, bool reverse) const {
    const std::optional<TextRange> hit = reverse ? Backward(std::max<intptr_t>(last.start, 0), last)
                                                 : Forward(std::max<intptr_t>(last.end, 0), Length(), last);
    if (hit) return hit;
    return reverse ? Backward(Length(), kNone) : Forward(0, Length(), kNone);
}

intptr_t CTextSearch::Replace(const TextRange &hit, const std::string &replacement) const {
    SetTarget(hit.start, hit.end);
    const unsigned message = IsRegExp() ? SCI_REPLACETARGETRE : SCI_REPLACETARGET;
    return sci_.SendText(message, replacement.size(), replacement.c_str());
}

// A replacement would be refused twice, once for each half.
bool CTextSearch::CanChange() const {
    if (!sci_.Send(SCI_GETREADONLY)) return true;
    SetTarget(0, 0);
    sci_.SendText(SCI_REPLACETARGET, 1, " ");
    return false;
}

std::optional<intptr_t> CTextSearch::ReplaceRange(const TextRange &range, const std::string &replacement) const {
    if (!CanChange()) return std::nullopt;
    if (IsRegExp()) Search(range.start, range.end);  // for the groups that the replacement names
    return Replace(range, replacement);
}

std::optional<intptr_t> CTextSearch::ReplaceAll(const std::string &replacement) const {
    std::optional<TextRange> hit = Forward(0, Length(), kNone);
    if (IsRegExp() && text_ == "^") hit = TextRange{0, 0};
    if (!hit) return std::nullopt;
    if (!CanChange()) return 0;
    sci_.Send(SCI_BEGINUNDOACTION);
    intptr_t count = 0, end = 0;
    while (hit) {
        end = hit->start + Replace(*hit, replacement);
        ++count;
        // The place of an empty hit would be found again: at a line's end the whole end is passed over.
        const intptr_t next = hit->IsEmpty() ? After(end) : end;
        if (next >= Length()) break;
        hit = Forward(next, Length(), kNone);
    }
    sci_.Send(SCI_SETSEL, static_cast<uintptr_t>(end), end);
    sci_.Send(SCI_ENDUNDOACTION);
    return count;
}

// The component answers a bad expression as it answers a miss. But only a good one lets it forget the groups of the
// search before.
bool CTextSearch::IsBadExpression() const {
    if (!IsRegExp()) return false;
    const CTextSearch anyCharacter(sci_, "\\(.\\)", SCFIND_REGEXP);
    if (!anyCharacter.Search(0, Length()) || Search(0, Length())) return false;
    char group[8] = "";  // one byte
    return sci_.SendText(SCI_GETTAG, 1, group) > 0;
}
