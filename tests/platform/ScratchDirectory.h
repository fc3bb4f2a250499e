// A directory of its own for one test, removed with all that is in it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/NativePath.h"

class CScratchDirectory {
public:
    CScratchDirectory() {
        std::string pattern = (std::filesystem::temp_directory_path() / "thornwell-XXXXXX").string();
        path_ = std::filesystem::canonical(mkdtemp(pattern.data())).string();
    }
    ~CScratchDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    CScratchDirectory(const CScratchDirectory &) = delete;
    CScratchDirectory &operator=(const CScratchDirectory &) = delete;

    std::string Native(const std::string &name = "") const { return name.empty() ? path_ : path_ + "/" + name; }
    std::string Windows(const std::string &name = "") const { return FromNativePath(Native(name)); }

    void Write(const std::string &name, const std::string &bytes) const {
        std::filesystem::create_directories(std::filesystem::path(Native(name)).parent_path());
        std::ofstream(Native(name), std::ios::binary) << bytes;
    }
    std::string Read(const std::string &name) const {
        std::ifstream file(Native(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::string path_;
};
