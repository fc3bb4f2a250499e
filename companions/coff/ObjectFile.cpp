#include "coff/ObjectFile.h"

#include <algorithm>

#include "platform/FileText.h"

namespace {

constexpr uint16_t kMagic = 0x1240;
constexpr size_t kFileHeaderSize = 20, kSectionSize = 40, kSymbolSize = 20, kRelocationSize = 12, kLineSize = 16;
constexpr uint16_t kLinkedFlag = 2;
constexpr size_t kOptionalHeaderSize = 18, kProcessorOffset = 6, kBitsPerAddressOffset = 10;
constexpr size_t kLongestName = 1024;  // a file can claim that all its names are one long text without end

// Little-endian numbers of a file; what lies behind its end reads as 0.
uint32_t Number(std::string_view bytes, size_t offset, size_t size) {
    uint32_t value = 0;
    for (size_t i = 0; i < size && offset + i < bytes.size(); ++i)
        value |= static_cast<uint32_t>(static_cast<uint8_t>(bytes[offset + i])) << (8 * i);
    return value;
}
uint16_t Short(std::string_view bytes, size_t offset) {
    return static_cast<uint16_t>(Number(bytes, offset, 2));
}
uint32_t Long(std::string_view bytes, size_t offset) {
    return Number(bytes, offset, 4);
}

std::string TextAt(std::string_view bytes, size_t offset, size_t limit = kLongestName) {
    if (offset >= bytes.size()) return {};
    std::string_view text = bytes.substr(offset, limit);
    return std::string(text.substr(0, text.find('\0')));
}

// How many records of a table are really there.
size_t Fitting(std::string_view bytes, size_t begin, size_t count, size_t size) {
    return begin >= bytes.size() ? 0 : std::min(count, (bytes.size() - begin) / size);
}

// The same for a table of one section, `read` being what the sections before it had: no two of them share a record.
size_t FittingBeside(size_t read, std::string_view bytes, size_t begin, size_t count, size_t size) {
    return std::min(Fitting(bytes, begin, count, size), bytes.size() / size - std::min(read, bytes.size() / size));
}

}  // namespace

CObjectFile::CObjectFile(const std::string &path) {
    if (std::optional<std::string> file = ReadWholeFile(path)) Read(std::move(*file));
}

CObjectFile CObjectFile::FromBytes(std::string bytes) {
    CObjectFile file;
    file.Read(std::move(bytes));
    return file;
}

void CObjectFile::Read(std::string file) {
    bytes_ = std::make_shared<const std::string>(std::move(file));
    const std::string_view bytes = *bytes_;
    if (bytes.size() < kFileHeaderSize || Short(bytes, 0) != kMagic) return;
    isObject_ = true;
    isLinked_ = (Short(bytes, 18) & kLinkedFlag) != 0;
    if (Short(bytes, 16) >= kOptionalHeaderSize) {
        processor_ = Long(bytes, kFileHeaderSize + kProcessorOffset);
        bitsPerAddress_ = static_cast<int>(Long(bytes, kFileHeaderSize + kBitsPerAddressOffset) & 0xFF);
    }
    ReadSymbols(bytes, Long(bytes, 8), Long(bytes, 12));
    ReadSections(bytes, kFileHeaderSize + Short(bytes, 16), Short(bytes, 2));
}

void CObjectFile::ReadSymbols(std::string_view bytes, size_t begin, size_t count) {
    const size_t strings = begin + count * kSymbolSize;
    const auto nameAt = [&](size_t offset) {
        return Long(bytes, offset) == 0 ? TextAt(bytes, strings + Long(bytes, offset + 4)) : TextAt(bytes, offset, 8);
    };
    // Last in a file, behind its symbols, stand their long names, with their size before them.
    isWhole_ = strings + 4 <= bytes.size() && Long(bytes, strings) <= bytes.size() - strings;
    count = Fitting(bytes, begin, count, kSymbolSize);
    symbols_.resize(count);
    for (size_t i = 0; i < count; ++i) {
        const size_t record = begin + i * kSymbolSize;
        Symbol &symbol = symbols_[i];
        symbol.name = nameAt(record);
        symbol.value = Long(bytes, record + 8);
        symbol.section = static_cast<int16_t>(Short(bytes, record + 12));
        symbol.storage = static_cast<Storage>(Number(bytes, record + 18, 1));
        const size_t auxiliaries = Number(bytes, record + 19, 1);
        if (auxiliaries > 0 && symbol.storage == Storage::section) symbol.length = Long(bytes, record + kSymbolSize);
        if (auxiliaries > 0 && symbol.storage == Storage::file) {
            symbol.fileName = TextAt(bytes, strings + Long(bytes, record + kSymbolSize));
            symbol.included = Long(bytes, record + kSymbolSize + 4) != 0;
            files_.push_back({static_cast<uint32_t>(i), symbol.fileName});
        }
        i += auxiliaries;
    }
}

