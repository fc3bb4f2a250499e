#include "image/ImageFunctions.h"

#include <algorithm>

#include "coff/FunctionSplit.h"
#include "coff/InstructionSet.h"

namespace {

constexpr size_t kWordSize = 2;         // bytes
constexpr size_t kPageSelectWords = 2;  // at most, in front of a call or jump
constexpr uint16_t kPclath = 0x0A;

uint16_t WordAt(std::string_view bytes, size_t offset) {
    return static_cast<uint16_t>(static_cast<uint8_t>(bytes[offset]) | static_cast<uint8_t>(bytes[offset + 1]) << 8);
}

// The page that a call or jump at `offset` of a part goes to: what the words before it choose, else its own.
uint32_t PageOf(int bits, std::string_view bytes, size_t offset, uint32_t address) {
    const uint32_t pageSize = PageSize(bits);
    uint32_t page = pageSize ? address / pageSize * pageSize : 0;
    if (bits != 14) return page;
    for (size_t back = std::min(kPageSelectWords, offset / kWordSize); back > 0; --back) {
        const uint16_t word = WordAt(bytes, offset - back * kWordSize);
        const bool movesLiteral = (word & 0x3F80) == 0x3180, clears = (word & 0x3C00) == 0x1000,
                   sets = (word & 0x3C00) == 0x1400;
        if (movesLiteral) {
            page = (word & 0x7Fu) << 8 & ~(pageSize - 1);
        } else if ((clears || sets) && (word & 0x7F) == kPclath) {
            const uint32_t addressBit = 0x100u << (word >> 7 & 7);  // the register holds bits 8 and up
            if (addressBit >= pageSize) page = sets ? page | addressBit : page & ~addressBit;
        }
    }
    return page;
}

std::vector<Transfer> ReadTransfers(const CLinkedImage &image) {
    std::vector<Transfer> transfers;
    for (const LinkedPart &part : image.Program()) {
        if (!part.isCode) continue;
        const std::string_view bytes = image.BytesAt(part, part.begin);
        for (size_t offset = 0; offset + kWordSize <= bytes.size(); offset += kWordSize) {
            const uint32_t address = part.begin + static_cast<uint32_t>(offset / image.BytesPerUnit());
            const Instruction instruction = DecodeInstruction(image.Bits(), bytes.substr(offset), address);
            if (!instruction.target) continue;
            const uint32_t page = instruction.paged ? PageOf(image.Bits(), bytes, offset, address) : 0;
            transfers.push_back({address, page | *instruction.target, instruction.flow == Flow::call});
        }
    }
    return transfers;
}

std::vector<uint32_t> VectorsOf(int bits) {
    if (bits == 8) return {0x00, 0x08, 0x18};
    return bits == 14 ? std::vector<uint32_t>{0x00, 0x04} : std::vector<uint32_t>{0x00};
}

// Labels that begin a function in any case: the global ones, and those where the chip begins after a reset or an
// interrupt.
std::vector<uint32_t> EntriesOf(const LinkedPart &part, const std::vector<uint32_t> &vectors) {
    std::vector<uint32_t> entries;
    for (const LinkedLabel &label : part.labels)
        if (label.global || std::find(vectors.begin(), vectors.end(), label.address) != vectors.end())
            entries.push_back(label.address);
    return entries;
}

std::string NameOf(const LinkedPart &part, uint32_t address) {
    const auto before = [](const LinkedLabel &label, uint32_t value) { return label.address < value; };
    const auto first = std::lower_bound(part.labels.begin(), part.labels.end(), address, before);
    const std::string *name = nullptr;
    for (auto label = first; label != part.labels.end() && label->address == address; ++label) {
        if (label->global) return label->name;
        if (!name) name = &label->name;
    }
    return name ? *name : part.section;
}

}  // namespace

std::vector<ImageFunction> FindFunctions(const CLinkedImage &image) {
    const std::vector<uint32_t> vectors = VectorsOf(image.Bits());
    std::vector<ProgramPart> parts;
    for (const LinkedPart &linked : image.Program()) {
        ProgramPart part{linked.begin, linked.end, {}, EntriesOf(linked, vectors)};
        for (const LinkedLabel &label : linked.labels) part.labels.push_back(label.address);
        parts.push_back(std::move(part));
    }
    std::vector<ImageFunction> functions;
    for (const FunctionRange &range : SplitIntoFunctions(parts, ReadTransfers(image)))
        functions.push_back(
            {NameOf(image.Program()[static_cast<size_t>(range.part)], range.begin), range.begin, range.end});
    return functions;
}
