#include "LinkStatistics.h"

#include <algorithm>
#include <unordered_set>

#include "DataOwners.h"
#include "LinkReferences.h"
#include "SourceTexts.h"
#include "coff/FunctionSplit.h"
#include "coff/InstructionSet.h"
#include "platform/NativePath.h"

namespace {

constexpr uint32_t kPageSelectSize = 2;  // words that choose a page before a jump

class CCollector {
public:
    CCollector(const std::string &image, const std::vector<std::string> &files, uint32_t programSize)
        : image_(CObjectFile(FromNativePath(image)), programSize), references_(ReadReferences(image_, files)) {
        uint32_t end = programSize;
        if (end == 0 && !image_.Program().empty()) end = image_.Program().back().end;
        hasPages_ = PageSize(image_.Bits()) != 0 && end > PageSize(image_.Bits());
    }

    std::optional<LinkStatistics> Collect() {
        if (image_.Bits() == 0 || image_.DataSize() + image_.ProgramSize() > INT32_MAX) return std::nullopt;
        ReadTransfers();
        functions_ = SplitIntoFunctions(Parts(), transfers_);
        const std::vector<uint32_t> ram = OwnDataSizes(image_, references_, functions_);
        LinkStatistics result;
        result.commonRam = image_.DataSize();
        for (size_t i = 0; i < functions_.size(); ++i) {
            result.functions.push_back(Describe(functions_[i]));
            result.functions.back().ram = ram[i];
            result.commonRam -= std::min<uint64_t>(result.commonRam, ram[i]);
        }
        AddCalls(result.functions);
        return result;
    }

private:
    const LinkedPart &PartOf(const FunctionRange &function) const {
        return image_.Program()[static_cast<size_t>(function.part)];
    }
    uint32_t InstructionSize() const { return image_.Bits() == 8 ? 2 : 1; }  // of one word, in addresses

    Instruction InstructionAt(const LinkedPart &part, uint32_t address) const {
        return DecodeInstruction(image_.Bits(), image_.BytesAt(part, address), address);
    }

    bool IsData(const CObjectFile::Line &line) { return texts_.IsDataLine(image_.FileName(line), line.line); }
    bool IsDataAt(uint32_t address) {
        const auto [first, last] = image_.Lines(address, address + 1);
        return first != last && IsData(*first);
    }

    void ReadTransfers() {
        std::unordered_set<uint32_t> relocated;
        for (const LinkReference &reference : references_) {
            if (!reference.fromProgram || !reference.symbol.inProgram) continue;
            const bool relative = reference.type == Relocation::relativeJump;
            if (!relative && reference.type != Relocation::call && reference.type != Relocation::jump &&
                reference.type != Relocation::relativeBranch)
                continue;
            const int part = image_.PartAt(reference.from);
            if (part < 0) continue;
            const bool isCall =
                relative ? InstructionAt(image_.Program()[static_cast<size_t>(part)], reference.from).flow == Flow::call
                         : reference.type == Relocation::call;
            transfers_.push_back(
                {reference.from, reference.symbol.address + static_cast<uint32_t>(reference.offset), isCall});
            relocated.insert(reference.from);
        }
        for (const LinkedPart &part : image_.Program())
            if (part.isCode && part.object >= 0) ReadPlainTransfers(part, relocated);
        std::stable_sort(transfers_.begin(), transfers_.end(),
                         [](const Transfer &a, const Transfer &b) { return a.from < b.from; });
        for (const Transfer &transfer : transfers_) targets_.insert(transfer.to);
    }

    // Calls and jumps to a number, which no relocation tells of. Where data could look like them the source line
    // decides.
    void ReadPlainTransfers(const LinkedPart &part, const std::unordered_set<uint32_t> &relocated) {
        const std::string_view bytes = image_.BytesAt(part, part.begin);
        for (size_t offset = 0; offset < bytes.size(); offset += 2) {
            const uint32_t address = part.begin + static_cast<uint32_t>(offset / image_.BytesPerUnit());
            const Instruction instruction = DecodeInstruction(image_.Bits(), bytes.substr(offset), address);
            if (!instruction.target || (instruction.paged && hasPages_)) continue;
            if (relocated.contains(address) || IsDataAt(address)) continue;
            transfers_.push_back({address, *instruction.target, instruction.flow == Flow::call});
        }
    }

    std::vector<ProgramPart> Parts() const {
        std::unordered_set<uint32_t> pageSelects;
        for (const LinkReference &reference : references_)
            if (reference.fromProgram && reference.SelectsPage()) pageSelects.insert(reference.from);
        std::vector<ProgramPart> parts;
        for (const LinkedPart &linked : image_.Program()) {
            ProgramPart part{linked.begin, linked.end, {}, {}};
            for (const LinkedLabel &label : linked.labels) {
                part.labels.push_back(label.address);
                if (label.global) part.entries.push_back(label.address);
            }
            AddVectors(linked, pageSelects, part);
            parts.push_back(std::move(part));
        }
        return parts;
    }

