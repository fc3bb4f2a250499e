#include "DataOwners.h"

#include <algorithm>

namespace {

constexpr int kNobody = -1, kSeveral = -2;
constexpr uint32_t kLargestSection = 64 * 1024;   // bytes; no chip has more data memory
constexpr uint64_t kMostWork = 64 * 1024 * 1024;  // bytes looked at, which only a damaged image can exceed

// A function that uses a datum besides those that are known.
void Add(int &owner, int user) {
    if (owner == kNobody) {
        owner = user;
    } else if (user != kNobody && owner != user) {
        owner = kSeveral;
    }
}

struct Datum {
    uint32_t begin = 0, end = 0;
    int owner = kNobody;
};

// The data under each label of a part, reaching to the next label.
std::vector<Datum> DataOf(const LinkedPart &part) {
    std::vector<Datum> data;
    for (const LinkedLabel &label : part.labels) {
        if (!data.empty() && data.back().begin == label.address) continue;
        if (!data.empty()) data.back().end = label.address;
        data.push_back({label.address, part.end});
    }
    return data;
}

void Use(std::vector<Datum> &data, uint32_t address, int user) {
    const auto after = std::upper_bound(data.begin(), data.end(), address,
                                        [](uint32_t value, const Datum &datum) { return value < datum.begin; });
    if (after != data.begin() && address < std::prev(after)->end) Add(std::prev(after)->owner, user);
}

}  // namespace

std::vector<uint32_t> OwnDataSizes(const CLinkedImage &image, const std::vector<LinkReference> &references,
                                   const std::vector<FunctionRange> &functions) {
    const std::vector<LinkedPart> &parts = image.Data();
    std::vector<std::vector<Datum>> data;
    for (const LinkedPart &part : parts) data.push_back(DataOf(part));
    for (const LinkReference &reference : references) {
        if (reference.symbol.inProgram || reference.symbol.part < 0 || reference.SelectsBank()) continue;
        const int function = reference.fromProgram ? FunctionAt(functions, reference.from) : kNobody;
        const int user = function < 0 ? kSeveral : function;
        std::vector<Datum> &used = data[static_cast<size_t>(reference.symbol.part)];
        Use(used, reference.symbol.address, user);
        if (reference.offset != 0) Use(used, reference.symbol.address + static_cast<uint32_t>(reference.offset), user);
    }

    std::vector<uint32_t> sizes(functions.size());
    std::vector<int> owners;  // of the bytes of one section, in which several objects' data can lie at one address
    uint64_t work = 0;
    for (size_t first = 0, next = 0; first < parts.size(); first = next) {
        const CObjectFile::Section &section = image.SectionOf(parts[first]);
        while (next < parts.size() && parts[next].sectionIndex == parts[first].sectionIndex) ++next;
        if (section.size > kLargestSection) continue;
        owners.assign(section.size, kNobody);
        work += section.size;
        for (size_t i = first; i < next && work < kMostWork; ++i) {
            for (const Datum &datum : data[i])
                for (uint32_t a = datum.begin; a < datum.end; ++a) Add(owners[a - section.address], datum.owner);
            work += parts[i].end - parts[i].begin;
        }
        if (work >= kMostWork) break;
        for (const int owner : owners)
            if (owner >= 0) ++sizes[static_cast<size_t>(owner)];
    }
    return sizes;
}
