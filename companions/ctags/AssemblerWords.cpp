#include "AssemblerWords.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

struct Row {
    std::string_view word;
    AssemblerWord meaning;
};

constexpr size_t kLongestWord = 16;

using enum AssemblerWord;

// Sorted.
constexpr Row kWords[] = {
    {"=", assign},
    {"__badram", plain},
    {"__badrom", plain},
    {"__config", plain},
    {"__fuses", plain},
    {"__idlocs", plain},
    {"__maxram", plain},
    {"__maxrom", plain},
    {"access_ovr", dataSection},
    {"addlw", plain},
    {"addwf", plain},
    {"andlw", plain},
    {"andwf", plain},
    {"bankisel", plain},
    {"banksel", plain},
    {"bcf", plain},
    {"bsf", plain},
    {"btfsc", plain},
    {"btfss", plain},
    {"call", plain},
    {"cblock", block},
    {"clrf", plain},
    {"clrw", plain},
    {"clrwdt", plain},
    {"code", codeSection},
    {"code_pack", codeSection},
    {"comf", plain},
    {"constant", constant},
    {"da", plain},
    {"data", plain},
    {"db", plain},
    {"de", reserve},
    {"decf", plain},
    {"decfsz", plain},
    {"define", define},
    {"dt", plain},
    {"dtm", plain},
    {"dw", plain},
    {"else", plain},
    {"end", end},
    {"endc", endBlock},
    {"endif", plain},
    {"endm", endMacro},
    {"endw", plain},
    {"equ", assign},
    {"error", plain},
    {"errorlevel", plain},
    {"exitm", plain},
    {"expand", plain},
    {"extern", plain},
    {"fill", plain},
    {"global", plain},
    {"goto", plain},
    {"idata", dataSection},
    {"idata_acs", dataSection},
    {"if", plain},
    {"ifdef", plain},
    {"ifndef", plain},
    {"incf", plain},
    {"incfsz", plain},
    {"include", plain},
    {"iorlw", plain},
    {"iorwf", plain},
    {"list", plain},
    {"local", local},
    {"macro", macro},
    {"messg", plain},
    {"movf", plain},
    {"movlw", plain},
    {"movwf", plain},
    {"noexpand", plain},
    {"nolist", plain},
    {"nop", plain},
    {"org", absolute},
    {"page", plain},
    {"pagesel", plain},
    {"pageselw", plain},
    {"processor", plain},
    {"radix", plain},
    {"res", reserve},
    {"retfie", plain},
    {"retlw", plain},
    {"return", plain},
    {"rlf", plain},
    {"rrf", plain},
    {"set", assign},
    {"space", plain},
    {"sublw", plain},
    {"subtitle", plain},
    {"subwf", plain},
    {"swapf", plain},
    {"title", plain},
    {"udata", dataSection},
    {"udata_acs", dataSection},
    {"udata_ovr", dataSection},
    {"udata_shr", dataSection},
    {"undefine", plain},
    {"variable", constant},
    {"while", plain},
    {"xorlw", plain},
    {"xorwf", plain},
};

static_assert(std::ranges::is_sorted(kWords, {}, &Row::word));

constexpr char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace

AssemblerWord FindAssemblerWord(std::string_view word) {
    std::array<char, kLongestWord> buffer;
    if (word.size() > buffer.size()) return other;
    std::ranges::transform(word, buffer.begin(), Lower);
    const std::string_view lower(buffer.data(), word.size());
    const Row *row = std::ranges::lower_bound(kWords, lower, {}, &Row::word);
    return row != std::end(kWords) && row->word == lower ? row->meaning : other;
}
