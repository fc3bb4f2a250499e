#include "coff/LinkedImage.h"

#include <algorithm>

namespace {

using Storage = CObjectFile::Storage;

constexpr size_t kAutoLabelDigits = 4;

uint32_t UnitsOf(uint32_t bytes, uint32_t bytesPerUnit) {
    return bytes / bytesPerUnit + (bytes % bytesPerUnit ? 1 : 0);
}

uint32_t EndOf(uint32_t begin, uint32_t size) {
    return size > UINT32_MAX - begin ? UINT32_MAX : begin + size;
}

bool ByAddress(const LinkedPart &a, const LinkedPart &b) {
    return a.begin < b.begin;
}

}  // namespace

bool IsAutoLabel(std::string_view label, std::string_view section) {
    if (!label.starts_with('_') || !label.substr(1).starts_with(section)) return false;
    label.remove_prefix(1 + section.size());
    if (!label.starts_with('_') || label.size() < 1 + kAutoLabelDigits) return false;
    return label.find_first_not_of("0123456789abcdef", 1) == std::string_view::npos;
}

uint32_t ProgramUnits(const CObjectFile &image, const CObjectFile::Section &section) {
    return UnitsOf(section.size, image.BitsPerAddress() == 8 ? 1 : 2);
}

bool IsInProgram(const CObjectFile::Section &section, uint32_t programSize) {
    return section.IsProgram() && (programSize == 0 || section.address < programSize);
}

CLinkedImage::CLinkedImage(CObjectFile file, uint32_t programSize) : file_(std::move(file)), programSize_(programSize) {
    for (const CObjectFile::Section &section : file_.Sections()) {
        inProgram_.push_back(IsInProgram(section, programSize));
        if (section.IsData()) dataSize_ += section.size;
    }
    std::vector<FoundLabel> labels = ReadObjects();
    CompleteProgram();
    PlaceLabels(std::move(labels));
    ReadLines();
}

// The symbols of an object stand between its source's file symbol and the end that belongs to it; included files nest.
// Where a compiler names the files there are no ends.
std::vector<CLinkedImage::FoundLabel> CLinkedImage::ReadObjects() {
    std::vector<FoundLabel> labels;
    int depth = 0;
    for (const CObjectFile::Symbol &symbol : file_.Symbols()) {
        if (symbol.storage == Storage::file) {
            if (!symbol.included) depth = 0;
            if (depth++ == 0) objects_.push_back({symbol.fileName, {}});
        } else if (symbol.storage == Storage::endOfFile) {
            depth = std::max(0, depth - 1);
        } else if (symbol.section > 0 && static_cast<size_t>(symbol.section) <= file_.Sections().size()) {
            const int object = depth > 0 ? static_cast<int>(objects_.size()) - 1 : -1;
            if (symbol.storage != Storage::section) {
                const bool global = symbol.storage == Storage::external;
                labels.push_back({object, symbol.section - 1, {symbol.name, symbol.value, global}});
            } else if (object >= 0) {
                AddPart(symbol);
            }
        }
    }
    std::stable_sort(data_.begin(), data_.end(), [](const LinkedPart &a, const LinkedPart &b) {
        return std::pair(a.sectionIndex, a.begin) < std::pair(b.sectionIndex, b.begin);
    });
    return labels;
}

uint32_t CLinkedImage::ProgramEndOf(const CObjectFile::Section &section) const {
    const uint32_t end = EndOf(section.address, ProgramUnits(file_, section));
    return programSize_ == 0 ? end : std::min(end, programSize_);
}

void CLinkedImage::AddPart(const CObjectFile::Symbol &symbol) {
    const CObjectFile::Section &section = file_.Sections()[static_cast<size_t>(symbol.section) - 1];
    const bool inProgram = inProgram_[static_cast<size_t>(symbol.section) - 1];
    const uint32_t bytesPerUnit = section.IsData() ? 1 : BytesPerUnit();
    const uint32_t end =
        inProgram ? ProgramEndOf(section) : EndOf(section.address, UnitsOf(section.size, bytesPerUnit));
    LinkedPart part;
    part.section = symbol.name;
    part.sectionIndex = symbol.section - 1;
    part.object = static_cast<int>(objects_.size()) - 1;
    part.isCode = section.IsCode();
    part.begin = std::clamp(symbol.value, section.address, end);
    part.end = std::min(end, EndOf(part.begin, UnitsOf(symbol.length, bytesPerUnit)));
    objects_.back().sections.insert({symbol.name, {{inProgram, -1, symbol.value}, symbol.length, part.sectionIndex}});
    if (part.begin == part.end) return;
    if (inProgram) program_.push_back(part);
    if (section.IsData()) data_.push_back(part);
}

// Gives the bytes between an object's part and the next to the first of them, and what no object has to the linker.
void CLinkedImage::CompleteProgram() {
    std::vector<std::vector<LinkedPart>> bySection(file_.Sections().size());
    for (LinkedPart &part : program_) bySection[static_cast<size_t>(part.sectionIndex)].push_back(std::move(part));
    program_.clear();
    for (size_t i = 0; i < bySection.size(); ++i) {
        if (!inProgram_[i]) continue;
        const CObjectFile::Section &section = file_.Sections()[i];
        const uint32_t end = ProgramEndOf(section);
        std::vector<LinkedPart> &parts = bySection[i];
        std::stable_sort(parts.begin(), parts.end(), ByAddress);
        if (section.address < end && (parts.empty() || parts.front().begin > section.address)) {
            LinkedPart made;
            made.section = section.name;
            made.sectionIndex = static_cast<int>(i);
            made.isCode = false;
            made.begin = section.address;
            made.end = end;
            parts.insert(parts.begin(), made);
        }
        for (size_t k = 0; k < parts.size(); ++k) parts[k].end = k + 1 < parts.size() ? parts[k + 1].begin : end;
        for (LinkedPart &part : parts) program_.push_back(std::move(part));
    }
    std::stable_sort(program_.begin(), program_.end(), ByAddress);
    uint32_t covered = 0;
    for (LinkedPart &part : program_) {
        part.begin = std::max(part.begin, covered);
        part.end = std::max(part.begin, part.end);
        covered = part.end;
        programUnits_ += part.end - part.begin;
    }
    std::erase_if(program_, [](const LinkedPart &part) { return part.begin == part.end; });
}

