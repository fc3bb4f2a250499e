// Files that no linker has left like that: clear words, and nothing that contradicts itself.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>

#include "LinkedProgram.h"

TEST(DamagedImage, IsRefusedInWords) {
    const CLinkedProgram program(kPic18);
    std::ofstream(program.Native("empty.cof"));
    std::ofstream(program.Native("text.cof")) << "not an image at all, but longer than its header";
    std::ofstream(program.Native("large.cof")) << "\x40\x12";
    std::filesystem::resize_file(program.Native("large.cof"), 50u << 20);
    const struct {
        const char *file, *words;
    } cases[] = {{"missing.cof", "can't be read"},    {"Debug", "can't be read"},
                 {"empty.cof", "no image"},           {"text.cof", "no image"},
                 {"large.cof", "too large"},          {"Debug/demo.hex", "no image"},
                 {"Debug/main.o", "isn't linked yet"}};
    const auto begin = std::chrono::steady_clock::now();
    for (const auto &[file, words] : cases) {
        std::string error;
        EXPECT_FALSE(CImage::Load(program.Windows(file), error)) << file;
        EXPECT_NE(error.find(words), std::string::npos) << file << ": " << error;
        EXPECT_NE(error.find(program.Native(file)), std::string::npos) << error;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
}

TEST(DamagedImage, IsRefusedCutAtAnyLength) {
    for (const ProgramSources *sources : {&kMidRange, &kPic18}) {
        const CLinkedProgram program(*sources);
        const std::string whole = program.ImageBytes();
        ASSERT_GT(whole.size(), 1000u);
        for (size_t size = 0; size < whole.size(); ++size) {
            std::string error;
            ASSERT_FALSE(CImage::FromBytes(whole.substr(0, size), program.ImageName(), error)) << size;
            ASSERT_NE(error.find(size < 20 ? "no image" : "cut short"), std::string::npos) << size << ": " << error;
        }
    }
}

TEST(DamagedImage, WithOtherBytesStaysInOrder) {
    const CLinkedProgram program(kMidRange);
    const std::string whole = program.ImageBytes();
    std::mt19937 random(20);
    const auto below = [&](size_t end) { return std::uniform_int_distribution<size_t>(0, end - 1)(random); };
    int loaded = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string bytes = whole, error;
        for (size_t count = 1 + below(8); count > 0; --count) {
            // Half of them where the counts, addresses and sizes are.
            const size_t at = below(2) ? below(600) : below(bytes.size());
            bytes[at] = below(4) ? static_cast<char>(below(256)) : '\xFF';
        }
        const auto image = CImage::FromBytes(bytes, program.ImageName(), error);
        if (!image) {
            ASSERT_FALSE(error.empty());
            continue;
        }
        ++loaded;
        uint32_t end = 0;
        for (const ImageFunction &function : image->Functions()) {
            ASSERT_LE(end, function.begin);
            ASSERT_LT(function.begin, function.end);
            ASSERT_EQ(image->FunctionAt(function.begin), &function);
            end = function.end;
        }
        uint32_t next = 0;
        for (const ChipProgram::Word &word : image->Program().code) {
            ASSERT_GE(word.address, next);
            next = word.address + 1;
            const auto place = image->PlaceAt(word.address);
            ASSERT_TRUE(!place || place->line > 0);
            ASSERT_TRUE(place || !image->IsLineStart(word.address));
        }
    }
    EXPECT_GT(loaded, 300);
}
