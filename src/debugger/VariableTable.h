// The assembler-level variables of the image, for names that the engine itself doesn't know.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// One variable.
struct COspreyVar {
    static constexpr uint16_t kNoAddress = 65535;
    std::string name;               // as the listing or the browser index spells it
    uint16_t address = kNoAddress;  // first byte in data memory
    uint8_t size = 0;               // bytes, the least significant at `address`
};

// Main thread.
class CVariableTable {
public:
    // Reads a line that declares a variable, as the engine's reader does: false for any other line.
    using OrgReader = std::function<bool(const std::string &line, COspreyVar &variable)>;

    void Clear() { variables_.clear(); }
    void AddNames(const std::vector<std::string> &names);  // without address and size

    // Adds the block of declarations at the head of a compiler's assembler file: from the first line that isn't empty,
    // indented or a comment up to the first that `reader` refuses. Nothing from a file that can't be read.
    void ReadOrgBlock(const std::string &file, const OrgReader &reader);
    // Adds the lines "name hexaddress" of an assembler's listing, as variables of one byte.
    void ReadSymbolTable(const std::string &file);

    // The same for the text of such a file.
    void AddOrgBlock(std::string_view text, const OrgReader &reader);
    void AddSymbolTable(std::string_view text);

    const COspreyVar *Find(std::string_view name) const;  // the first of that exact name; null without one
    const std::vector<COspreyVar> &Variables() const { return variables_; }  // in the order of reading

private:
    std::vector<COspreyVar> variables_;
};
