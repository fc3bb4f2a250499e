// Listings of assemblers and compilers, of which variables are read.
#include <cctype>
#include <cstdio>

#include "debugger/VariableTable.h"
#include "fuzz/FuzzTarget.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string_view text = AsText(data, size);
    CVariableTable table;
    table.AddSymbolTable(text);
    std::string lines;
    for (const COspreyVar &variable : table.Variables()) {
        Expect(variable.size == 1 && text.find(variable.name) != text.npos, "a variable stands in the text");
        Expect(!variable.name.empty() && !std::isdigit(static_cast<unsigned char>(variable.name.front())),
               "a variable has a name");
        char address[8];
        std::snprintf(address, sizeof address, " %x\n", variable.address);
        lines += variable.name + address;
    }
    CVariableTable again;
    again.AddSymbolTable(lines);
    Expect(again.Variables().size() == table.Variables().size(), "variables come back");

    size_t asked = 0;
    CVariableTable block;
    block.AddOrgBlock(text, [&](const std::string &line, COspreyVar &variable) {
        Expect(line.size() <= text.size() && text.find(line) != text.npos, "a line stands in the text");
        variable.name = line;
        return ++asked % 50 != 0;
    });
    Expect(block.Variables().size() == asked - asked / 50, "the block ends at the first line that is refused");
    return 0;
}
