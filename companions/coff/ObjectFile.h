// An object of the assembler, relocatable or linked: its sections, symbols and relocations, which source line a symbol
// is used or defined at, and where a section begins.
//
// The file is read once; what is cut short or no object at all reads as an object without symbols. Line numbers count
// from 1. File names are as the assembler was given them. Addresses of code count in the chip's units: bytes on chips
// with 8 bits to an address (PIC18), else words of two bytes.
#pragma once

#include <cstdint>
#include <memory>
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
        std::string_view bytes;  // what it holds, while the object lives; may be shorter than `size`
        bool IsCode() const { return (flags & 0x20) != 0; }
        bool IsData() const { return (flags & 0xC0) != 0; }
        bool IsProgram() const { return (flags & 0x120) != 0; }  // code, or data that the linker puts into the program
    };
    enum class Storage : uint8_t { external = 2, variable = 3, label = 6, file = 103, endOfFile = 107, section = 109 };
    struct Symbol {
        std::string name;
        uint32_t value = 0;
        int section = 0;  // from 1; 0 undefined, negative special
        Storage storage{};
        uint32_t length = 0;    // of a section's symbol: the bytes that this object has of it
        std::string fileName;   // of a file's symbol
        bool included = false;  // of a file's symbol: by the file before it
    };
    struct Line {
        int section;
        uint32_t address, file;  // file: the index of its symbol
        int line;
    };
    struct Use {
        int section;
        uint32_t address, symbol;  // address: bytes from the section's begin; symbol: its index
        int offset;                // from the symbol, in the symbol's units
        uint16_t type;
    };

    explicit CObjectFile(const std::string &path);  // Windows form
    static CObjectFile FromBytes(std::string bytes);

    size_t Size() const { return bytes_ ? bytes_->size() : 0; }  // of the file
    bool IsObject() const { return isObject_; }                  // of this kind at all
    bool IsWhole() const { return isWhole_; }                    // not cut short
    bool IsLinked() const { return isLinked_; }
    uint32_t ProcessorNumber() const { return processor_; }  // see Processors.h

    const std::vector<Section> &Sections() const { return sections_; }
    const Section *FindSection(std::string_view name) const;  // null when there is none
    const std::vector<Symbol> &Symbols() const {
        return symbols_;
    }  // by index, an empty entry for each auxiliary record
    const std::vector<Line> &Lines() const { return lines_; }
    const std::vector<Use> &Uses() const { return uses_; }
    int BitsPerAddress() const { return bitsPerAddress_; }  // of program memory: 8, 12, 14 or 16; 0 unknown
    std::string SourceName() const { return files_.empty() ? std::string() : files_.front().name; }

    std::optional<SourcePlace> FirstUse(std::string_view symbol) const;    // the first instruction that refers to it
    std::optional<SourcePlace> Definition(std::string_view symbol) const;  // a label before an instruction
    std::optional<SourcePlace> FirstLine(std::string_view section) const;  // the section's first instruction

private:
    struct File {
        uint32_t index;  // of its symbol
        std::string name;
    };

    CObjectFile() = default;
    void Read(std::string file);
    void ReadSections(std::string_view bytes, size_t begin, size_t count);
    void ReadSymbols(std::string_view bytes, size_t begin, size_t count);
    std::optional<SourcePlace> PlaceOf(int section, uint32_t address) const;

    std::shared_ptr<const std::string> bytes_;
    std::vector<Section> sections_;
    std::vector<Symbol> symbols_;
    std::vector<File> files_;
    std::vector<Line> lines_;
    std::vector<Use> uses_;
    bool isObject_ = false, isWhole_ = false, isLinked_ = false;
    uint32_t processor_ = 0;
    int bitsPerAddress_ = 0;
};
