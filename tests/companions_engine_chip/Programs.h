// Little programs, assembled where they are needed.
#pragma once

#include <memory>
#include <string>

#include "chip/SimChip.h"

// A scratch directory for what a test builds; gone with it.
class CBuildDirectory {
public:
    CBuildDirectory();
    ~CBuildDirectory();
    CBuildDirectory(const CBuildDirectory &) = delete;
    CBuildDirectory &operator=(const CBuildDirectory &) = delete;

    // The Intel hex file made of a source; empty, and a failure of the test, when it doesn't assemble.
    std::string AssembleFile(const std::string &source);
    std::string AssembleText(const std::string &text);

    std::string Path(const std::string &name) const { return directory_ + "/" + name; }

private:
    std::string directory_;
};

std::string BareName(const std::string &type);  // "PIC16F84": "16f84"

ChipProgram ReadHex(const std::string &file, const CSimChip &chip);

// Fails the test, and gives null, when it can't be made. Loaded, and behind its power-on reset.
std::unique_ptr<CSimChip> MakeChip(const std::string &type, const std::string &hexFile);

// A chip with a program of a few lines behind "list" and "include".
std::unique_ptr<CSimChip> MakeChipOf(const std::string &type, const std::string &lines);
