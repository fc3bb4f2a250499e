#include "build/MessageTone.h"

#include <algorithm>

namespace {

constexpr size_t kLongestPlace = 512;  // bytes in which "file(line): word" is looked for

bool BeginsWith(std::string_view text, std::string_view lowerCaseWord) {
    return text.size() >= lowerCaseWord.size() &&
           std::equal(lowerCaseWord.begin(), lowerCaseWord.end(), text.begin(),
                      [](char word, char c) { return word == (c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c); });
}

std::string_view WithoutBlanks(std::string_view text) {
    const size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

bool EndsWord(std::string_view text, size_t length) {
    return text.size() == length || text[length] == ' ' || text[length] == ':' || text[length] == '[';
}

MessageTone ToneOfWord(std::string_view text) {
    constexpr struct {
        std::string_view word;
        MessageTone tone;
    } kWords[] = {
        {"fatal error", MessageTone::error},
        {"error", MessageTone::error},
        {"warning", MessageTone::warning},
    };
    for (const auto &entry : kWords)
        if (BeginsWith(text, entry.word) && EndsWord(text, entry.word.size())) return entry.tone;
    return MessageTone::plain;
}

}  // namespace

MessageTone ToneOf(std::string_view line) {
    line = line.substr(0, kLongestPlace);
    const size_t mark = line.find_first_not_of("0123456789");  // "3> " stands before messages of the third project
    if (mark != 0 && mark != std::string_view::npos && line.substr(mark, 2) == "> ") line.remove_prefix(mark + 2);
    if (const MessageTone tone = ToneOfWord(line); tone != MessageTone::plain) return tone;
    const size_t place = line.find("):");
    if (place == std::string_view::npos || line.find('(') > place) return MessageTone::plain;
    return ToneOfWord(WithoutBlanks(line.substr(place + 2)));
}
