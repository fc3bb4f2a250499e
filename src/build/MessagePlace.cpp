#include "build/MessagePlace.h"

#include <algorithm>
#include <climits>

#include "platform/PathCalls.h"

namespace {

constexpr size_t kNone = std::string_view::npos;

// Bytes compare as signed, so that a byte of a non-ASCII character is a blank too.
bool IsBlank(char c) { return static_cast<signed char>(c) <= ' '; }
bool IsBelowSpace(char c) { return static_cast<signed char>(c) < ' '; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

size_t SkipBlanks(std::string_view text, size_t from) {
    while (from < text.size() && IsBlank(text[from])) ++from;
    return from;
}

bool BeginsWith(std::string_view text, std::string_view lowerCaseWord) {
    return text.size() >= lowerCaseWord.size() &&
           std::equal(lowerCaseWord.begin(), lowerCaseWord.end(), text.begin(),
                      [](char word, char c) { return word == (c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c); });
}

// As atoi, with the result held at the limits of int.
int ReadNumber(std::string_view text) {
    size_t at = 0;
    const auto isSpace = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
    while (at < text.size() && isSpace(text[at])) ++at;
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    long long number = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at)
        number = std::min<long long>(number * 10 + text[at] - '0', INT_MAX);
    return static_cast<int>(negative ? -number : number);
}

// Without "3> ", the mark of the third of several projects.
std::string_view WithoutProjectMark(std::string_view text) {
    size_t digits = 0;
    while (digits < text.size() && IsDigit(text[digits])) ++digits;
    const bool marked = digits > 0 && digits + 1 < text.size() && text[digits] == '>' && text[digits + 1] == ' ';
    return marked ? text.substr(digits + 2) : text;
}

// "line 12: text". Every character up to the colon enters the number.
std::optional<MessageText> ReadPositionAlone(std::string_view text, size_t wordLength) {
    size_t at = wordLength;
    while (at < text.size() && !IsDigit(text[at])) ++at;
    unsigned line = 0;
    for (; at < text.size() && text[at] != ':'; ++at) line = line * 10 + static_cast<unsigned>(text[at] - '0');
    return MessageText{{{}, static_cast<int>(line)}, MessageText::Needs::fileAbove};
}

// "error main.c(12): text"
std::optional<MessageText> ReadWordAndPlace(std::string_view text, size_t wordLength) {
    text.remove_prefix(SkipBlanks(text, wordLength));
    const size_t open = text.find('(');
    if (open == kNone) return {};
    const size_t close = text.find(')', open);
    if (close == kNone) return {};
    return MessageText{{std::string(text.substr(0, open)), ReadNumber(text.substr(open + 1, close - open - 1))}};
}

// "Warning[205] c:\main.asm 12 : text"
std::optional<MessageText> ReadNumberedWord(std::string_view text, size_t) {
    const size_t bracket = text.find(']');
    if (bracket == kNone) return {};
    text.remove_prefix(SkipBlanks(text, bracket + 1));
    const size_t space = text.find(' ');
    if (space == kNone) return {};
    return MessageText{{std::string(text.substr(0, space)), ReadNumber(text.substr(SkipBlanks(text, space)))}};
}

// "main.c(12): text"
std::optional<MessageText> ReadPlace(std::string_view text) {
    const size_t open = text.find('(');
    if (open == kNone) return {};
    const size_t close = text.find(')', open);
    if (close == kNone) return {};
    const auto end = std::find_if(text.begin(), text.begin() + static_cast<ptrdiff_t>(open), IsBelowSpace);
    if (end == text.begin()) return {};
    return MessageText{{std::string(text.begin(), end), ReadNumber(text.substr(open + 1, close - open - 1))},
                       MessageText::Needs::file};
}

struct Rule {
    std::string_view word;  // in lower case
    size_t longerThan;      // the text must be
    size_t next;            // index of the character that `follows` judges
    bool (*follows)(char);
    std::optional<MessageText> (*read)(std::string_view text, size_t wordLength);
};

constexpr Rule kRules[] = {
    {"line", 5, 4, IsBlank, ReadPositionAlone},
    {"warning in", 11, 10, IsBlank, ReadPositionAlone},
    {"warning", 8, 7, IsBlank, ReadWordAndPlace},
    {"error", 6, 5, IsBlank, ReadWordAndPlace},
    {"warning[", 9, 8, IsDigit, ReadNumberedWord},
    {"error[", 7, 6, IsDigit, ReadNumberedWord},
};

}  // namespace

std::optional<MessageText> ReadMessageText(std::string_view line) {
    const std::string_view text = WithoutProjectMark(line);
    for (const Rule &rule : kRules)
        if (text.size() > rule.longerThan && BeginsWith(text, rule.word) && rule.follows(text[rule.next]))
            return rule.read(text, rule.word.size());
    return ReadPlace(text);
}

std::optional<MessagePlace> ClassifyMessage(const LineAccess &lines, size_t index, const FileTest &exists) {
    std::optional<MessageText> message = ReadMessageText(lines(index));
    if (!message) return {};
    MessagePlace &place = message->place;
    switch (message->needs) {
        case MessageText::Needs::nothing: return place;
        case MessageText::Needs::file: return exists(place.file) ? std::optional(place) : std::nullopt;
        case MessageText::Needs::fileAbove: break;
    }
    while (index > 0) {
        place.file = lines(--index);
        if (exists(place.file)) return place;
    }
    return {};
}

std::string TrimFileName(const std::string &name) { return name.substr(0, name.find_last_not_of(' ') + 1); }

bool MessageFileExists(const std::string &name) {
    const std::string trimmed = TrimFileName(name);
    return !trimmed.empty() && trimmed.size() <= kLongestFileName && FileExists(trimmed);
}
