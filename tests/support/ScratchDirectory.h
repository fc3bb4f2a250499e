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
        path_ = std::filesystem::canonical(mkdtemp(pattern.data()));
    }
    ~CScratchDirectory() {
        namespace fs = std::filesystem;
        std::error_code ignored;  // a test may have taken its directories' permissions away
        for (auto it = fs::recursive_directory_iterator(path_, ignored); it != fs::recursive_directory_iterator(); ++it)
            if (!it->is_symlink(ignored) && it->is_directory(ignored))
                fs::permissions(it->path(), fs::perms::owner_all, ignored);
        fs::remove_all(path_, ignored);
    }
    CScratchDirectory(const CScratchDirectory &) = delete;
    CScratchDirectory &operator=(const CScratchDirectory &) = delete;

    const std::filesystem::path &Path() const { return path_; }
    std::string Native(const std::string &name = "") const {
        return name.empty() ? path_.string() : (path_ / name).string();
    }
    std::string Windows(const std::string &name = "") const { return FromNativePath(Native(name)); }

    // Makes directories as needed. Returns the native path.
    std::string Write(const std::string &name, const std::string &bytes) const {
        std::filesystem::create_directories(std::filesystem::path(Native(name)).parent_path());
        std::ofstream(Native(name), std::ios::binary) << bytes;
        return Native(name);
    }
    std::string Read(const std::string &name) const {  // empty when missing
        std::ifstream file(Native(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool Exists(const std::string &name) const { return std::filesystem::exists(path_ / name); }

private:
    std::filesystem::path path_;
};