void CObjectFile::ReadSections(std::string_view bytes, size_t begin, size_t count) {
    const size_t strings = Long(bytes, 8) + size_t{Long(bytes, 12)} * kSymbolSize;
    count = Fitting(bytes, begin, count, kSectionSize);
    for (size_t i = 0; i < count; ++i) {
        const size_t record = begin + i * kSectionSize;
        const int number = static_cast<int>(i) + 1;
        const std::string name =
            Long(bytes, record) == 0 ? TextAt(bytes, strings + Long(bytes, record + 4)) : TextAt(bytes, record, 8);
        Section section{name, Long(bytes, record + 8), Long(bytes, record + 16), Long(bytes, record + 36), {}};
        if (const size_t raw = Long(bytes, record + 20); raw != 0 && raw < bytes.size() && section.IsProgram())
            section.bytes = bytes.substr(raw, section.size);
        sections_.push_back(std::move(section));

        const size_t uses = Long(bytes, record + 24), lines = Long(bytes, record + 28);
        const size_t useCount = FittingBeside(uses_.size(), bytes, uses, Short(bytes, record + 32), kRelocationSize);
        for (size_t k = 0; k < useCount; ++k) {
            const size_t use = uses + k * kRelocationSize;
            uses_.push_back({number, Long(bytes, use), Long(bytes, use + 4),
                             static_cast<int16_t>(Short(bytes, use + 8)), Short(bytes, use + 10)});
        }
        const size_t lineCount = FittingBeside(lines_.size(), bytes, lines, Short(bytes, record + 34), kLineSize);
        for (size_t k = 0; k < lineCount; ++k) {
            const size_t line = lines + k * kLineSize;
            lines_.push_back({number, Long(bytes, line + 6), Long(bytes, line), Short(bytes, line + 4)});
        }
    }
}

const CObjectFile::Section *CObjectFile::FindSection(std::string_view name) const {
    const auto found =
        std::find_if(sections_.begin(), sections_.end(), [&](const Section &s) { return s.name == name; });
    return found == sections_.end() ? nullptr : &*found;
}

std::optional<SourcePlace> CObjectFile::FirstUse(std::string_view symbol) const {
    const Use *first = nullptr;
    std::optional<SourcePlace> place;
    for (const Use &use : uses_) {
        if (use.symbol >= symbols_.size() || symbols_[use.symbol].name != symbol) continue;
        if (first && (use.section > first->section || use.address >= first->address)) continue;
        const std::optional<SourcePlace> candidate = PlaceOf(use.section, use.address);
        if (!candidate) continue;
        first = &use;
        place = candidate;
    }
    return place;
}

std::optional<SourcePlace> CObjectFile::Definition(std::string_view symbol) const {
    for (const Symbol &candidate : symbols_)
        if (candidate.section > 0 && candidate.name == symbol) return PlaceOf(candidate.section, candidate.value);
    return std::nullopt;
}

std::optional<SourcePlace> CObjectFile::FirstLine(std::string_view section) const {
    for (size_t i = 0; i < sections_.size(); ++i)
        if (sections_[i].name == section) return PlaceOf(static_cast<int>(i) + 1, sections_[i].address);
    return std::nullopt;
}

// The line of the last instruction that begins at or before the address.
std::optional<SourcePlace> CObjectFile::PlaceOf(int section, uint32_t address) const {
    const Line *best = nullptr;
    for (const Line &line : lines_)
        if (line.section == section && line.address <= address && (!best || line.address > best->address)) best = &line;
    if (!best) return std::nullopt;
    for (const File &file : files_)
        if (file.index == best->file) return SourcePlace{file.name, best->line};
    return std::nullopt;
}