    // Where the chip begins after a reset or an interrupt, a jump leads into another function. Behind such a jump
    // nothing is reached but by its label, so a label at the vector of an interrupt is one's begin.
    void AddVectors(const LinkedPart &linked, const std::unordered_set<uint32_t> &pageSelects,
                    ProgramPart &part) const {
        const auto hasLabel = [&](uint32_t address) {
            return std::binary_search(part.labels.begin(), part.labels.end(), address);
        };
        const std::vector<uint32_t> vectors = Vectors();
        if (std::find(vectors.begin(), vectors.end(), part.begin) == vectors.end()) return;
        const auto jump = std::lower_bound(transfers_.begin(), transfers_.end(), part.begin,
                                           [](const Transfer &t, uint32_t address) { return t.from < address; });
        if (jump == transfers_.end() || InstructionAt(linked, jump->from).flow != Flow::jump) return;
        const bool isFirst = jump->from == part.begin;
        if (!isFirst && !(jump->from <= part.begin + kPageSelectSize && pageSelects.contains(part.begin))) return;
        if (hasLabel(jump->to)) part.entries.push_back(jump->to);
        for (const uint32_t vector : vectors)
            if (vector > jump->from && hasLabel(vector)) part.entries.push_back(vector);
    }

    std::vector<uint32_t> Vectors() const {
        if (image_.Bits() == 8) return {0x00, 0x08, 0x18};
        return image_.Bits() == 14 ? std::vector<uint32_t>{0x00, 0x04} : std::vector<uint32_t>{0x00};
    }

    LinkedFunction Describe(const FunctionRange &range) {
        const LinkedPart &part = PartOf(range);
        LinkedFunction function;
        function.rom = range.end - range.begin;
        function.name = part.section;
        const auto label = std::lower_bound(part.labels.begin(), part.labels.end(), range.begin,
                                            [](const LinkedLabel &l, uint32_t address) { return l.address < address; });
        for (auto l = label; l != part.labels.end() && l->address == range.begin; ++l)
            if (l == label || l->global) {
                function.name = l->name;
                if (l->global) break;
            }

        const auto [first, last] = image_.Lines(range.begin, range.end);
        function.isData =
            !part.isCode || (first != last && std::all_of(first, last, [&](const auto &line) { return IsData(line); }));
        if (part.object < 0) return function;
        const std::string &source = image_.Objects()[static_cast<size_t>(part.object)].source;
        function.file = first != last ? image_.FileName(*first) : source;
        function.line = first != last ? first->line : 0;
        if (const auto line = texts_.LabelLine(function.file, function.name, function.line)) {
            function.line = *line;
        } else if (const auto sourceLine = texts_.LabelLine(source, function.name, 0)) {  // a macro stands behind it
            function.file = source;
            function.line = *sourceLine;
        }
        return function;
    }

    void AddCalls(std::vector<LinkedFunction> &functions) {
        std::vector<size_t> lastCaller(functions.size(), functions.size());
        const auto add = [&](size_t caller, int callee) {
            const size_t index = static_cast<size_t>(callee);
            if (callee < 0 || lastCaller[index] == caller) return;
            lastCaller[index] = caller;
            functions[caller].callees.push_back(callee);
        };
        auto transfer = transfers_.begin();
        for (size_t i = 0; i < functions_.size(); ++i) {
            while (transfer != transfers_.end() && transfer->from < functions_[i].begin) ++transfer;
            for (; transfer != transfers_.end() && transfer->from < functions_[i].end; ++transfer) {
                const int target = FunctionAt(functions_, transfer->to);
                const bool isOwn = target == static_cast<int>(i);
                if (!isOwn || (transfer->isCall && transfer->to == functions_[i].begin)) add(i, target);
            }
            if (i + 1 < functions_.size() && functions_[i + 1].part == functions_[i].part && !functions[i + 1].isData &&
                RunsOn(functions_[i]))
                add(i, static_cast<int>(i) + 1);
        }
    }

    // Whether control can pass the function's end: back from there, something that control gets to stands before the
    // first instruction that it doesn't get past.
    bool RunsOn(const FunctionRange &function) {
        const LinkedPart &part = PartOf(function);
        const uint32_t size = InstructionSize();
        if (!part.isCode || function.end - function.begin < size || IsDataAt(function.end - size)) return false;
        if (image_.BytesAt(part, function.end - size).size() < 2) return false;  // the image is cut short
        for (uint32_t address = function.end - size;; address -= size) {
            const Flow flow = InstructionAt(part, address).flow;
            const bool canBeSkipped =
                address - function.begin >= size && InstructionAt(part, address - size).flow == Flow::skip;
            if ((flow == Flow::jump || flow == Flow::end) && !canBeSkipped) return false;
            if (address - function.begin < size || IsTarget(part, address)) return true;
        }
    }

    bool IsTarget(const LinkedPart &part, uint32_t address) const {
        return targets_.contains(address) ||
               std::binary_search(part.labels.begin(), part.labels.end(), LinkedLabel{{}, address},
                                  [](const LinkedLabel &a, const LinkedLabel &b) { return a.address < b.address; });
    }

    const CLinkedImage image_;
    const std::vector<LinkReference> references_;
    CSourceTexts texts_;
    bool hasPages_ = false;
    std::vector<Transfer> transfers_;       // by address of the instruction
    std::unordered_set<uint32_t> targets_;  // of transfers
    std::vector<FunctionRange> functions_;
};

}  // namespace

std::optional<LinkStatistics> CollectLinkStatistics(const std::string &image, const std::vector<std::string> &files,
                                                    uint32_t programSize) {
    return CCollector(image, files, programSize).Collect();
}
