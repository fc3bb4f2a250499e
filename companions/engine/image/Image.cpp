#include "image/Image.h"

#include <algorithm>
#include <filesystem>

#include "image/ImageFunctions.h"
#include "image/ImageLines.h"
#include "image/ImageSymbols.h"
#include "image/ProgramMemory.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

constexpr uintmax_t kLargestFile = 32u << 20;  // some times what the largest chip's program can need
constexpr const char *kTooLarge = " is too large to be an image (more than 32 MB).";

std::string FolderOf(const std::string &path) {
    const SplitPath parts = _splitpath(GetFullPathNameA(path));
    return parts.drive + parts.directory;
}

// A number that isn't known leaves the header that the sources include: "p16f628a.inc".
Processor ProcessorOf(const CObjectFile &file) {
    Processor processor = FindProcessor(file.ProcessorNumber());
    if (!processor.name.empty()) return processor;
    for (const CObjectFile::Symbol &symbol : file.Symbols()) {
        if (!symbol.included) continue;
        const SplitPath parts = _splitpath(symbol.fileName);
        if (parts.name.size() < 2 || !parts.name.starts_with('p') || !EqualNoCase(parts.extension, ".inc")) continue;
        processor = FindProcessorByName(parts.name.substr(1));
        if (!processor.name.empty()) return processor;
    }
    return {};
}

}  // namespace

struct CImage::Data {
    Data(CLinkedImage linked, std::string chipName, const MemoryLayout &layout, const std::string &folder)
        : chip(std::move(chipName)),
          program(ReadProgram(linked.File(), layout)),
          symbols(linked),
          functions(FindFunctions(linked)),
          lines(linked, folder) {}

    std::string chip;
    ChipProgram program;
    CImageSymbols symbols;
    std::vector<ImageFunction> functions;
    CImageLines lines;
};

CImage::CImage(std::unique_ptr<Data> data) : data_(std::move(data)) {}
CImage::~CImage() = default;

std::unique_ptr<CImage> CImage::Load(const std::string &path, std::string &error) {
    std::error_code failure;
    const std::string shown = DisplayPath(path);
    if (std::filesystem::is_regular_file(shown, failure) && std::filesystem::file_size(shown, failure) > kLargestFile) {
        error = shown + kTooLarge;
        return nullptr;
    }
    std::optional<std::string> bytes = ReadWholeFile(path);
    if (!bytes) {
        error = shown + " can't be read.";
        return nullptr;
    }
    auto image = FromBytes(std::move(*bytes), path, error);
    const SplitPath parts = _splitpath(path);
    const std::string listing = parts.drive + parts.directory + parts.name + ".lst";
    const std::string shownListing = DisplayPath(listing);
    if (image && std::filesystem::is_regular_file(shownListing, failure) &&
        std::filesystem::file_size(shownListing, failure) <= kLargestFile)
        image->data_->symbols.AddListed(ReadWholeFile(listing).value_or(""));
    return image;
}

std::unique_ptr<CImage> CImage::FromBytes(std::string bytes, const std::string &path, std::string &error) {
    const auto refuse = [&](const char *why) {
        error = DisplayPath(path) + why;
        return nullptr;
    };
    if (bytes.size() > kLargestFile) return refuse(kTooLarge);
    CObjectFile file = CObjectFile::FromBytes(std::move(bytes));
    if (!file.IsObject()) return refuse(" is no image of the linker (a .cof file).");
    if (!file.IsWhole()) return refuse(" is cut short or damaged. Build the project anew.");
    if (!file.IsLinked()) return refuse(" is an object that isn't linked yet.");
    Processor processor = ProcessorOf(file);
    const MemoryLayout &layout = LayoutOf(file, processor.family);
    CLinkedImage linked(std::move(file), layout.programEnd);
    auto data = std::make_unique<Data>(std::move(linked), std::move(processor.name), layout, FolderOf(path));
    if (data->program.code.empty()) return refuse(" holds no program.");
    return std::unique_ptr<CImage>(new CImage(std::move(data)));
}

const std::string &CImage::Chip() const {
    return data_->chip;
}
const ChipProgram &CImage::Program() const {
    return data_->program;
}
const ImageSymbol *CImage::FindSymbol(const std::string &name) const {
    return data_->symbols.Find(name);
}
const std::vector<ImageFunction> &CImage::Functions() const {
    return data_->functions;
}
std::optional<ImagePlace> CImage::PlaceAt(uint32_t address) const {
    return data_->lines.PlaceAt(address);
}
bool CImage::IsLineStart(uint32_t address) const {
    return data_->lines.IsLineStart(address);
}

const ImageSymbol *CImage::SymbolAt(uint32_t address, bool inProgram) const {
    return data_->symbols.At(address, inProgram);
}

const ImageFunction *CImage::FunctionAt(uint32_t address) const {
    const auto after =
        std::upper_bound(data_->functions.begin(), data_->functions.end(), address,
                         [](uint32_t value, const ImageFunction &function) { return value < function.begin; });
    return after == data_->functions.begin() || address >= std::prev(after)->end ? nullptr : &*std::prev(after);
}

std::optional<CImage::LineStart> CImage::FindLine(const std::string &file, int line) const {
    return data_->lines.FindLine(file, line);
}

std::vector<uint32_t> CImage::AddressesOf(const std::string &file, int line) const {
    return data_->lines.AddressesOf(file, line);
}
