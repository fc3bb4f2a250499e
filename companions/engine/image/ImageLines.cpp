#include "image/ImageLines.h"

#include <algorithm>

#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

constexpr size_t kNoFile = SIZE_MAX;
constexpr size_t kMostFiles = 1024;  // each is looked for on disk; a damaged image can name any number

bool HasDrive(const std::string &name) {
    return name.size() > 2 && name[1] == ':' && (name[2] == '\\' || name[2] == '/');
}

// One spelling for each full name: canonical and without a drive.
std::string FullName(const std::string &name) {
    return FromNativePath(NativePathAsSpelled(GetFullPathNameA(name)));
}

// The full name of a source that the assembler was given as `name`, on whichever system that was.
std::string ResolveSource(const std::string &name, const std::string &folder) {
    const std::string windows = HasDrive(name) ? name : FromNativePath(name);
    if (HasDrive(windows) || windows.starts_with('\\')) return FullName(windows);
    const std::string projectName = FullName(folder + "\\..\\" + windows);
    for (const std::string &candidate : {projectName, FullName(folder + "\\" + windows), FullName(windows)})
        if (FileExists(candidate)) return candidate;
    return projectName;
}

std::string BareName(const std::string &name) {
    return LowerCase(std::string_view(name).substr(name.find_last_of('\\') + 1));
}

// For each symbol of the image that names a file, what `numberOf` gives for its full name.
template <typename NumberOf>
std::vector<size_t> FilesOfSymbols(const CObjectFile &image, const std::string &folder, NumberOf numberOf) {
    std::vector<size_t> files(image.Symbols().size(), kNoFile);
    std::unordered_map<std::string, size_t> known;
    for (const CObjectFile::Line &line : image.Lines()) {
        if (line.file >= files.size() || files[line.file] != kNoFile) continue;
        const std::string &name = image.Symbols()[line.file].fileName;
        if (name.empty()) continue;
        const auto [entry, isNew] = known.insert({name, kNoFile});
        if (isNew && known.size() <= kMostFiles) entry->second = numberOf(ResolveSource(name, folder));
        files[line.file] = entry->second;
    }
    return files;
}

}  // namespace

CImageLines::CImageLines(const CLinkedImage &image, const std::string &folder)
    : addressesPerWord_(image.Bits() == 8 ? 2 : 1) {
    const std::vector<size_t> fileOfSymbol =
        FilesOfSymbols(image.File(), folder, [this](const std::string &name) { return FileNumber(name); });
    for (const LinkedPart &part : image.Program()) ReadPart(image, part, fileOfSymbol);
    for (size_t i = 0; i < files_.size(); ++i) {
        std::sort(files_[i].starts.begin(), files_[i].starts.end());
        if (!files_[i].starts.empty()) byBareName_[BareName(files_[i].name)].push_back(i);
    }
}

size_t CImageLines::FileNumber(const std::string &name) {
    std::vector<size_t> &known = byName_[LowerCase(name)];
    for (const size_t file : known)
        if (NamesOneFile(files_[file].name, name)) return file;
    known.push_back(files_.size());
    files_.push_back({name, {}});
    return files_.size() - 1;
}

// There is a record for each word; those of one line that follow each other are one piece of its code.
void CImageLines::ReadPart(const CLinkedImage &image, const LinkedPart &part, const std::vector<size_t> &fileOfSymbol) {
    const auto [first, last] = image.Lines(part.begin, part.end);
    const size_t begin = records_.size();
    for (auto line = first; line != last; ++line) {
        if (line->file >= fileOfSymbol.size() || fileOfSymbol[line->file] == kNoFile || line->line <= 0) continue;
        const Record record{line->address, fileOfSymbol[line->file], line->line};
        const bool hasBefore = records_.size() > begin;
        if (hasBefore && WordOf(records_.back().address) == WordOf(record.address)) continue;
        const bool goesOn = hasBefore && records_.back().file == record.file && records_.back().line == record.line &&
                            WordOf(records_.back().address) + 1 == WordOf(record.address);
        records_.push_back(record);
        if (isStart_.size() <= WordOf(record.address)) isStart_.resize(WordOf(record.address) + 1);
        if (goesOn) continue;
        isStart_[WordOf(record.address)] = true;
        files_[record.file].starts.push_back({record.line, record.address});
    }
    if (records_.size() == begin) return;
    recordAt_.resize(std::max(recordAt_.size(), WordOf(part.end - 1) + 1), -1);
    for (size_t i = begin; i < records_.size(); ++i) {
        const uint32_t end = i + 1 < records_.size() ? records_[i + 1].address : part.end;
        std::fill(recordAt_.begin() + static_cast<std::ptrdiff_t>(WordOf(records_[i].address)),
                  recordAt_.begin() + static_cast<std::ptrdiff_t>(WordOf(end - 1) + 1), static_cast<int32_t>(i));
    }
}

std::optional<ImagePlace> CImageLines::PlaceAt(uint32_t address) const {
    if (WordOf(address) >= recordAt_.size() || recordAt_[WordOf(address)] < 0) return std::nullopt;
    const Record &record = records_[static_cast<size_t>(recordAt_[WordOf(address)])];
    return ImagePlace{files_[record.file].name, record.line};
}

bool CImageLines::IsLineStart(uint32_t address) const {
    return address % addressesPerWord_ == 0 && WordOf(address) < isStart_.size() && isStart_[WordOf(address)];
}

const CImageLines::File *CImageLines::FindFile(const std::string &name) const {
    if (name.empty()) return nullptr;
    const std::string full = FullName(name);
    if (const auto found = byName_.find(LowerCase(full)); found != byName_.end())
        for (const size_t file : found->second)
            if (NamesOneFile(files_[file].name, full)) return &files_[file];
    const auto bare = byBareName_.find(BareName(full));
    return bare != byBareName_.end() && bare->second.size() == 1 ? &files_[bare->second.front()] : nullptr;
}

std::optional<CImage::LineStart> CImageLines::FindLine(const std::string &file, int line) const {
    const File *found = FindFile(file);
    if (!found) return std::nullopt;
    const auto start = std::lower_bound(found->starts.begin(), found->starts.end(), Start{line, 0});
    if (start == found->starts.end()) return std::nullopt;
    return CImage::LineStart{start->address, start->line};
}

std::vector<uint32_t> CImageLines::AddressesOf(const std::string &file, int line) const {
    std::vector<uint32_t> addresses;
    const File *found = FindFile(file);
    if (!found) return addresses;
    auto start = std::lower_bound(found->starts.begin(), found->starts.end(), Start{line, 0});
    for (; start != found->starts.end() && start->line == line; ++start) addresses.push_back(start->address);
    return addresses;
}
