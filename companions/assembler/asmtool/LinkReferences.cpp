#include "LinkReferences.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <memory>

#include "platform/FileText.h"
#include "platform/NativePath.h"

namespace {

constexpr std::string_view kLibraryMagic = "!<arch>\n";
// A member's header: name, date, size as text, "!<".
constexpr size_t kMemberHeaderSize = 280, kMemberSizeOffset = 268, kMemberSizeLength = 10, kMemberEndOffset = 278;

// The files of the link, each object to be taken once. Those named are before those in libraries, which are opened only
// when they are needed.
class CCandidates {
public:
    explicit CCandidates(const std::vector<std::string> &files) {
        for (const std::string &file : files) {
            std::optional<std::string> bytes = ReadWholeFile(FromNativePath(file));
            if (!bytes) continue;
            if (bytes->starts_with(kLibraryMagic)) {
                libraries_.push_back(std::move(*bytes));
            } else {
                Add(CObjectFile::FromBytes(std::move(*bytes)));
            }
        }
    }

    std::unique_ptr<CObjectFile> Take(const CLinkedImage::Object &object) {
        std::unique_ptr<CObjectFile> found = TakeKnown(object);
        if (found || libraries_.empty()) return found;
        for (const std::string &library : libraries_)
            for (CObjectFile &member : ReadLibrary(library)) Add(std::move(member));
        libraries_.clear();
        return TakeKnown(object);
    }

private:
    void Add(CObjectFile object) {
        const std::string source = object.SourceName();
        objects_[source].push_back(std::make_unique<CObjectFile>(std::move(object)));
    }

    static bool Fits(const CObjectFile &file, const CLinkedImage::Object &object) {
        size_t fitting = 0;
        for (const CObjectFile::Section &section : file.Sections()) {
            const auto found = object.sections.find(section.name);
            if (found != object.sections.end() && found->second.size == section.size) ++fitting;
        }
        return fitting == object.sections.size();
    }

    std::unique_ptr<CObjectFile> TakeKnown(const CLinkedImage::Object &object) {
        const auto same = objects_.find(object.source);
        if (same == objects_.end()) return nullptr;
        auto &files = same->second;
        const auto found = std::find_if(files.begin(), files.end(), [&](const auto &f) { return Fits(*f, object); });
        if (found == files.end()) return nullptr;
        std::unique_ptr<CObjectFile> taken = std::move(*found);
        files.erase(found);
        return taken;
    }

    std::map<std::string, std::vector<std::unique_ptr<CObjectFile>>> objects_;  // by source
    std::vector<std::string> libraries_;
};

class CReferenceReader {
public:
    CReferenceReader(const CLinkedImage &image, const CLinkedImage::Object &object, const CObjectFile &file)
        : image_(image), file_(file) {
        for (const CObjectFile::Section &section : file.Sections()) {
            const auto found = object.sections.find(section.name);
            linked_.push_back(found == object.sections.end() ? nullptr : &found->second.place);
        }
    }

    void Read(std::vector<LinkReference> &references) const {
        for (const CObjectFile::Use &use : file_.Uses()) {
            const LinkedPlace *from = SectionPlace(use.section);
            const LinkedPlace symbol = PlaceOf(use.symbol);
            if (!from || symbol.part < 0) continue;
            const uint32_t units = from->inProgram ? use.address / image_.BytesPerUnit() : use.address;
            references.push_back(
                {from->inProgram, from->address + units, static_cast<Relocation>(use.type), symbol, use.offset});
        }
    }

private:
    const LinkedPlace *SectionPlace(int section) const {  // from 1
        return section > 0 && static_cast<size_t>(section) <= linked_.size() ? linked_[static_cast<size_t>(section) - 1]
                                                                             : nullptr;
    }

    LinkedPlace PlaceOf(uint32_t index) const {
        if (index >= file_.Symbols().size()) return {};
        const CObjectFile::Symbol &symbol = file_.Symbols()[index];
        if (const LinkedPlace *section = SectionPlace(symbol.section)) {
            LinkedPlace place = *section;
            place.address += symbol.value - file_.Sections()[static_cast<size_t>(symbol.section) - 1].address;
            return place;
        }
        const LinkedPlace *global = symbol.section == 0 ? image_.FindGlobal(symbol.name) : nullptr;
        return global ? *global : LinkedPlace{};
    }

    const CLinkedImage &image_;
    const CObjectFile &file_;
    std::vector<const LinkedPlace *> linked_;  // by section of the object; null: not in the image
};

}  // namespace

bool LinkReference::SelectsPage() const {
    return type == Relocation::pageSelect || type == Relocation::pageSelectW || type == Relocation::pageSelectBits ||
           type == Relocation::pageSelectLiteral;
}

bool LinkReference::SelectsBank() const {
    return type == Relocation::bankSelect || type == Relocation::indirectBankSelect ||
           type == Relocation::moveToRegisterBank || type == Relocation::moveToBank || type == Relocation::access;
}

std::vector<CObjectFile> ReadLibrary(std::string_view bytes) {
    std::vector<CObjectFile> members;
    if (!bytes.starts_with(kLibraryMagic)) return members;
    bytes.remove_prefix(kLibraryMagic.size());
    while (bytes.size() > kMemberHeaderSize && bytes.substr(kMemberEndOffset, 2) == "!<") {
        const char *digits = bytes.data() + kMemberSizeOffset;
        size_t size = 0;
        if (std::from_chars(digits, digits + kMemberSizeLength, size).ec != std::errc()) break;
        const bool isIndex = bytes.starts_with("/ ");
        bytes.remove_prefix(kMemberHeaderSize);
        if (size > bytes.size()) break;
        if (!isIndex) members.push_back(CObjectFile::FromBytes(std::string(bytes.substr(0, size))));
        bytes.remove_prefix(size);
    }
    return members;
}

std::vector<LinkReference> ReadReferences(const CLinkedImage &image, const std::vector<std::string> &files) {
    CCandidates candidates(files);
    std::vector<LinkReference> references;
    for (const CLinkedImage::Object &object : image.Objects())
        if (const std::unique_ptr<CObjectFile> file = candidates.Take(object))
            CReferenceReader(image, object, *file).Read(references);
    return references;
}
