#include "debugger/VariableTable.h"

#include <gtest/gtest.h>

#include "support/ScratchDirectory.h"

namespace {

std::string Text(const CVariableTable &table) {
    std::string text;
    for (const COspreyVar &variable : table.Variables())
        text += variable.name + "=" + std::to_string(variable.address) + "/" + std::to_string(variable.size) + " ";
    return text;
}

TEST(CVariableTable, ReadsSymbolLines) {
    const struct { const char *lines, *expected; } cases[] = {
        {"count 12AB\r\n_x2\t0f \nlast 1", "count=4779/1 _x2=15/1 last=1/1 "},
        {"count 12AB trailing\nname\nname \n9x 12\ncount 0x20\nname, 1\n", ""},
        {" indented 12\n;note 12\n\xc3\xa4 12\n\n\nplain 12\n", "plain=18/1 "},
        {"long 123456789\n", "long=26505/1 "},  // its lowest 16 bits
    };
    for (const auto &c : cases) {
        const CScratchDirectory scratch;
        scratch.Write("x.lst", c.lines);
        CVariableTable table;
        table.ReadSymbolTable(scratch.Windows("x.lst"));
        EXPECT_EQ(Text(table), c.expected) << c.lines;
    }
    CVariableTable table;
    table.ReadSymbolTable("\\no such file.lst");
    EXPECT_TRUE(table.Variables().empty());
}

TEST(CVariableTable, ReadsTheOrgBlockAtTheHead) {
    const auto reader = [](const std::string &line, COspreyVar &variable) {
        if (!line.starts_with("v")) return false;
        variable = {line, 32, 2};
        return true;
    };
    CVariableTable table;
    table.AddNames({"v1", "w"});
    table.AddOrgBlock("\r\n; made by a compiler\r\n org 0\r\nv1\r\nv2\r\n\r\nv3", reader);
    EXPECT_EQ(Text(table), "v1=65535/0 w=65535/0 v1=32/2 v2=32/2 ");  // an empty line inside ends it
    EXPECT_EQ(table.Find("v1")->size, 0);
    EXPECT_EQ(table.Find("V1"), nullptr);
    table.Clear();
    table.AddOrgBlock("other\nv1\n", reader);
    EXPECT_EQ(Text(table), "");
}

}  // namespace
