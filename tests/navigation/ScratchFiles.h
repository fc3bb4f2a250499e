// A directory of its own for a test, gone with the object.
#pragma once

#include <filesystem>
#include <string>

class ScratchFiles {
 public:
    ScratchFiles();
    ~ScratchFiles();

    std::string Make(const std::string &name) const;    // an empty file; its path in the Windows form
    std::string PathOf(const std::string &name) const;  // in the Windows form
    std::filesystem::path Native(const std::string &name) const { return root_ / name; }

 private:
    std::filesystem::path root_;
};
