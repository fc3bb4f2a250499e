#include "Programs.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

constexpr uint32_t kIds18 = 0x200000, kConfig18 = 0x300000, kEeprom18 = 0xf00000;
constexpr uint32_t kConfig12 = 0xfff, kConfig14 = 0x2000, kEeprom14 = 0x2100, kConfigEnhanced = 0x8000,
                   kEepromEnhanced = 0xf000;

void PutByte(ChipProgram &program, const CSimChip &chip, uint32_t address, uint8_t byte, uint8_t &lowByte) {
    if (chip.IsPic18() && address >= kEeprom18) return program.eeprom.push_back({address - kEeprom18, byte});
    if (chip.IsPic18() && address >= kIds18) return program.config.push_back({address, byte});
    if (address % 2 == 0) {
        lowByte = byte;
        return;
    }
    const uint16_t value = static_cast<uint16_t>(byte << 8 | lowByte);
    if (chip.IsPic18()) return program.code.push_back({address - 1, value});
    const uint32_t word = address / 2;
    if (word >= kEepromEnhanced) return program.eeprom.push_back({word - kEepromEnhanced, value});
    if (word >= kConfigEnhanced) return program.config.push_back({word, value});
    if (word >= kEeprom14) return program.eeprom.push_back({word - kEeprom14, value});
    const uint32_t config = chip.InstructionSet() == Core::baseline ? kConfig12 : kConfig14;
    (word >= config ? program.config : program.code).push_back({word, value});
}

}  // namespace

std::string BareName(const std::string &type) {
    std::string name = type.substr(3);
    for (char &c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return name;
}

CBuildDirectory::CBuildDirectory() {
    std::string form = (std::filesystem::temp_directory_path() / "chipXXXXXX").string();
    directory_ = mkdtemp(form.data());
}

CBuildDirectory::~CBuildDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

std::string CBuildDirectory::AssembleFile(const std::string &source) {
    const std::string hex = Path(std::filesystem::path(source).stem().string() + ".hex");
    const std::string command = "cd '" + directory_ + "' && gpasm -q -o '" + hex + "' '" + source + "' >messages";
    const int exitCode = std::system(command.c_str());
    EXPECT_EQ(exitCode, 0) << source;
    return exitCode == 0 ? hex : std::string();
}

std::string CBuildDirectory::AssembleText(const std::string &text) {
    std::ofstream(Path("text.asm")) << text;
    return AssembleFile(Path("text.asm"));
}

ChipProgram ReadHex(const std::string &file, const CSimChip &chip) {
    ChipProgram program;
    std::ifstream in(file);
    uint32_t base = 0;
    uint8_t lowByte = 0;
    for (std::string line; std::getline(in, line);) {
        if (line.size() < 11 || line[0] != ':') continue;
        auto byte = [&](size_t index) {
            return static_cast<uint8_t>(std::strtoul(line.substr(1 + 2 * index, 2).c_str(), nullptr, 16));
        };
        const uint32_t offset = byte(1) << 8 | byte(2);
        if (byte(3) == 4) base = (byte(4) << 8 | byte(5)) << 16;
        if (byte(3) != 0) continue;
        for (uint32_t i = 0; i < byte(0); ++i) PutByte(program, chip, base + offset + i, byte(4 + i), lowByte);
    }
    return program;
}

std::unique_ptr<CSimChip> MakeChip(const std::string &type, const std::string &hexFile) {
    std::string error;
    std::unique_ptr<CSimChip> chip = CSimChip::Create(type, error);
    EXPECT_TRUE(chip) << error;
    if (!chip) return nullptr;
    const bool loaded = chip->Load(ReadHex(hexFile, *chip), error);
    EXPECT_TRUE(loaded) << error;
    if (!loaded) return nullptr;
    chip->PowerOnReset();
    return chip;
}

std::unique_ptr<CSimChip> MakeChipOf(const std::string &type, const std::string &lines) {
    CBuildDirectory build;
    const std::string name = BareName(type);
    const std::string hex = build.AssembleText("  list p=" + name + "\n  errorlevel -302\n  include <p" + name +
                                               ".inc>\n" + lines + "\n  end\n");
    return hex.empty() ? nullptr : MakeChip(type, hex);
}
