// A relocatable object of the assembler: which source line a symbol is used or defined at, and where a section begins.
//
// The file is read once; what is cut short or no object at all reads as an object without symbols. Line numbers count
// from 1. File names are as the assembler was given them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct SourcePlace {
    std::string file;
    int line = 0;
};

class CObjectFile {
public:
    struct Section {
        std::string name;
        uint32_t address = 0;
        uint32_t size = 0;  // bytes, in program memory as in data memory
        uint32_t flags = 0;
        bool IsCode() const { return (flags & 0x20) != 0; }
        bool IsData() const { return (flags & 0xC0) != 0; }
    };

    explicit CObjectFile(const std::string &path);  // Windows form

    const std::vector<Section> &Sections() const { return sections_; }
    const Section *FindSection(std::string_view name) const;  // null when there is none
    std::string SourceName() const { return files_.empty() ? std::string() : files_.front().name; }

    std::optional<SourcePlace> FirstUse(std::string_view symbol) const;    // the first instruction that refers to it
    std::optional<SourcePlace> Definition(std::string_view symbol) const;  // a label before an instruction
    std::optional<SourcePlace> FirstLine(std::string_view section) const;  // the section's first instruction

private:
    struct Symbol {
        std::string name;
        uint32_t value = 0;
        int section = 0;  // from 1; 0 undefined, negative special
    };
    struct File {
        uint32_t index;  // of its symbol
        std::string name;
    };
    struct Line {
        int section;
        uint32_t address, file;
        int line;
    };
    struct Use {
        int section;
        uint32_t address, symbol;
    };

    void ReadSections(std::string_view bytes, size_t begin, size_t count);
    void ReadSymbols(std::string_view bytes, size_t begin, size_t count);
    std::optional<SourcePlace> PlaceOf(int section, uint32_t address) const;

    std::vector<Section> sections_;
    std::vector<Symbol> symbols_;  // by index, an empty entry for each auxiliary record
    std::vector<File> files_;
    std::vector<Line> lines_;
    std::vector<Use> uses_;
};
