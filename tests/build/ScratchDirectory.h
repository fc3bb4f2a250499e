// A directory of one test's own, removed with the object.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

class ScratchDirectory {
public:
    ScratchDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "thornwell-build-XXXXXX").string();
        path_ = mkdtemp(name.data());
    }
    ~ScratchDirectory() { std::filesystem::remove_all(path_); }

    std::string Path(const std::string &name = {}) const { return name.empty() ? path_ : path_ + "/" + name; }

    std::string Write(const std::string &name, const std::string &text) const {
        std::ofstream(Path(name)) << text;
        return Path(name);
    }

private:
    std::string path_;
};
