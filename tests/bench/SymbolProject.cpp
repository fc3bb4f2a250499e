#include "bench/SymbolProject.h"

#include <filesystem>

namespace {

// How often each stands in a source: `@` is the source's number, `%` the symbol's. Together kSymbolsPerFile symbols
// that no other source has.
constexpr struct {
    const char *text;
    int count, symbols;
} kParts[] = {
    {"#define LIMIT_@_% (% + 1)\n", 50, 1},
    {"int read_@_%(int channel, char *text);\n", 60, 0},  // a prototype
    {"static unsigned char state_@_%;\n", 40, 1},
    {"struct Message_@_% { int kind; char *text; };\n", 15, 1},
    {"enum Mode_@_% { slow_@_% };\n", 10, 2},
    {"typedef unsigned short Word_@_%;\n", 15, 1},
    {"\n// Reads the channel and gives what is left of it.\nint read_@_%(int channel, char *text) {\n"
     "    int left = channel * LIMIT_@_1;\n    while (left > 0 && text[left]) --left;\n    return left;\n}\n",
     60, 1},
};

std::string SourceText(int index) {
    const std::string source = std::to_string(index);
    std::string text;
    for (const auto &part : kParts) {
        for (int i = 0; i < part.count; ++i) {
            for (const char *c = part.text; *c; ++c) {
                if (*c == '@')
                    text += source;
                else if (*c == '%')
                    text += std::to_string(i);
                else
                    text += *c;
            }
        }
    }
    return text;
}

}  // namespace

std::string SymbolProject::Source(int index) {
    return "sources/unit" + std::to_string(index) + ".c";
}

SymbolProject MakeSymbolProject(const CScratch &scratch) {
    std::string project =
        "[Settings]\r\nActive Compiler=Assembler\r\nActive Config=Debug\r\nTarget=PIC16F628A\r\n[Files]\r\nCount=" +
        std::to_string(SymbolProject::kFiles) + "\r\n";
    std::string list;
    for (int i = 0; i < SymbolProject::kFiles; ++i) {
        const std::string name = SymbolProject::Source(i);
        scratch.Write("symbols/" + name, SourceText(i));
        project += "File" + std::to_string(i) + "=sources\\" + name.substr(name.find('/') + 1) + "\r\n";
        list += name + "\n";
    }
    scratch.Write("symbols/list", list);
    std::filesystem::create_directory(scratch.Native("symbols/Debug"));
    return {scratch.Native("symbols"), scratch.Write("symbols/symbols.__c", project)};
}
