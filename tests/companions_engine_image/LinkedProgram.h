// Programs of the real assembler and linker in a scratch folder: sources in it, the image in its folder "Debug".
#pragma once

#include <memory>
#include <string>

#include "image/Image.h"

struct ProgramSources {
    const char *chip;  // as the assembler takes it
    const char *main;
    const char *helper = nullptr;  // a second source, in the folder "parts"
    const char *options = "";      // of the assembler
};

// One for each family of chips, with EEPROM, configuration and initialised data.
extern const ProgramSources kMidRange, kEnhanced, kPic18;

class CLinkedProgram {
public:
    explicit CLinkedProgram(const ProgramSources &sources);
    ~CLinkedProgram();
    CLinkedProgram(const CLinkedProgram &) = delete;

    std::string Run(const std::string &command) const;  // there; its output
    std::string Native(const std::string &name) const { return folder_ + "/" + name; }
    std::string Windows(const std::string &name) const;
    std::string ImageName() const { return Windows("Debug/demo.cof"); }
    std::string ImageBytes() const;
    std::unique_ptr<CImage> Load() const;  // a failure of the test when it can't be loaded

private:
    std::string folder_;
};
