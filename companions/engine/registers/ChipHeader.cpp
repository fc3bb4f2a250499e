#include "ChipHeader.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace {

enum class Section { none, registers, bits };

bool IsNamePart(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

std::string_view Trimmed(std::string_view text, std::string_view unwanted) {
    const size_t begin = text.find_first_not_of(unwanted);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(unwanted) - begin + 1);
}

std::string_view TakeWord(std::string_view &line) {
    line = line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
    size_t size = 0;
    while (size < line.size() && IsNamePart(line[size])) ++size;
    const std::string_view word = line.substr(0, size);
    line.remove_prefix(size);
    return word;
}

// H'0F80', taken off the front.
std::optional<uint32_t> TakeNumber(std::string_view &line) {
    line = line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with("H'") && !line.starts_with("h'")) return std::nullopt;
    uint32_t value = 0;
    const char *last = line.data() + line.size();
    const auto [end, failure] = std::from_chars(line.data() + 2, last, value, 16);
    if (failure != std::errc() || end == last || *end != '\'') return std::nullopt;
    line.remove_prefix(static_cast<size_t>(end + 1 - line.data()));
    return value;
}

// Reads line by line; a line of "-" in a remark begins a section.
class CHeaderReader {
public:
    void ReadLine(std::string_view line) {
        if (line.starts_with(';')) {
            ReadRemark(line);
            return;
        }
        const bool isDefinition = !line.empty() && IsNamePart(line.front());
        const std::string_view word = TakeWord(line);
        if (word == "__MAXRAM") {
            header.lastAddress = TakeNumber(line).value_or(0);
        } else if (word == "__BADRAM") {
            ReadNoMemory(line);
        } else if (isDefinition && !word.empty()) {
            const std::string_view what = TakeWord(line);
            const auto value = TakeNumber(line);
            if ((what == "EQU" || what == "equ") && value) Define(std::string(word), *value);
        }
    }

    ChipHeader header;

private:
    void ReadRemark(std::string_view line) {
        line.remove_prefix(1);
        if (line.starts_with("====")) section_ = Section::none;
        if (Trimmed(line, " \t").substr(0, 3) != "---") return;
        const std::string_view title = Trimmed(line, " \t-");
        if (title.empty()) return;
        section_ = Section::none;
        if (title == "Register Files" || title.starts_with("Bank") || title == "Unbanked") {
            section_ = Section::registers;
        } else if (title.ends_with(" Bits")) {
            section_ = Section::bits;
            bits_ = &header.bits[std::string(title.substr(0, title.size() - 5))];
        }
    }

    void ReadNoMemory(std::string_view line) {
        while (const auto from = TakeNumber(line)) {
            line = line.substr(std::min(line.find_first_not_of(" \t-"), line.size()));
            const auto to = TakeNumber(line);
            header.noMemory.emplace_back(*from, to.value_or(*from));
            line = line.substr(std::min(line.find_first_not_of(" \t,"), line.size()));
        }
    }

    void Define(const std::string &name, uint32_t value) {
        if (section_ == Section::registers) header.registers.emplace_back(name, value);
        if (section_ == Section::bits && value < 8) bits_->push_back({name, static_cast<int>(value)});
    }

    Section section_ = Section::none;
    std::vector<HeaderBit> *bits_ = nullptr;  // of the present section
};

}  // namespace

ChipHeader ReadChipHeader(std::string_view text) {
    CHeaderReader reader;
    while (!text.empty()) {
        const size_t size = text.find('\n');
        reader.ReadLine(Trimmed(text.substr(0, size), "\r"));
        text.remove_prefix(size == std::string_view::npos ? text.size() : size + 1);
    }
    return std::move(reader.header);
}
