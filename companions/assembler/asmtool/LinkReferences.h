// What the instructions and data of an image refer to, as its objects tell.
//
// A linked image no longer says which symbol an instruction was written with; on chips with paged program memory or
// banked data memory the instruction alone doesn't tell it either. The objects' relocations do.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "coff/LinkedImage.h"

enum class Relocation : uint16_t {
    call = 1,
    jump = 2,
    bankSelect = 6,
    pageSelect = 7,
    indirectBankSelect = 9,
    moveToRegisterBank = 12,
    moveToBank = 13,
    relativeJump = 19,  // or relative call
    relativeBranch = 20,
    access = 22,
    pageSelectW = 23,
    pageSelectBits = 24,
    pageSelectLiteral = 34,
};

struct LinkReference {
    bool fromProgram = false;  // else from initialized data
    uint32_t from = 0;         // the word's address
    Relocation type{};
    LinkedPlace symbol;
    int offset = 0;  // from the symbol

    bool SelectsPage() const;
    bool SelectsBank() const;  // and touches nothing
};

// The references of all objects of the image that are found among `files` (native paths of objects and libraries), in
// the order of the link. The rest has none.
std::vector<LinkReference> ReadReferences(const CLinkedImage &image, const std::vector<std::string> &files);

// The objects in a library; none for a file that is no library or damaged from its begin on.
std::vector<CObjectFile> ReadLibrary(std::string_view bytes);
