// Gives the files of a corpus to a fuzz target, whole and cut short: fuzz_NAME DIRECTORY.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

#include "fuzz/FuzzTarget.h"

namespace {

constexpr size_t kCuts = 4000;  // at most, of one file

// A buffer of exactly that size on the heap, so that a read behind the end is seen by the tools that look for it.
void Try(const std::vector<uint8_t> &bytes, size_t size) {
    const std::vector<uint8_t> text(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    LLVMFuzzerTestOneInput(text.data(), text.size());
}

void Replay(const std::filesystem::path &file) {
    std::ifstream stream(file, std::ios::binary);
    const std::vector<uint8_t> bytes{std::istreambuf_iterator<char>(stream), {}};
    std::cout << file.filename().string() << ": " << bytes.size() << " bytes" << std::endl;
    const size_t step = bytes.size() / kCuts + 1;
    for (size_t size = 0; size < bytes.size(); size += step) Try(bytes, size);
    Try(bytes, bytes.size());
}

}  // namespace

int main(int argc, char **argv) {
    std::error_code failure;
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::directory_iterator(argc > 1 ? argv[1] : "", failure)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    for (const auto &file : files) Replay(file);
    if (files.empty()) std::cerr << "There is no corpus to replay.\n";
    return files.empty() ? EXIT_FAILURE : EXIT_SUCCESS;
}
