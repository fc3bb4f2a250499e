#include "ListingSymbols.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <optional>
#include <set>
#include <unordered_map>

#include "SourceScan.h"
#include "platform/PathCalls.h"

namespace {

constexpr size_t kSourceColumn = 28, kValueBegin = 2, kValueSize = 8;  // of the assembler's listing
constexpr std::string_view kTableHead = "SYMBOL TABLE";

// Instructions and directives whose first operand is a place in data memory.
constexpr std::string_view kRegisterWords[] = {
    "addwf", "addwfc", "andwf",  "asrf",   "banksel", "bcf",    "bsf",    "btfsc", "btfss",  "btg",    "clrf",
    "comf",  "cpfseq", "cpfsgt", "cpfslt", "decf",    "decfsz", "dcfsnz", "incf",  "incfsz", "infsnz", "iorwf",
    "lslf",  "lsrf",   "movf",   "movff",  "movwf",   "mulwf",  "negf",   "rlcf",  "rlf",    "rlncf",  "rrcf",
    "rrf",   "rrncf",  "setf",   "subfwb", "subwf",   "subwfb", "swapf",  "tstf",  "tstfsz", "xorwf",
};

std::optional<uint32_t> HexNumber(std::string_view digits) {
    uint32_t number = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    if (failure != std::errc() || end != digits.data() + digits.size()) return {};
    return number;
}

bool NamesRegister(std::string_view word) {
    return std::any_of(std::begin(kRegisterWords), std::end(kRegisterWords),
                       [&](std::string_view each) { return EqualNoCase(each, word); });
}

// What one assembler's listing tells, line by line.
class CListingScan {
public:
    void Read(std::string_view line) {
        if (line.starts_with(kTableHead)) inTable_ = true;
        if (inTable_) {
            ReadValue(line);
        } else if (line.size() > kSourceColumn && line[kSourceColumn - 1] == ' ') {
            const bool hasValue = HexNumber(line.substr(kValueBegin, kValueSize)).has_value();
            ReadSource(line.substr(kSourceColumn), line.starts_with("  ") && hasValue);
        }
    }

    std::vector<ListedVariable> Variables() const {
        std::vector<ListedVariable> variables;
        const auto add = [&](const std::string &name) {
            if (const auto value = values_.find(name); value != values_.end()) variables.push_back(value->second);
        };
        for (const std::string &name : blockNames_) add(name);
        for (const std::string &name : equates_)
            if (used_.contains(name)) add(name);
        return variables;
    }

private:
    void ReadSource(std::string_view source, bool hasValue) {
        const std::vector<std::string_view> words = WordsOfLine(source);
        if (words.size() > 1 && EqualNoCase(words[1], "cblock")) {
            inBlock_ = true;
        } else if (words.size() > 1 && EqualNoCase(words[1], "endc")) {
            inBlock_ = false;
        } else if (inBlock_ && hasValue) {
            ReadBlock(source.substr(0, source.find(';')));
        } else if (hasValue && !words.empty() && !words[0].empty()) {
            equates_.emplace_back(words[0]);
        } else if (words.size() > 2 && NamesRegister(words[1])) {
            used_.emplace(words[2]);
            if (words.size() > 3 && EqualNoCase(words[1], "movff")) used_.emplace(words[3]);
        }
    }

    // "name, name:size"
    void ReadBlock(std::string_view list) {
        while (!list.empty()) {
            const std::string_view entry = list.substr(0, list.find(','));
            list.remove_prefix(std::min(entry.size() + 1, list.size()));
            for (const std::string_view word : WordsOfLine(entry)) {
                if (word.empty()) continue;
                blockNames_.emplace_back(word);
                break;
            }
        }
    }

    void ReadValue(std::string_view line) {
        const std::string_view name = line.substr(0, line.find(' '));
        if (name.empty() || name.size() == line.size()) return;
        const std::string_view rest = line.substr(std::min(line.find_first_not_of(' ', name.size()), line.size()));
        if (const auto value = HexNumber(rest)) values_[std::string(name)] = {std::string(name), *value};
    }

    bool inTable_ = false, inBlock_ = false;
    std::vector<std::string> blockNames_, equates_;
    std::set<std::string> used_;  // where an instruction has a register
    std::unordered_map<std::string, ListedVariable> values_;
};

}  // namespace

std::vector<ListedVariable> AbsoluteVariables(std::string_view assemblerListing) {
    CListingScan scan;
    while (!assemblerListing.empty()) scan.Read(TakeLine(assemblerListing));
    return scan.Variables();
}

std::string SymbolTable(const CLinkedImage &image, const std::vector<std::string> &assemblerListings) {
    std::string lines;
    std::set<std::string> known;
    const auto add = [&](const std::string &name, uint32_t address) {
        if (!known.insert(name).second) return;
        char value[16];
        std::snprintf(value, sizeof value, " %08X\n", address);
        lines += name + std::string(name.size() < 32 ? 32 - name.size() : 0, ' ') + value;
    };
    for (const LinkedPart &part : image.Data())
        for (const LinkedLabel &label : part.labels) add(label.name, label.address);
    for (const std::string &listing : assemblerListings)
        for (const ListedVariable &variable : AbsoluteVariables(listing)) add(variable.name, variable.address);
    if (lines.empty()) return {};
    return "\n" + std::string(kTableHead) + "\n  LABEL                           VALUE\n\n" + lines;
}
