#include "support/Scratch.h"

namespace fs = std::filesystem;

void CScratch::CopyExample(const std::string &example) const {
    const fs::path from = fs::path(THORNWELL_TEST_SOURCE_DIR) / "examples" / example;
    fs::create_directories(Path() / example);
    for (const auto &entry : fs::directory_iterator(from))
        if (entry.is_regular_file()) fs::copy_file(entry.path(), Path() / example / entry.path().filename());
}
