#include "navigation/TodoScan.h"

#include <algorithm>
#include <array>

#include "navigation/TodoGrammar.h"

namespace {

constexpr uint8_t kLetterCase = 0x20;  // the bit that a small letter has and its capital hasn't

// How far a search for "todo" or "fixm" can move on when its window of four characters ends in a given one.
constexpr size_t kWindow = 4;
constexpr std::array<uint8_t, 256> kSteps = [] {
    std::array<uint8_t, 256> steps{};
    for (uint8_t &step : steps) step = kWindow;
    for (const std::string_view word : {"todo", "fixm"})
        for (size_t i = 0; i + 1 < kWindow; ++i)
            for (const char letter : {word[i], static_cast<char>(word[i] - kLetterCase)}) {
                uint8_t &step = steps[static_cast<uint8_t>(letter)];
                step = std::min<uint8_t>(step, static_cast<uint8_t>(kWindow - 1 - i));
            }
    return steps;
}();

bool BeginsWithWord(std::string_view text, std::string_view word) {
    if (text.size() < word.size()) return false;
    for (size_t i = 0; i < word.size(); ++i)
        if ((text[i] | kLetterCase) != word[i]) return false;
    return true;
}

// The place of the first of both words from `at` on; the text's size when there is none. Most texts hold none, and the
// grammars, which look at each character several times, needn't see those.
size_t FindWord(std::string_view text, size_t at) {
    while (at + kWindow <= text.size()) {
        const std::string_view rest = text.substr(at);
        if (BeginsWithWord(rest, "todo") || BeginsWithWord(rest, "fixme")) return at;
        at += kSteps[static_cast<uint8_t>(text[at + kWindow - 1])];
    }
    return text.size();
}

// Bytes from 128 up are negative here and go like blanks.
bool IsTrimmed(char byte) {
    return static_cast<signed char>(byte) <= ' ';
}

std::string Trim(std::string_view text) {
    while (!text.empty() && IsTrimmed(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsTrimmed(text.back())) text.remove_suffix(1);
    return std::string(text);
}

}  // namespace

void ScanTodos(std::string_view text, const std::string &file, std::vector<TodoRecord> &records) {
    size_t word = FindWord(text, 0);
    if (word == text.size() || records.size() >= kMostTodos) return;

    TodoRecord record;
    record.file = file;
    bool found = false;
    const todo_grammar todo([&] { record.type = kTodo; }, [&] { record.type = kFixme; },
                            [&](std::string_view description) {
                                found = true;
                                record.text = Trim(description);
                            });
    const line_grammar lines(
        [&](std::string_view line) {
            const size_t begin = static_cast<size_t>(line.data() - text.data());
            if (word < begin) word = FindWord(text, begin);
            if (word >= begin + line.size()) return;
            found = false;
            if (todo.ParseWhole(line.substr(word - begin)) && found) records.push_back(record);
            if (records.size() >= kMostTodos) word = text.size();
        },
        [&] { ++record.line; });
    lines.Parse(text);
}
