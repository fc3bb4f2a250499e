#include "image/ProgramMemory.h"

#include <algorithm>

namespace {

constexpr MemoryLayout kLayouts[] = {
    {ProcessorFamily::unknown, 0x200000, UINT32_MAX}, {ProcessorFamily::baseline, 0xFFF, UINT32_MAX},
    {ProcessorFamily::midRange, 0x2000, 0x2100},      {ProcessorFamily::enhanced, 0x8000, 0xF000},
    {ProcessorFamily::pic18, 0x200000, 0xF00000},
};
constexpr uint32_t kLargestEeprom = 0x10000;
constexpr uint8_t kErased = 0xFF;

using Words = std::vector<ChipProgram::Word>;

void Tidy(Words &words) {
    const auto byAddress = [](const auto &a, const auto &b) { return a.address < b.address; };
    const auto same = [](const auto &a, const auto &b) { return a.address == b.address; };
    std::stable_sort(words.begin(), words.end(), byAddress);
    words.erase(std::unique(words.begin(), words.end(), same), words.end());
}

class CReader {
public:
    CReader(const MemoryLayout &layout, bool countsBytes) : layout_(layout), countsBytes_(countsBytes) {}

    void Read(const CObjectFile::Section &section) {
        for (size_t i = 0; i < section.bytes.size(); i += 2) {
            const uint64_t address = section.address + uint64_t{countsBytes_ ? i : i / 2};
            if (address > UINT32_MAX - 1) return;
            const auto low = static_cast<uint8_t>(section.bytes[i]);
            const bool hasHigh = i + 1 < section.bytes.size();
            Put(static_cast<uint32_t>(address), low, hasHigh ? static_cast<uint8_t>(section.bytes[i + 1]) : kErased,
                hasHigh);
        }
    }

    ChipProgram Take() {
        for (Words *words : {&program_.code, &program_.config, &program_.eeprom}) Tidy(*words);
        return std::move(program_);
    }

private:
    void Put(uint32_t address, uint8_t low, uint8_t high, bool hasHigh) {
        const auto word = static_cast<uint16_t>(low | high << 8);
        if (address < layout_.programEnd) {
            if (!countsBytes_ || address % 2 == 0) program_.code.push_back({address, word});
        } else if (address >= layout_.eepromBegin) {
            PutEeprom(address - layout_.eepromBegin, low);
            if (countsBytes_ && hasHigh) PutEeprom(address + 1 - layout_.eepromBegin, high);
        } else if (countsBytes_) {
            program_.config.push_back({address, low});
            if (hasHigh) program_.config.push_back({address + 1, high});
        } else {
            program_.config.push_back({address, word});
        }
    }

    void PutEeprom(uint32_t address, uint8_t value) {
        if (address < kLargestEeprom) program_.eeprom.push_back({address, value});
    }

    const MemoryLayout &layout_;
    bool countsBytes_;
    ChipProgram program_;
};

ProcessorFamily GuessFamily(const CObjectFile &file) {
    switch (file.BitsPerAddress()) {
        case 8:
            return ProcessorFamily::pic18;
        case 12:
            return ProcessorFamily::baseline;
        case 14: {
            // Only an enhanced chip has anything there.
            const uint32_t limit = kLayouts[static_cast<size_t>(ProcessorFamily::enhanced)].programEnd;
            const bool isEnhanced =
                std::any_of(file.Sections().begin(), file.Sections().end(),
                            [&](const auto &section) { return section.IsProgram() && section.address >= limit; });
            return isEnhanced ? ProcessorFamily::enhanced : ProcessorFamily::midRange;
        }
        default:
            return ProcessorFamily::unknown;
    }
}

}  // namespace

const MemoryLayout &LayoutOf(const CObjectFile &file, ProcessorFamily family) {
    if (family == ProcessorFamily::unknown) family = GuessFamily(file);
    return kLayouts[static_cast<size_t>(family)];
}

ChipProgram ReadProgram(const CObjectFile &file, const MemoryLayout &layout) {
    CReader reader(layout, file.BitsPerAddress() == 8);
    uint64_t room = file.Size();  // sections of a damaged file can claim the same bytes over and over
    for (const CObjectFile::Section &section : file.Sections()) {
        if (!section.IsProgram() || section.bytes.size() > room) continue;
        room -= section.bytes.size();
        reader.Read(section);
    }
    return reader.Take();
}
