#include "support/Scratch.h"

#include <stdlib.h>

#include <fstream>
#include <sstream>

#include "platform/NativePath.h"

namespace fs = std::filesystem;

CScratch::CScratch() {
    std::string name = (fs::temp_directory_path() / "thornwell-XXXXXX").string();
    path_ = fs::canonical(mkdtemp(name.data()));
}

CScratch::~CScratch() {
    std::error_code ignored;
    for (auto it = fs::recursive_directory_iterator(path_, ignored); it != fs::recursive_directory_iterator(); ++it)
        if (it->is_directory() && !it->is_symlink()) fs::permissions(it->path(), fs::perms::owner_all, ignored);
    fs::remove_all(path_, ignored);
}

std::string CScratch::Windows(const std::string &name) const { return FromNativePath(Native(name)); }

void CScratch::Write(const std::string &name, const std::string &text) const {
    fs::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << text;
}

std::string CScratch::Read(const std::string &name) const {
    std::ostringstream text;
    text << std::ifstream(path_ / name, std::ios::binary).rdbuf();
    return text.str();
}

void CScratch::CopyExample(const std::string &example) const {
    const fs::path from = fs::path(THORNWELL_TEST_SOURCE_DIR) / "examples" / example;
    fs::create_directories(path_ / example);
    for (const auto &entry : fs::directory_iterator(from))
        if (entry.is_regular_file()) fs::copy_file(entry.path(), path_ / example / entry.path().filename());
}
