#include "ScratchFiles.h"

#include <cstdlib>
#include <fstream>

#include "platform/NativePath.h"

ScratchFiles::ScratchFiles() {
    std::string pattern = (std::filesystem::temp_directory_path() / "navigationXXXXXX").string();
    root_ = mkdtemp(pattern.data());
}

ScratchFiles::~ScratchFiles() {
    std::filesystem::remove_all(root_);
}

std::string ScratchFiles::Make(const std::string &name) const {
    std::filesystem::create_directories((root_ / name).parent_path());
    std::ofstream(root_ / name);
    return PathOf(name);
}

std::string ScratchFiles::PathOf(const std::string &name) const {
    return FromNativePath((root_ / name).string());
}
