// A program directory of a test's own.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

#include "support/Scratch.h"

// A program directory with everything of the real one but `missing`.
class CProgramDirectoryWithout {
public:
    CProgramDirectoryWithout(const CScratch &scratch, const std::string &missing)
        : before_(getenv("THORNWELL_PROGRAM_DIR")) {
        const std::filesystem::path directory = scratch.Path() / "bin";
        std::filesystem::create_directories(directory);
        for (const auto &entry : std::filesystem::directory_iterator(before_))
            if (entry.path().filename() != missing)
                std::filesystem::create_symlink(entry.path(), directory / entry.path().filename());
        setenv("THORNWELL_PROGRAM_DIR", directory.c_str(), 1);
    }
    ~CProgramDirectoryWithout() { setenv("THORNWELL_PROGRAM_DIR", before_.c_str(), 1); }

private:
    std::string before_;
};
