#include "editor/WordAt.h"

#include <algorithm>

#include "editor/SciWindow.h"

bool IsWordChar(char c) {
    return c == '_' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsPathChar(char c) {
    return IsWordChar(c) || c == '.' || c == '\\' || c == ':';
}

bool WordAt(const CSciWindow &window, intptr_t position, std::string &word, bool (*charTest)(char), WordPart part) {
    word.clear();
    if (position < 0 || position > window.Send(SCI_GETLENGTH)) return false;
    const auto line = static_cast<uintptr_t>(window.Send(SCI_LINEFROMPOSITION, static_cast<uintptr_t>(position)));
    const intptr_t first = window.Send(SCI_POSITIONFROMLINE, line), end = window.Send(SCI_GETLINEENDPOSITION, line);
    const auto isPart = [&](intptr_t at) {
        const char c = static_cast<char>(window.Send(SCI_GETCHARAT, static_cast<uintptr_t>(at)));
        if (c == 0 || !charTest(c)) return false;
        word += c;
        return true;
    };
    if (part != WordPart::after)
        for (intptr_t at = position - 1; at >= first && isPart(at);) --at;
    std::reverse(word.begin(), word.end());
    if (part != WordPart::before) {
        intptr_t at = position;
        while (at < end && isPart(at)) ++at;
        if (at == position) word.clear();
    }
    return !word.empty();
}
