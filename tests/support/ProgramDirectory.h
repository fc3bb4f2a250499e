// A program directory of a test's own.
#pragma once

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "support/Scratch.h"

// A program directory of links to the files of the real one, without some of them, for the life of the object. The
// program that is started meanwhile lives in it.
class OwnProgramDirectory {
public:
    explicit OwnProgramDirectory(const CScratch &scratch, const std::vector<std::string> &missing = {})
        : real_(getenv("THORNWELL_PROGRAM_DIR")), path_(scratch.Path() / "program") {
        std::filesystem::create_directories(path_);
        for (const auto &entry : std::filesystem::directory_iterator(real_))
            if (std::ranges::find(missing, entry.path().filename().string()) == missing.end())
                std::filesystem::create_symlink(entry.path(), path_ / entry.path().filename());
        setenv("THORNWELL_PROGRAM_DIR", path_.c_str(), 1);
    }
    ~OwnProgramDirectory() { setenv("THORNWELL_PROGRAM_DIR", real_.c_str(), 1); }
    OwnProgramDirectory(const OwnProgramDirectory &) = delete;

    // Puts another file in under the name that it has.
    void Add(const std::filesystem::path &file) const {
        std::filesystem::create_symlink(file, path_ / file.filename());
    }
    const std::filesystem::path &Path() const { return path_; }

private:
    const std::string real_;
    const std::filesystem::path path_;
};
