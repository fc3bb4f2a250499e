// What the linker put where: for each object the parts of program and data memory that it brought, with their labels.
//
// Program addresses count in the chip's units (bytes on PIC18, else words), data addresses in bytes. What contradicts
// itself in a damaged file is left out; nothing is looked at twice. Any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "coff/ObjectFile.h"

struct LinkedLabel {
    std::string name;
    uint32_t address = 0;
    bool global = false;
};

// What one object has of one section, or what the linker itself has put there.
struct LinkedPart {
    std::string section;
    int sectionIndex = 0;  // in the image
    int object = -1;       // -1: made by the linker
    bool isCode = true;    // else data
    uint32_t begin = 0, end = 0;
    std::vector<LinkedLabel> labels;  // by address

    bool Contains(uint32_t address) const { return address >= begin && address < end; }
};

struct LinkedPlace {
    bool inProgram = false;
    int part = -1;  // of the program's parts or the data's; -1: outside all
    uint32_t address = 0;
};

// Whether a section lies in the program memory of `programSize` units (0: unknown) and not behind it, where the
// configuration words, the identification and the EEPROM are.
bool IsInProgram(const CObjectFile::Section &section, uint32_t programSize);
uint32_t ProgramUnits(const CObjectFile &image, const CObjectFile::Section &section);  // its size

// For each "$" the assembler makes a label of its own, "_name_001f" in section "name".
bool IsAutoLabel(std::string_view label, std::string_view section);

class CLinkedImage {
public:
    struct Section {  // of one object
        LinkedPlace place;
        uint32_t size = 0;  // bytes
        int index = 0;      // in the image
    };
    struct Object {
        std::string source;  // as the assembler was given it
        std::unordered_map<std::string, Section> sections;
    };

    CLinkedImage(CObjectFile file, uint32_t programSize);

    const CObjectFile &File() const { return file_; }

    int Bits() const { return file_.BitsPerAddress(); }
    uint32_t BytesPerUnit() const { return Bits() == 8 ? 1 : 2; }
    const std::vector<Object> &Objects() const { return objects_; }      // in the order of the link
    const std::vector<LinkedPart> &Program() const { return program_; }  // by address, each section without a gap
    const std::vector<LinkedPart> &Data() const { return data_; }        // by section; overlaid parts share addresses
    uint64_t DataSize() const { return dataSize_; }                      // bytes, overlaid parts once
    uint64_t ProgramSize() const { return programUnits_; }               // units

    int PartAt(uint32_t programAddress) const;                                 // -1: none
    std::string_view BytesAt(const LinkedPart &part, uint32_t address) const;  // of the program, to the part's end
    const LinkedPlace *FindGlobal(const std::string &name) const;              // null: none of that name

    // The source lines of [begin, end), by address.
    std::pair<const CObjectFile::Line *, const CObjectFile::Line *> Lines(uint32_t begin, uint32_t end) const;
    std::string FileName(const CObjectFile::Line &line) const;

    // The section of the image that holds it, for what is counted by sections.
    const CObjectFile::Section &SectionOf(const LinkedPart &part) const { return file_.Sections()[part.sectionIndex]; }

private:
    struct FoundLabel {
        int object, section;
        LinkedLabel label;
    };

    std::vector<FoundLabel> ReadObjects();
    void AddPart(const CObjectFile::Symbol &symbol);
    uint32_t ProgramEndOf(const CObjectFile::Section &section) const;
    void CompleteProgram();
    void PlaceLabels(std::vector<FoundLabel> labels);
    int PartOf(int section, uint32_t address) const;  // as PartAt, of program or data
    void ReadLines();

    CObjectFile file_;
    uint32_t programSize_;
    std::vector<bool> inProgram_;  // by section of the image
    std::vector<Object> objects_;
    std::vector<LinkedPart> program_, data_;
    std::unordered_map<std::string, LinkedPlace> globals_;
    std::vector<CObjectFile::Line> lines_;  // of the program, by address
    uint64_t dataSize_ = 0, programUnits_ = 0;
};
