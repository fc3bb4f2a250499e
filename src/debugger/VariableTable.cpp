#include "debugger/VariableTable.h"

#include <algorithm>

#include "debugger/AsmVarGrammar.h"
#include "platform/FileText.h"

namespace {

// Cuts a listing into lines. A line ends at any control character but the tab.
class CListingLines {
public:
    explicit CListingLines(std::string_view text) : rest_(text) {}

    bool Next(std::string_view &line) {
        if (rest_.empty()) return false;
        const auto end = std::find_if(rest_.begin(), rest_.end(),
                                      [](char c) { return static_cast<unsigned char>(c) < 32 && c != '\t'; });
        line = rest_.substr(0, static_cast<size_t>(end - rest_.begin()));
        rest_.remove_prefix(line.size());
        if (rest_.starts_with("\r\n"))
            rest_.remove_prefix(2);
        else if (!rest_.empty())
            rest_.remove_prefix(1);
        return true;
    }

private:
    std::string_view rest_;
};

// Empty, indented, a comment, or begun by a letter that no name has.
bool IsPassedOver(std::string_view line) {
    return line.empty() || static_cast<signed char>(line.front()) <= 32 || line.front() == ';';
}

}  // namespace

void CVariableTable::AddNames(const std::vector<std::string> &names) {
    variables_.reserve(variables_.size() + names.size());
    for (const std::string &name : names) variables_.push_back({name});
}

void CVariableTable::ReadOrgBlock(const std::string &file, const OrgReader &reader) {
    if (const auto text = ReadWholeFile(file)) AddOrgBlock(*text, reader);
}

void CVariableTable::ReadSymbolTable(const std::string &file) {
    if (const auto text = ReadWholeFile(file)) AddSymbolTable(*text);
}

void CVariableTable::AddOrgBlock(std::string_view text, const OrgReader &reader) {
    CListingLines lines(text);
    std::string_view line;
    do {
        if (!lines.Next(line)) return;
    } while (IsPassedOver(line));
    COspreyVar variable;
    do {
        if (!reader(std::string(line), variable)) return;
        variables_.push_back(variable);
    } while (lines.Next(line));
}

void CVariableTable::AddSymbolTable(std::string_view text) {
    std::string_view name, line;
    uint16_t address = 0;
    const asm_var_name_grammar nameAtStart([&](std::string_view read) { name = read; });
    const asm_var_addr_grammar addressBehind(
        [&](unsigned digit) { address = static_cast<uint16_t>(address * 16 + digit); });
    for (CListingLines lines(text); lines.Next(line);) {
        if (IsPassedOver(line)) continue;
        const std::string_view rest = nameAtStart.Parse(line);
        address = 0;
        if (rest.empty() || !addressBehind.ParseWhole(rest)) continue;
        variables_.push_back({std::string(name), address, 1});
    }
}

const COspreyVar *CVariableTable::Find(std::string_view name) const {
    const auto found =
        std::find_if(variables_.begin(), variables_.end(), [&](const COspreyVar &each) { return each.name == name; });
    return found == variables_.end() ? nullptr : &*found;
}
