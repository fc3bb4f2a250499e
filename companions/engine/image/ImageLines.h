// Which source line stands at which address of a linked program.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "coff/LinkedImage.h"
#include "image/Image.h"

class CImageLines {
public:
    // `folder`: the image's, in the Windows form; names in the image may be relative to the project's, which is that
    // or the one above it.
    CImageLines(const CLinkedImage &image, const std::string &folder);

    std::optional<ImagePlace> PlaceAt(uint32_t address) const;
    bool IsLineStart(uint32_t address) const;
    std::optional<CImage::LineStart> FindLine(const std::string &file, int line) const;
    std::vector<uint32_t> AddressesOf(const std::string &file, int line) const;

private:
    struct Record {
        uint32_t address;
        size_t file;
        int line;
    };
    struct Start {
        int line;
        uint32_t address;
        auto operator<=>(const Start &) const = default;
    };
    struct File {
        std::string name;           // full, Windows form
        std::vector<Start> starts;  // in order
    };

    void ReadPart(const CLinkedImage &image, const LinkedPart &part, const std::vector<size_t> &fileOfSymbol);
    size_t FileNumber(const std::string &name);
    const File *FindFile(const std::string &name) const;
    size_t WordOf(uint32_t address) const { return address / addressesPerWord_; }

    uint32_t addressesPerWord_;
    std::vector<File> files_;
    std::unordered_map<std::string, std::vector<size_t>> byName_, byBareName_;  // of files, in lower case
    std::vector<Record> records_;
    // By word of the program.
    std::vector<int32_t> recordAt_;  // -1: none
    std::vector<bool> isStart_;
};