void CLinkedImage::PlaceLabels(std::vector<FoundLabel> labels) {
    const auto key = [](int object, int section) {
        return static_cast<uint64_t>(static_cast<uint32_t>(object)) << 32 | static_cast<uint32_t>(section);
    };
    std::unordered_map<uint64_t, int> parts[2];  // data, program
    for (size_t i = 0; i < data_.size(); ++i)
        parts[0].insert({key(data_[i].object, data_[i].sectionIndex), static_cast<int>(i)});
    for (size_t i = 0; i < program_.size(); ++i)
        parts[1].insert({key(program_[i].object, program_[i].sectionIndex), static_cast<int>(i)});
    const auto partOf = [&](int object, int section) {
        const auto &known = parts[inProgram_[static_cast<size_t>(section)]];
        const auto found = known.find(key(object, section));
        return found == known.end() ? -1 : found->second;
    };

    for (size_t i = 0; i < objects_.size(); ++i)
        for (auto &[name, section] : objects_[i].sections)
            section.place.part = partOf(static_cast<int>(i), section.index);
    for (FoundLabel &found : labels) {
        const bool inProgram = inProgram_[static_cast<size_t>(found.section)];
        LinkedLabel &label = found.label;
        int part = partOf(found.object, found.section);
        if (part < 0) part = PartOf(found.section, label.address);
        if (label.name.empty()) continue;
        if (label.global) globals_.insert({label.name, {inProgram, part, label.address}});
        if (part < 0) continue;
        LinkedPart &holder = (inProgram ? program_ : data_)[static_cast<size_t>(part)];
        if (holder.Contains(label.address) && (label.global || !IsAutoLabel(label.name, holder.section)))
            holder.labels.push_back(std::move(label));
    }
    for (std::vector<LinkedPart> *memory : {&program_, &data_})
        for (LinkedPart &part : *memory)
            std::stable_sort(part.labels.begin(), part.labels.end(),
                             [](const LinkedLabel &a, const LinkedLabel &b) { return a.address < b.address; });
}

void CLinkedImage::ReadLines() {
    for (const CObjectFile::Line &line : file_.Lines())
        if (inProgram_[static_cast<size_t>(line.section) - 1]) lines_.push_back(line);
    std::stable_sort(lines_.begin(), lines_.end(), [](const auto &a, const auto &b) { return a.address < b.address; });
}

// For a label whose object isn't told.
int CLinkedImage::PartOf(int section, uint32_t address) const {
    if (inProgram_[static_cast<size_t>(section)]) {
        const int part = PartAt(address);
        return part >= 0 && program_[static_cast<size_t>(part)].sectionIndex == section ? part : -1;
    }
    const auto after = std::upper_bound(
        data_.begin(), data_.end(), std::pair(section, address),
        [](const auto &key, const LinkedPart &part) { return key < std::pair(part.sectionIndex, part.begin); });
    if (after == data_.begin() || std::prev(after)->sectionIndex != section) return -1;
    return std::prev(after)->Contains(address) ? static_cast<int>(std::prev(after) - data_.begin()) : -1;
}

int CLinkedImage::PartAt(uint32_t address) const {
    const auto after = std::upper_bound(program_.begin(), program_.end(), address,
                                        [](uint32_t value, const LinkedPart &part) { return value < part.begin; });
    if (after == program_.begin() || !std::prev(after)->Contains(address)) return -1;
    return static_cast<int>(std::prev(after) - program_.begin());
}

std::string_view CLinkedImage::BytesAt(const LinkedPart &part, uint32_t address) const {
    const CObjectFile::Section &section = SectionOf(part);
    if (!part.Contains(address)) return {};
    const uint64_t offset = uint64_t{address - section.address} * BytesPerUnit();
    if (offset >= section.bytes.size()) return {};
    return section.bytes.substr(offset, uint64_t{part.end - address} * BytesPerUnit());
}

const LinkedPlace *CLinkedImage::FindGlobal(const std::string &name) const {
    const auto found = globals_.find(name);
    return found == globals_.end() ? nullptr : &found->second;
}

std::pair<const CObjectFile::Line *, const CObjectFile::Line *> CLinkedImage::Lines(uint32_t begin,
                                                                                    uint32_t end) const {
    const auto before = [](const CObjectFile::Line &line, uint32_t address) { return line.address < address; };
    const auto first = std::lower_bound(lines_.begin(), lines_.end(), begin, before);
    const auto last = std::lower_bound(first, lines_.end(), std::max(begin, end), before);
    return {lines_.data() + (first - lines_.begin()), lines_.data() + (last - lines_.begin())};
}

std::string CLinkedImage::FileName(const CObjectFile::Line &line) const {
    return line.file < file_.Symbols().size() ? file_.Symbols()[line.file].fileName : std::string();
}
